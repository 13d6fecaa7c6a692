#pragma once

#include "lesson/Export.h"

#include <QtCore/QPoint>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtGui/QColor>

#include <optional>
#include <vector>

namespace InkLesson {

// One recorded stroke. The first point is the press and the last the release; there is at least one.
struct Stroke
{
    QColor color;
    int width; // page pixels
    std::vector<QPoint> points;
};

// A recorded drawing: one JSON object with "title", "license", "width", "height" and "strokes", each stroke with
// "color" ("#rrggbb"), "width" and "points" ([[x, y], ...]). Fractions of a pixel are cut off. Other keys are
// ignored, title and license may be left out.
struct StrokeFile
{
    QString title;
    QString license;
    QSize size; // of the page
    std::vector<Stroke> strokes;
};

// On failure `error` names the file and the place in it, in one line.
INKLESSON_EXPORT std::optional<StrokeFile> readStrokeFile(const QString &fileName, QString &error);

} // namespace InkLesson

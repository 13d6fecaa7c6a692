#pragma once

#include "lesson/Export.h"
#include "lesson/paper/Paper.h"

#include <QtGui/QImage>

class QPainter;

namespace InkLesson {

// The lines or the picture of the paper, on white. The lines are `density` times as far apart as on a plain screen.
INKLESSON_EXPORT void paintPaper(QPainter &painter, const Paper &paper, const QSize &size, double density = 1);

// The same as an opaque image.
INKLESSON_EXPORT QImage paintedPaper(const Paper &paper, const QSize &size, double density = 1);

// The same, of which the last is kept: pages alike have its pixels in common.
class INKLESSON_EXPORT PaintedPapers
{
public:
    QImage of(const Paper &paper, const QSize &size, double density);

private:
    Paper m_paper;
    double m_density{};
    QImage m_image; // null before the first
};

} // namespace InkLesson

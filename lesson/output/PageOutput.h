#pragma once

#include "lesson/Export.h"

#include <QtCore/QString>

class QPainter;

namespace InkLesson {

class Page;

// Paints the paper and the committed objects of a page on any device, as large as the painter's viewport: strokes and
// shapes as what they are, what works on pixels (fills, erased and lifted areas) and textured strokes as images.
INKLESSON_EXPORT void paintPage(QPainter &painter, const Page &page);

// Writes a page as PNG, `scale` times as large, or as SVG or PDF, by the suffix of the name; whole or not at all.
// Returns what went wrong, empty when nothing did.
INKLESSON_EXPORT QString exportPage(const Page &page, const QString &fileName, double scale = 1);

} // namespace InkLesson

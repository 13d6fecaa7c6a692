#pragma once

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace InkInternal {

// Paints what painter.drawPath(path) does, no pixel differs; in a small part of the time where very many long segments
// lie over each other, which is how a page is scribbled over.
void paintPath(QPainter &painter, const QPainterPath &path);

} // namespace InkInternal

#pragma once

// What the line and the arrow line share below their painter states.

#include "CInkLine.h"

#include <QtGui/QPen>

namespace InkInternal {

QPen linePen(const CInkLine &line);

// The segment, and the handles while the line is edited. The painter carries the line's pen.
void paintLine(CInkLine &line, QPainter &painter);

} // namespace InkInternal

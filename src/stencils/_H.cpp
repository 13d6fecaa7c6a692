#include "_H.h"

#include "stencils/outline_p.h"

using namespace InkInternal;

namespace {

// Clockwise from the tip; 1 and 6 are the barbs.
constexpr QPointF kPoints[] = {{0, 40}, {10, 0}, {10, 25}, {30, 25}, {30, 55}, {10, 55}, {10, 80}};
constexpr Outline kOutline = outline(kPoints, /*width between*/ {0, 3}, /*height between*/ {1, 6});

} // namespace

_H::_H()
{
    takeTemplate(*this, kOutline);
}

_H::_H(Qt::PenStyle style)
{
    m_penStyle = style;
}

_H::~_H() = default;

void _H::NormalizeGraphData(QVector<QPointF> &points)
{
    scaleIntoBox(points, kOutline, kOutline.count);
}

void _H::InitGraphData()
{
    writeTemplate(m_graphData, kOutline);
}

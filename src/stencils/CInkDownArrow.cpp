#include "CInkDownArrow.h"

#include "stencils/outline_p.h"

using namespace InkInternal;

namespace {

// Counter-clockwise from the shaft's top left; 2 and 4 are the barbs, 3 the tip.
constexpr QPointF kPoints[] = {{25, 0}, {25, 20}, {0, 20}, {40, 30}, {80, 20}, {55, 20}, {55, 0}};
constexpr Outline kOutline = outline(kPoints, /*width between*/ {2, 4}, /*height between*/ {0, 3});

} // namespace

CInkDownArrow::CInkDownArrow()
{
    takeTemplate(*this, kOutline);
}

CInkDownArrow::CInkDownArrow(Qt::PenStyle style)
{
    m_penStyle = style;
}

CInkDownArrow::~CInkDownArrow() = default;

void CInkDownArrow::NormalizeGraphData(QVector<QPointF> &points)
{
    scaleIntoBox(points, kOutline, kOutline.count);
}

void CInkDownArrow::InitGraphData()
{
    writeTemplate(m_graphData, kOutline);
}

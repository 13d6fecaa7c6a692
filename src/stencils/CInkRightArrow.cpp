#include "CInkRightArrow.h"

#include "stencils/outline_p.h"

using namespace InkInternal;

namespace {

// Clockwise from the shaft's upper left; 2 and 4 are the barbs, 3 the tip.
constexpr QPointF kPoints[] = {{0, 25}, {20, 25}, {20, 0}, {30, 40}, {20, 80}, {20, 55}, {0, 55}};
constexpr Outline kOutline = outline(kPoints, /*width between*/ {0, 3}, /*height between*/ {2, 4});

} // namespace

CInkRightArrow::CInkRightArrow()
{
    takeTemplate(*this, kOutline);
}

CInkRightArrow::CInkRightArrow(Qt::PenStyle style)
{
    m_penStyle = style;
}

CInkRightArrow::~CInkRightArrow() = default;

void CInkRightArrow::NormalizeGraphData(QVector<QPointF> &points)
{
    scaleIntoBox(points, kOutline, kOutline.count);
}

void CInkRightArrow::InitGraphData()
{
    writeTemplate(m_graphData, kOutline);
}

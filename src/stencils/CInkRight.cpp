#include "CInkRight.h"

#include "stencils/outline_p.h"

using namespace InkInternal;

namespace {

// Clockwise from the long arm's end; 2 and 5 are the outer and inner bend.
constexpr QPointF kPoints[] = {{71, 0}, {75, 4}, {25, 54}, {0, 29}, {4, 25}, {25, 46}};
constexpr Outline kOutline = outline(kPoints, /*width between*/ {3, 1}, /*height between*/ {0, 2});

} // namespace

CInkRight::CInkRight()
{
    takeTemplate(*this, kOutline);
}

CInkRight::CInkRight(Qt::PenStyle style)
{
    m_penStyle = style;
}

CInkRight::~CInkRight() = default;

void CInkRight::NormalizeGraphData(QVector<QPointF> &points)
{
    scaleIntoBox(points, kOutline, kOutline.count);
}

void CInkRight::InitGraphData()
{
    writeTemplate(m_graphData, kOutline);
}

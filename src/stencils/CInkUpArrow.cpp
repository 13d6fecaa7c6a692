#include "CInkUpArrow.h"

#include "stencils/outline_p.h"

using namespace InkInternal;

namespace {

// Counter-clockwise from the tip; 1 and 6 are the barbs.
constexpr QPointF kPoints[] = {{40, 0}, {0, 10}, {25, 10}, {25, 30}, {55, 30}, {55, 10}, {80, 10}};
constexpr Outline kOutline = outline(kPoints, /*width between*/ {1, 6}, /*height between*/ {0, 3});

} // namespace

CInkUpArrow::CInkUpArrow()
{
    takeTemplate(*this, kOutline);
}

CInkUpArrow::CInkUpArrow(Qt::PenStyle style)
{
    m_penStyle = style;
}

CInkUpArrow::~CInkUpArrow() = default;

void CInkUpArrow::NormalizeGraphData(QVector<QPointF> &points)
{
    // [ink-up-arrow-unscaled] Before the pointer has moved, the template is shown in its own size.
    if (!moveToUnmovedDrag(points, kOutline))
        scaleIntoBox(points, kOutline, kOutline.count);
}

void CInkUpArrow::InitGraphData()
{
    writeTemplate(m_graphData, kOutline);
}

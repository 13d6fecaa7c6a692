#include "CInk6Side.h"

#include "stencils/outline_p.h"

using namespace InkInternal;

namespace {

// Counter-clockwise from the top left, before the shift.
constexpr QPointF kPoints[] = {{17.500006, 4.689107}, {0, 34.999996},  {17.49999, 65.310883},
                               {52.499996, 65.31089}, {70, 35.000011}, {52.500015, 4.68912}};
constexpr Outline kOutline = outline(kPoints, /*width between*/ {1, 4}, /*height between*/ {5, 3}, /*shift*/ {0, 4.5});

} // namespace

CInk6Side::CInk6Side()
{
    takeTemplate(*this, kOutline);
}

CInk6Side::CInk6Side(Qt::PenStyle style)
{
    m_penStyle = style;
}

CInk6Side::~CInk6Side() = default;

void CInk6Side::NormalizeGraphData(QVector<QPointF> &points)
{
    scaleIntoBox(points, kOutline, kOutline.count);
}

void CInk6Side::InitGraphData()
{
    writeTemplate(m_graphData, kOutline);
}

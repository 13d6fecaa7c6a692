#include "CInk5Side.h"

#include "stencils/outline_p.h"

using namespace InkInternal;

namespace {

// Counter-clockwise from the apex, before the shift.
constexpr QPointF kPoints[] = {
    {35.000004, 0}, {1.713023, 24.184404}, {14.42751, 63.31559}, {55.572475, 63.315598}, {68.28698, 24.184412}};
constexpr Outline kOutline = outline(kPoints, /*width between*/ {1, 4}, /*height between*/ {0, 3}, /*shift*/ {1.7, 0});

} // namespace

CInk5Side::CInk5Side()
{
    takeTemplate(*this, kOutline);
}

CInk5Side::CInk5Side(Qt::PenStyle style)
{
    m_penStyle = style;
}

CInk5Side::~CInk5Side() = default;

void CInk5Side::NormalizeGraphData(QVector<QPointF> &points)
{
    scaleIntoBox(points, kOutline, kOutline.count);
}

void CInk5Side::InitGraphData()
{
    writeTemplate(m_graphData, kOutline);
}

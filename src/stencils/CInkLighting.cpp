#include "CInkLighting.h"

#include "stencils/outline_p.h"

using namespace InkInternal;

namespace {

// Counter-clockwise from the upper left; 5 is the tip.
constexpr QPointF kPoints[] = {{0, 17},  {30, 34}, {21, 39}, {49, 56}, {41, 60}, {87, 87},
                               {60, 51}, {66, 48}, {45, 28}, {51, 24}, {34, 0}};
constexpr Outline kOutline = outline(kPoints, /*width between*/ {0, 5}, /*height between*/ {10, 5});

} // namespace

CInkLighting::CInkLighting()
{
    takeTemplate(*this, kOutline);
}

CInkLighting::CInkLighting(Qt::PenStyle style)
{
    m_penStyle = style;
}

CInkLighting::~CInkLighting() = default;

void CInkLighting::NormalizeGraphData(QVector<QPointF> &points)
{
    scaleIntoBox(points, kOutline, kOutline.count);
}

void CInkLighting::InitGraphData()
{
    writeTemplate(m_graphData, kOutline);
}

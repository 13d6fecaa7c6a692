#include "CInkBoom2.h"

#include "stencils/outline_p.h"

using namespace InkInternal;

namespace {

// Counter-clockwise from the upper left: even points are the spikes, odd ones the notches between them.
constexpr QPointF kPoints[] = {{25, 30},  {30, 44},  {7, 46},   {21, 65},  {0, 72},   {18, 87},  {6, 100},
                               {27, 103}, {27, 122}, {42, 102}, {49, 111}, {55, 98},  {65, 106}, {68, 90},
                               {85, 98},  {83, 82},  {106, 87}, {93, 69},  {103, 63}, {96, 53},  {121, 37},
                               {93, 36},  {101, 18}, {82, 32},  {82, 0},   {64, 24},  {55, 10},  {48, 34}};
constexpr Outline kOutline = outline(kPoints, /*width between*/ {4, 20}, /*height between*/ {24, 8});

} // namespace

CInkBoom2::CInkBoom2()
{
    takeTemplate(*this, kOutline);
}

CInkBoom2::CInkBoom2(Qt::PenStyle style)
{
    m_penStyle = style;
}

CInkBoom2::~CInkBoom2() = default;

void CInkBoom2::NormalizeGraphData(QVector<QPointF> &points)
{
    // [ink-burst-own-count] Made with a pen style it counts no points and rewrites none.
    scaleIntoBox(points, kOutline, m_nOutlinePointCount);
}

void CInkBoom2::InitGraphData()
{
    writeTemplate(m_graphData, kOutline);
}

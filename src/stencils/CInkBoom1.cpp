#include "CInkBoom1.h"

#include "stencils/outline_p.h"

using namespace InkInternal;

namespace {

// Counter-clockwise from the upper left: even points are the spikes, odd ones the notches between them.
constexpr QPointF kPoints[] = {{2, 13},   {27, 45}, {0, 51},   {21, 69}, {1, 85},    {33, 82}, {28, 103}, {45, 92},
                               {49, 126}, {61, 87}, {78, 116}, {82, 85}, {106, 106}, {99, 76}, {126, 78}, {104, 61},
                               {123, 48}, {97, 42}, {107, 27}, {83, 31}, {84, 0},    {63, 34}, {49, 13},  {41, 36}};
constexpr Outline kOutline = outline(kPoints, /*width between*/ {2, 14}, /*height between*/ {20, 8});

} // namespace

CInkBoom1::CInkBoom1()
{
    takeTemplate(*this, kOutline);
}

CInkBoom1::CInkBoom1(Qt::PenStyle style)
{
    m_penStyle = style;
}

CInkBoom1::~CInkBoom1() = default;

void CInkBoom1::NormalizeGraphData(QVector<QPointF> &points)
{
    // [ink-burst-own-count] Made with a pen style it counts no points and rewrites none.
    scaleIntoBox(points, kOutline, m_nOutlinePointCount);
}

void CInkBoom1::InitGraphData()
{
    writeTemplate(m_graphData, kOutline);
}

#include "CInk4Stars.h"

#include "stencils/outline_p.h"

using namespace InkInternal;

namespace {

// Counter-clockwise from the top: even points are the tips, odd ones the waists between them.
constexpr QPointF kPoints[] = {{112, 0}, {93, 91}, {0, 112}, {93, 132}, {112, 224}, {132, 132}, {224, 112}, {132, 91}};
constexpr Outline kOutline = outline(kPoints, /*width between*/ {2, 6}, /*height between*/ {0, 4});

} // namespace

CInk4Stars::CInk4Stars()
{
    takeTemplate(*this, kOutline);
}

CInk4Stars::CInk4Stars(Qt::PenStyle style)
{
    m_penStyle = style;
}

CInk4Stars::~CInk4Stars() = default;

void CInk4Stars::NormalizeGraphData(QVector<QPointF> &points)
{
    scaleIntoBox(points, kOutline, kOutline.count);
}

void CInk4Stars::InitGraphData()
{
    writeTemplate(m_graphData, kOutline);
}

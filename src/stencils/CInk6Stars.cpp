#include "CInk6Stars.h"

#include "stencils/outline_p.h"

using namespace InkInternal;

namespace {

// Counter-clockwise from the top: even points are the tips, odd ones the waists between them.
constexpr QPointF kPoints[] = {{52, 0},   {34, 26}, {0, 26},   {16, 52}, {0, 78},   {34, 78},
                               {52, 104}, {70, 78}, {104, 78}, {88, 52}, {104, 26}, {70, 26}};
constexpr Outline kOutline = outline(kPoints, /*width between*/ {2, 10}, /*height between*/ {0, 6});

} // namespace

CInk6Stars::CInk6Stars()
{
    takeTemplate(*this, kOutline);
}

CInk6Stars::CInk6Stars(Qt::PenStyle style)
{
    m_penStyle = style;
}

CInk6Stars::~CInk6Stars() = default;

void CInk6Stars::NormalizeGraphData(QVector<QPointF> &points)
{
    scaleIntoBox(points, kOutline, kOutline.count);
}

void CInk6Stars::InitGraphData()
{
    writeTemplate(m_graphData, kOutline);
}

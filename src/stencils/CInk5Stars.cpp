#include "CInk5Stars.h"

#include "stencils/outline_p.h"

using namespace InkInternal;

namespace {

// Counter-clockwise from the apex: even points are the tips, odd ones the waists between them.
constexpr QPointF kPoints[] = {{33.287, 0},      {25.429, 24.184}, {0, 24.184},      {20.573, 39.131},
                               {12.715, 63.316}, {33.287, 48.369}, {53.859, 63.316}, {46.001, 39.131},
                               {66.574, 24.184}, {41.145, 24.184}};
constexpr Outline kOutline = outline(kPoints, /*width between*/ {2, 8}, /*height between*/ {0, 6});

} // namespace

CInk5Stars::CInk5Stars()
{
    takeTemplate(*this, kOutline);
}

CInk5Stars::CInk5Stars(Qt::PenStyle style)
{
    m_penStyle = style;
}

CInk5Stars::~CInk5Stars() = default;

void CInk5Stars::NormalizeGraphData(QVector<QPointF> &points)
{
    scaleIntoBox(points, kOutline, kOutline.count);
}

void CInk5Stars::InitGraphData()
{
    writeTemplate(m_graphData, kOutline);
}

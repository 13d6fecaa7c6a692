#include "CInkErro.h"

#include "stencils/outline_p.h"

using namespace InkInternal;

namespace {

// Clockwise from the upper left arm; 1, 4, 7 and 10 are the inner corners.
constexpr QPointF kPoints[] = {{4, 0},   {35, 31}, {66, 0}, {70, 4}, {39, 35}, {70, 66},
                               {66, 70}, {35, 39}, {4, 70}, {0, 66}, {31, 35}, {0, 4}};
constexpr Outline kOutline = outline(kPoints, /*width between*/ {11, 3}, /*height between*/ {0, 8});

} // namespace

CInkErro::CInkErro()
{
    takeTemplate(*this, kOutline);
}

CInkErro::CInkErro(Qt::PenStyle style)
{
    m_penStyle = style;
}

CInkErro::~CInkErro() = default;

void CInkErro::NormalizeGraphData(QVector<QPointF> &points)
{
    scaleIntoBox(points, kOutline, kOutline.count);
}

void CInkErro::InitGraphData()
{
    writeTemplate(m_graphData, kOutline);
}

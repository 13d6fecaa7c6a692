#include "CInkLove.h"

#include "core/painting_p.h"
#include "stencils/outline_p.h"
#include "stencils/stencil_p.h"

using namespace InkInternal;

namespace {

// Counter-clockwise from the left lobe; 2 is the bottom, 5 the dip.
constexpr QPointF kPoints[] = {{15, 0}, {0, 15}, {30, 60}, {60, 15}, {45, 0}, {30, 15}};
constexpr Outline kOutline = outline(kPoints, /*width between*/ {1, 3}, /*height between*/ {0, 2});

} // namespace

CInkLove::CInkLove()
{
    takeTemplate(*this, kOutline);
}

CInkLove::CInkLove(Qt::PenStyle style)
{
    m_penStyle = style;
}

CInkLove::~CInkLove() = default;

void CInkLove::Draw(QPainter &painter, QRect & /*rect*/)
{
    if (!isShown(*this))
        return;
    // [ink-heart-invisible] No clip and no figure: a formed heart shows its handles alone.
    paintOverHandles(*this, painter, solidPen(*this, Qt::RoundCap), [] {});
}

void CInkLove::NormalizeGraphData(QVector<QPointF> &points)
{
    scaleIntoBox(points, kOutline, kOutline.count);
}

void CInkLove::InitGraphData()
{
    writeTemplate(m_graphData, kOutline);
}

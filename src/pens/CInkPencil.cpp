#include "CInkPencil.h"

#include "core/painting_p.h"
#include "pens/culled_p.h"

using namespace InkInternal;

namespace {

constexpr int kReservedPoints = 10;

} // namespace

CInkPencil::CInkPencil()
{
    m_graphData.reserve(kReservedPoints);
}

CInkPencil::~CInkPencil() = default;

void CInkPencil::Draw(QPainter &painter, QRect &rect)
{
    if (m_graphData.isEmpty())
        return;

    // [ink-clip-outlives-draw] Set before the state is saved: the host finds it afterwards.
    painter.setClipRect(m_bFinished ? GetUpdateRect() : rect | GetUpdateRect(), Qt::ReplaceClip);

    const PainterStateScope scope(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(solidPen(*this, Qt::RoundCap));
    // [ink-pen-point-invisible] A stroke of one point is an empty path.
    paintStroke(painter, m_graphData, StrokeSegment::Curve);
}

QRect CInkPencil::GetDisIconRect()
{
    return iconRectOnTip(m_graphData);
}

#include "CInkBrush.h"

#include "core/painting_p.h"
#include "pens/culled_p.h"

using namespace InkInternal;

CInkBrush::CInkBrush() = default;
CInkBrush::~CInkBrush() = default;

void CInkBrush::Draw(QPainter &painter, QRect &rect)
{
    if (m_graphData.isEmpty())
        return;

    // [ink-clip-outlives-draw] Set before the state is saved: the host finds it afterwards.
    // [ink-brush-clip-united] United with the host's rectangle when finished, too.
    painter.setClipRect(rect | GetUpdateRect(), Qt::ReplaceClip);

    const PainterStateScope scope(painter);
    setHighQualityAntialiasing(painter);
    painter.setPen(solidPen(*this, Qt::RoundCap));
    paintStroke(painter, m_graphData, StrokeSegment::Curve);
}

QRect CInkBrush::GetDisIconRect()
{
    return iconRectOnTip(m_graphData);
}

#include "CInkHighLightPen.h"

#include "core/painting_p.h"
#include "pens/culled_p.h"

using namespace InkInternal;

namespace {

constexpr int kReservedPoints = 10;

} // namespace

CInkHighLightPen::CInkHighLightPen()
{
    m_graphData.reserve(kReservedPoints);
}

CInkHighLightPen::CInkHighLightPen(int alpha)
    : m_nAlpha(alpha)
{
    m_graphData.reserve(kReservedPoints);
}

CInkHighLightPen::~CInkHighLightPen() = default;

void CInkHighLightPen::Draw(QPainter &painter, QRect &rect)
{
    if (m_graphData.isEmpty())
        return;

    // [ink-clip-outlives-draw] Set before the state is saved: the host finds it afterwards.
    // [ink-brush-clip-united] United with the host's rectangle when finished, too.
    painter.setClipRect(rect | GetUpdateRect(), Qt::ReplaceClip);

    const PainterStateScope scope(painter);
    setHighQualityAntialiasing(painter);
    QPen pen = solidPen(*this, Qt::RoundCap);
    QColor color = m_color;
    color.setAlpha(m_nAlpha);
    pen.setColor(color);
    painter.setPen(pen);
    paintStroke(painter, m_graphData, StrokeSegment::Curve);
}

QRect CInkHighLightPen::GetDisIconRect()
{
    return iconRectOnTip(m_graphData);
}

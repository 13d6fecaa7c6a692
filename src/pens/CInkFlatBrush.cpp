#include "CInkFlatBrush.h"

#include "core/painting_p.h"
#include "pens/culled_p.h"

using namespace InkInternal;

namespace {

constexpr int kReservedPoints = 10;
constexpr int kDefaultWidth = 10;

// Turns a stroke by the nib's angle about `pivot`, then squashes it so that the nib is about two pixels thick.
QMatrix nib(const QPointF &pivot, int width, float angle)
{
    QMatrix matrix;
    matrix.translate(pivot.x(), pivot.y());
    matrix.scale(1.0, double(2.0f / float(width)));
    matrix.rotate(double(angle));
    matrix.translate(-pivot.x(), -pivot.y());
    return matrix;
}

} // namespace

CInkFlatBrush::CInkFlatBrush()
{
    m_graphData.reserve(kReservedPoints);
    m_nWidth = kDefaultWidth;
}

CInkFlatBrush::CInkFlatBrush(float angle)
    : m_fNibAngle(angle)
{
    // [ink-flat-brush-ten-points] Ten points at the origin, not room for ten: the stroke begins there. The width
    // stays 1.
    m_graphData.resize(kReservedPoints);
}

CInkFlatBrush::~CInkFlatBrush() = default;

void CInkFlatBrush::Draw(QPainter &painter, QRect &rect)
{
    if (m_graphData.isEmpty() || m_nWidth == 0)
        return;

    const PainterStateScope scope(painter);
    // [ink-flat-brush-clip-restored] Set after the state is saved, so it does not stay.
    painter.setClipRect(m_bFinished ? GetUpdateRect() : rect | GetUpdateRect(), Qt::ReplaceClip);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(solidPen(*this, Qt::RoundCap));
    // [ink-world-replaced] Not multiplied with a transform of the host's; the clip has been set in that.
    const QTransform world(nib(strokeTopLeft(m_graphData), m_nWidth, m_fNibAngle));
    paintStroke(painter, m_graphData, StrokeSegment::Curve, &world);
}

QRect CInkFlatBrush::GetDisIconRect()
{
    return iconRectOnTip(m_graphData);
}

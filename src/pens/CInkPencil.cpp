#include "CInkPencil.h"

#include "core/geometry_p.h"
#include "core/painting_p.h"

#include <QtGui/QPainterPath>

using namespace InkInternal;

namespace {

constexpr int kIconSide = 30; // canvas pixels

// A quadTo with the segment's start as control point: Qt flattens it differently from a lineTo, so the pixels do too.
QPainterPath strokePath(const QVector<QPointF> &points)
{
    QPainterPath path(points.first());
    for (int i = 1; i < points.size(); ++i)
        path.quadTo(points.at(i - 1), points.at(i));
    return path;
}

} // namespace

CInkPencil::CInkPencil()
{
    m_graphData.reserve(10);
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
    painter.drawPath(strokePath(m_graphData));
}

QRect CInkPencil::GetDisIconRect()
{
    if (m_graphData.isEmpty())
        return {};
    const QPoint tip = truncated(m_graphData.constLast());
    return sized(tip.x(), qint64(tip.y()) - kIconSide, kIconSide, kIconSide);
}

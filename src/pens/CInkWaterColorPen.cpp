#include "CInkWaterColorPen.h"

#include "core/cache_p.h"
#include "core/painting_p.h"
#include "pens/stroke_p.h"
#include "pens/textured_p.h"

using namespace InkInternal;

namespace {

constexpr int kReservedPoints = 10;

} // namespace

CInkWaterColorPen::CInkWaterColorPen(QSize canvas)
    : m_rcCanvas(canvasRect(canvas))
{
    m_graphData.reserve(kReservedPoints);
}

CInkWaterColorPen::~CInkWaterColorPen() = default;

void CInkWaterColorPen::Draw(QPainter &painter, QRect &rect)
{
    if (m_graphData.size() < 2 || !ensureCache(*this, m_rcCanvas))
        return;

    const PainterStateScope scope(painter);
    // [ink-textured-clip-restored] Set after the state is saved, unlike the colour brush's.
    painter.setClipRect(m_bFinished ? GetUpdateRect() : rect | GetUpdateRect(), Qt::ReplaceClip);
    DrawWaterColorGraph(painter);
}

void CInkWaterColorPen::SetCanvasSize(QSize size)
{
    m_rcCanvas = canvasRect(size);
}

QRect CInkWaterColorPen::GetDisIconRect()
{
    return iconRectOnTip(m_graphData);
}

QRect CInkWaterColorPen::FormGraphData(int code, QPoint pt, QRect &update)
{
    return collectStroke(*this, code, pt, update, [this](const QPointF &position) {
        MakeWaterColoePoint(position, 2 * collectDistance(*this));
    });
}

void CInkWaterColorPen::MakeWaterColoePoint(QPointF position, float step)
{
    resample(*this, position, step);
}

// [ink-watercolor-invisible] A stroke has its image and paints nothing.
void CInkWaterColorPen::DrawWaterColorGraph(QPainter & /*painter*/) {}

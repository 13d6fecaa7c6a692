#include "CInkCrayon.h"

#include "core/cache_p.h"
#include "core/painting_p.h"
#include "pens/stroke_p.h"
#include "pens/textured_p.h"

#include <QtGui/QPainterPath>
#include <QtGui/QRadialGradient>

#include <algorithm>

using namespace InkInternal;

namespace {

constexpr int kReservedPoints = 10;
constexpr int kDefaultWidth = 20;
constexpr int kAlpha = 150;

} // namespace

CInkCrayon::CInkCrayon(QSize canvas)
    : m_rcCanvas(canvasRect(canvas))
{
    m_graphData.reserve(kReservedPoints);
    m_nWidth = kDefaultWidth;
    m_color = QColor(100, 200, 150);
}

CInkCrayon::~CInkCrayon() = default;

void CInkCrayon::Draw(QPainter &painter, QRect &rect)
{
    if (m_graphData.size() < 2 || !ensureCache(*this, m_rcCanvas))
        return;

    const PainterStateScope scope(painter);
    // [ink-textured-clip-restored] Set after the state is saved, unlike the colour brush's.
    painter.setClipRect(m_bFinished ? GetUpdateRect() : rect | GetUpdateRect(), Qt::ReplaceClip);
    DrawCrayonGraph(painter);
}

void CInkCrayon::SetCanvasSize(QSize size)
{
    m_rcCanvas = canvasRect(size);
}

QRect CInkCrayon::GetDisIconRect()
{
    return iconRectOnTip(m_graphData);
}

QRect CInkCrayon::FormGraphData(int code, QPoint pt, QRect &update)
{
    return collectStroke(*this, code, pt, update,
                         [this](const QPointF &position) { MakecrayonPoint(position, collectDistance(*this)); });
}

void CInkCrayon::MakecrayonPoint(QPointF position, float step)
{
    resample(*this, position, step);
}

void CInkCrayon::DrawCrayonGraph(QPainter &painter)
{
    if (!ensureCache(*this, m_rcCanvas))
        return;
    // [ink-crayon-alpha] The object's colour keeps this alpha.
    m_color.setAlpha(kAlpha);
    const QColor clear(m_color.red(), m_color.green(), m_color.blue(), 0);

    const QVector<QPointF> &points = m_graphData;
    const double width = m_nWidth;
    const QRectF reach = reachOf(*m_pImage);
    const auto discAt = [width](const QPointF &corner) { return QRectF(corner.x(), corner.y(), width, width); };
    QPainter cache(m_pImage);
    for (int i = std::max(m_nDrawnCount, 0); i < points.size(); m_nDrawnCount = ++i) {
        const QPointF point = points.at(i);
        // [ink-crayon-newest] The newest point is rendered without the disc towards a point that comes later.
        const bool isNewest = i + 1 >= points.size();
        const QPointF middle = isNewest ? point : (point + points.at(i + 1)) * 0.5;
        if (!reach.intersects(discAt(point)) && !reach.intersects(discAt(middle)))
            continue;
        QPainterPath discs;
        discs.setFillRule(Qt::WindingFill);
        // [ink-crayon-corner] The point is the disc's top left corner, not its centre.
        discs.addEllipse(discAt(point));
        if (!isNewest)
            discs.addEllipse(discAt(middle));
        QRadialGradient gradient(point, width);
        gradient.setColorAt(0.0, clear);
        gradient.setColorAt(0.5, m_color);
        gradient.setColorAt(1.0, clear);
        cache.fillPath(discs, gradient);
    }
    cache.end();
    paintCache(*this, m_rcCanvas, painter);
}

#include "CInkColorBrush.h"

#include "core/cache_p.h"
#include "core/painting_p.h"
#include "pens/stroke_p.h"
#include "pens/textured_p.h"

#include <algorithm>
#include <cmath>

using namespace InkInternal;

namespace {

constexpr int kReservedPoints = 10;
constexpr int kDefaultWidth = 20;
constexpr int kAlpha = 60;

// The four lines of a segment, one over the other.
constexpr struct
{
    int alpha;
    float width; // of the pen width
} kPasses[] = {{60, 1.0f}, {40, 0.8f}, {60, 0.6f}, {60, 0.4f}};

// The segment's box lies beside `reach`.
bool passesBy(const QPointF &a, const QPointF &b, const QRectF &reach)
{
    return std::max(a.x(), b.x()) < reach.left() || std::min(a.x(), b.x()) > reach.right() ||
           std::max(a.y(), b.y()) < reach.top() || std::min(a.y(), b.y()) > reach.bottom();
}

} // namespace

CInkColorBrush::CInkColorBrush(QSize canvas)
    : m_rcCanvas(canvasRect(canvas))
{
    m_graphData.reserve(kReservedPoints);
    m_nWidth = kDefaultWidth;
    m_color = QColor(0, 200, 100);
}

CInkColorBrush::~CInkColorBrush() = default;

void CInkColorBrush::Draw(QPainter &painter, QRect &rect)
{
    if (m_graphData.size() < 2 || !ensureCache(*this, m_rcCanvas))
        return;

    // [ink-clip-outlives-draw] Set before the state is saved: the host finds it afterwards.
    // [ink-brush-clip-united] United with the host's rectangle when finished, too.
    painter.setClipRect(rect | GetUpdateRect(), Qt::ReplaceClip);

    const PainterStateScope scope(painter);
    DrawColorBrushGraph(painter);
}

void CInkColorBrush::SetCanvasSize(QSize size)
{
    m_rcCanvas = canvasRect(size);
}

QRect CInkColorBrush::GetDisIconRect()
{
    return iconRectOnTip(m_graphData);
}

QRect CInkColorBrush::FormGraphData(int code, QPoint pt, QRect &update)
{
    return collectStroke(*this, code, pt, update,
                         [this](const QPointF &position) { MakeColorBrushPoint(position, collectDistance(*this)); });
}

void CInkColorBrush::MakeColorBrushPoint(QPointF position, float step)
{
    resample(*this, position, step);
}

void CInkColorBrush::DrawColorBrushGraph(QPainter &painter)
{
    if (!ensureCache(*this, m_rcCanvas))
        return;
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    // [ink-color-brush-alpha] The object's colour keeps this alpha.
    m_color.setAlpha(kAlpha);

    const QVector<QPointF> &points = m_graphData;
    QPainter cache(m_pImage);
    setHighQualityAntialiasing(cache);
    cache.setRenderHint(QPainter::SmoothPixmapTransform);
    QColor color = m_color;
    const double margin = std::abs(double(m_nWidth)) + 1;
    const QRectF reach = reachOf(*m_pImage).adjusted(-margin, -margin, margin, margin);
    for (int i = std::max(m_nDrawnCount, 0); i < points.size() - 1; m_nDrawnCount = ++i) {
        if (passesBy(points.at(i), points.at(i + 1), reach))
            continue;
        for (const auto &pass : kPasses) {
            color.setAlpha(pass.alpha);
            const int width = truncated(double(pass.width * float(m_nWidth)));
            cache.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            cache.drawLine(points.at(i), points.at(i + 1));
        }
    }
    cache.end();
    paintCache(*this, m_rcCanvas, painter);
}

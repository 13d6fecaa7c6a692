#include "CInkColorBrush.h"

#include "core/cache_p.h"
#include "core/painting_p.h"
#include "pens/roundlines_p.h"
#include "pens/stroke_p.h"
#include "pens/textured_p.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <vector>

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

// Of eight bits in each channel, whatever the model of the object's colour.
std::vector<QPen> pensOf(const QColor &color, int width)
{
    std::vector<QPen> pens(std::size(kPasses));
    std::transform(std::begin(kPasses), std::end(kPasses), pens.begin(), [&](const auto &pass) {
        const QColor shade(color.red(), color.green(), color.blue(), pass.alpha);
        return QPen(shade, truncated(double(pass.width * float(width))), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    });
    return pens;
}

// Whether a disc covers every pixel of `area`, with room for its rim to be no perfect circle.
bool covers(const QPointF &center, double diameter, const QRectF &area)
{
    constexpr double kRound = 0.9;
    const double x = std::max(std::abs(center.x() - area.left()), std::abs(center.x() - area.right()));
    const double y = std::max(std::abs(center.y() - area.top()), std::abs(center.y() - area.bottom()));
    return std::hypot(x, y) <= kRound * diameter / 2;
}

// Whether the narrowest of the four lines covers every pixel of `area`. One of no length paints nothing.
bool coversAll(const QPointF &a, const QPointF &b, int width, const QRectF &area)
{
    constexpr double kShortest = 0.1;
    const double narrowest = truncated(double(kPasses[3].width * float(width)));
    return covers(a, narrowest, area) && covers(b, narrowest, area) &&
           std::hypot(a.x() - b.x(), a.y() - b.y()) >= kShortest;
}

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
    const std::vector<QPen> pens = pensOf(m_color, m_nWidth);
    RoundLines lines(*m_pImage, pens);
    const double margin = std::abs(double(m_nWidth)) + 1;
    const QRectF pixels = reachOf(*m_pImage);
    const QRectF reach = pixels.adjusted(-margin, -margin, margin, margin);
    // Segments that cover all pixels do the same to each of them, and after a dozen nothing any more.
    bool isSettled = false;
    for (int i = std::max(m_nDrawnCount, 0); i < points.size() - 1; m_nDrawnCount = ++i) {
        if (passesBy(points.at(i), points.at(i + 1), reach))
            continue;
        if (const int end = lines.paint(points, i); end > i) {
            isSettled = false;
            i = end - 1;
            continue;
        }
        const bool isWhole = coversAll(points.at(i), points.at(i + 1), m_nWidth, pixels);
        if (isWhole && isSettled)
            continue;
        const QImage before = isWhole ? m_pImage->copy() : QImage();
        for (const QPen &pen : pens) {
            cache.setPen(pen);
            cache.drawLine(points.at(i), points.at(i + 1));
        }
        isSettled = isWhole && *m_pImage == before;
    }
    cache.end();
    paintCache(*this, m_rcCanvas, painter);
}

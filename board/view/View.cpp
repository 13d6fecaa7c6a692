#include "board/view/View.h"

#include <QtCore/QtMath>

#include <algorithm>
#include <iterator>

namespace Board {

namespace {

constexpr double kZooms[] = {0.25, 1.0 / 3, 0.5, 2.0 / 3, 0.75, 1, 1.25, 1.5, 2, 3, 4, 6, 8};
constexpr double kSameZoom = 1e-3;   // relative: what the wheel reaches by several steps is not exact
constexpr double kSlack = 1.0 / 256; // of a pixel: positions are multiples of 1 / ratio that were rounded

// Of a page's side that is `extent` pixels long in a widget of `room` pixels.
double clamped(double corner, double extent, double room)
{
    return extent <= room ? (room - extent) / 2 : std::clamp(corner, room - extent, 0.0);
}

QSize devicePixels(const QSize &size, double ratio)
{
    return {qCeil(size.width() * ratio - kSlack), qCeil(size.height() * ratio - kSlack)};
}

QRect outward(const QRectF &area)
{
    const QPoint topLeft(qFloor(area.left() + kSlack), qFloor(area.top() + kSlack));
    const QPoint end(qCeil(area.right() - kSlack), qCeil(area.bottom() - kSlack));
    return {topLeft, end - QPoint(1, 1)};
}

QRectF scaled(const QRectF &area, double scale)
{
    return {area.topLeft() * scale, area.size() * scale};
}

} // namespace

bool View::setPage(const QSize &size, double density)
{
    if (m_page == size && m_density == density)
        return false;
    m_page = size;
    m_density = density;
    moveTo(m_corner);
    return true;
}

bool View::setWidget(const QSize &size, double ratio)
{
    if (m_widget == size && m_ratio == ratio)
        return false;
    const QPointF corner = m_corner * ratio / m_ratio; // on another screen the same part of the page is shown
    m_widget = size;
    m_ratio = ratio;
    moveTo(corner);
    return true;
}

void View::moveTo(const QPointF &corner)
{
    const QSize room = devicePixels(m_widget, m_ratio);
    m_corner = {clamped(corner.x(), m_page.width() * scale(), room.width()),
                clamped(corner.y(), m_page.height() * scale(), room.height())};
}

QPoint View::corner() const
{
    return {qFloor(m_corner.x() + 0.5), qFloor(m_corner.y() + 0.5)};
}

QTransform View::transform() const
{
    const QPointF corner = fromPage(QPointF());
    return QTransform(scale() / m_ratio, 0, 0, scale() / m_ratio, corner.x(), corner.y());
}

QPointF View::toPage(const QPointF &pos) const
{
    return (pos * m_ratio - corner()) / scale() + QPointF(kSlack, kSlack);
}

QPointF View::fromPage(const QPointF &pt) const
{
    return (pt * scale() + corner()) / m_ratio;
}

QRect View::fromPage(const QRect &area) const
{
    return {fromPage(QPointF(area.topLeft())).toPoint(), (QSizeF(area.size()) * scale() / m_ratio).toSize()};
}

QRect View::covering(const QRect &area) const
{
    if (area.isEmpty())
        return {};
    QRectF device = scaled(area, scale()).translated(corner());
    if (scale() != 1) { // neighbours are mixed
        const double reach = std::max(scale(), 3.0);
        device.adjust(-reach, -reach, reach, reach);
    }
    QRect covered = outward(scaled(device, 1 / m_ratio));
    if (m_ratio != qFloor(m_ratio))
        covered.adjust(-1, -1, 1, 1); // Qt rounds both the corner and the size of what it repaints
    return covered & QRect(QPoint(), m_widget);
}

QRect View::seen() const
{
    const QRectF device(QPointF(-corner()), QSizeF(devicePixels(m_widget, m_ratio)));
    return outward(scaled(device, 1 / scale())) & QRect(QPoint(), m_page);
}

int View::pageLength(double distance) const
{
    return std::max(qRound(distance * m_ratio / scale()), 1);
}

void View::zoomTo(double zoom, const QPointF &anchor)
{
    place((anchor * m_ratio - m_corner) / scale(), anchor, zoom);
}

void View::place(const QPointF &pt, const QPointF &pos, double zoom)
{
    m_zoom = std::clamp(zoom, kMinZoom, kMaxZoom);
    if (qAbs(m_zoom - 1) < kSameZoom)
        m_zoom = 1;
    moveTo(pos * m_ratio - pt * scale());
}

void View::panBy(const QPointF &by)
{
    moveTo(m_corner + by * m_ratio);
}

double zoomAbove(double zoom)
{
    const auto *above = std::upper_bound(std::begin(kZooms), std::end(kZooms), zoom * (1 + kSameZoom));
    return above == std::end(kZooms) ? View::kMaxZoom : *above;
}

double zoomBelow(double zoom)
{
    const auto *below = std::lower_bound(std::begin(kZooms), std::end(kZooms), zoom * (1 - kSameZoom));
    return below == std::begin(kZooms) ? View::kMinZoom : *(below - 1);
}

} // namespace Board

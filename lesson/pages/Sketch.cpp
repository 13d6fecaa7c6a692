#include "lesson/pages/Sketch.h"

#include "lesson/layers/StateMark.h"

#include "CInkPenGraph.h"

#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace InkLesson {

namespace {

constexpr std::size_t kAligned = 16;      // pixels, as Qt may lay them at once
constexpr std::size_t kSpareBytes = 4096; // Qt reads a little beyond the pixels where it smooths an image

int bytesPerLine(const QSize &size)
{
    return size.width() * int(sizeof(QRgb));
}

std::size_t bytesOf(const QSize &size)
{
    return std::size_t(size.height()) * std::size_t(bytesPerLine(size));
}

// Transparent. The system gives it memory where it is painted on, and only there.
std::unique_ptr<QImage> blankCanvas(const QSize &size)
{
    void *start = std::calloc(bytesOf(size) + 2 * kSpareBytes, 1);
    if (!start)
        return nullptr;
    return std::make_unique<QImage>(static_cast<uchar *>(start) + kSpareBytes, size.width(), size.height(),
                                    bytesPerLine(size), QImage::Format_ARGB32, std::free, start);
}

// The pixels that a pen may have rendered, none of them farther from one of its points than it is wide.
QRect renderedBy(const CInkPenGraph &pen, const QRect &canvas)
{
    const double margin = std::abs(double(pen.m_nWidth)) + 2;
    QRect rendered;
    for (const QPointF &pt : pen.m_graphData) {
        const auto near = [&](double place, int end) { return int(std::clamp(place, 0.0, double(end))); };
        if (std::isnan(pt.x()) || std::isnan(pt.y()))
            return canvas;
        rendered |= QRect(QPoint(near(pt.x() - margin, canvas.width()), near(pt.y() - margin, canvas.height())),
                          QPoint(near(pt.x() + margin, canvas.width()), near(pt.y() + margin, canvas.height())));
    }
    return rendered & canvas;
}

void wipe(QImage &picture, const QRect &area)
{
    for (int y = area.top(); y <= area.bottom(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(picture.scanLine(y));
        std::fill(row + area.left(), row + area.right() + 1, 0);
    }
}

} // namespace

std::shared_ptr<const Sprite> Sketch::spriteOf(CInkGraph &object, const QRect &asked, const QRect &reach,
                                               const QSize &page)
{
    if (reach.isEmpty())
        return std::make_shared<const Sprite>();
    QImage pixels = pixelsFrom(reach.topLeft(), page);
    if (pixels.isNull())
        return nullptr;
    pixels.paintEngine()->setSystemClip(reach);
    {
        QPainter painter(&pixels);
        const StateMark mark(painter);
        QRect area = asked;
        object.Draw(painter, area);
    }
    std::optional<Sprite> sprite = Sprite::of(pixels, reach, object.m_color);
    wipe(pixels, sprite ? sprite->rect() : reach);
    return sprite ? std::make_shared<const Sprite>(std::move(*sprite)) : nullptr;
}

QImage Sketch::pixelsFrom(const QPoint &corner, const QSize &page)
{
    if (!m_memory || m_size != page) {
        m_memory.reset(static_cast<QRgb *>(std::calloc(2 * bytesOf(page) + kAligned * sizeof(QRgb), 1)));
        m_size = page;
    }
    if (!m_memory)
        return {};
    const std::size_t width = std::size_t(page.width()), pixels = width * std::size_t(page.height());
    const std::size_t before = std::size_t(corner.y()) * width + std::size_t(corner.x());
    const std::size_t first = (pixels + kAligned - before) / kAligned * kAligned;
    return QImage(reinterpret_cast<uchar *>(m_memory.get() + first), page.width(), page.height(), bytesPerLine(page),
                  QImage::Format_ARGB32_Premultiplied);
}

std::shared_ptr<const Sprite> Sketch::spriteOfPen(CInkPenGraph &pen, const QRect &asked, const QRect &reach,
                                                  const QSize &page)
{
    if (!m_canvas || m_canvas->size() != page)
        m_canvas = blankCanvas(page);
    pen.m_pImage = m_canvas.release();
    auto sprite = spriteOf(pen, asked, reach, page);
    if (sprite && pen.m_pImage) {
        m_canvas.reset(std::exchange(pen.m_pImage, nullptr));
        wipe(*m_canvas, renderedBy(pen, m_canvas->rect()));
    }
    return sprite;
}

} // namespace InkLesson

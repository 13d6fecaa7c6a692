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

// Transparent. The system gives it memory where it is painted on, and only there. Qt reads a little beyond the pixels
// where it smooths an image.
std::unique_ptr<QImage> blankCanvas(const QSize &size)
{
    constexpr std::size_t kSpareBytes = 4096;
    const std::size_t bytesPerLine = std::size_t(size.width()) * sizeof(QRgb);
    void *start = std::calloc(std::size_t(size.height()) * bytesPerLine + 2 * kSpareBytes, 1);
    if (!start)
        return nullptr;
    return std::make_unique<QImage>(static_cast<uchar *>(start) + kSpareBytes, size.width(), size.height(),
                                    int(bytesPerLine), QImage::Format_ARGB32, std::free, start);
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
    if (m_pixels.size() != page) {
        m_pixels = QImage(page, QImage::Format_ARGB32_Premultiplied);
        m_pixels.fill(Qt::transparent);
    }
    if (m_pixels.isNull())
        return nullptr;
    m_pixels.paintEngine()->setSystemClip(reach);
    {
        QPainter painter(&m_pixels);
        const StateMark mark(painter);
        QRect area = asked;
        object.Draw(painter, area);
    }
    m_pixels.paintEngine()->setSystemClip(QRegion());
    std::optional<Sprite> sprite = Sprite::of(m_pixels, reach, object.m_color);
    wipe(m_pixels, sprite ? sprite->rect() : reach);
    return sprite ? std::make_shared<const Sprite>(std::move(*sprite)) : nullptr;
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

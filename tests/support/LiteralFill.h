#pragma once

// The fill as it is described, pixel by pixel: the measure of the library's own, for its pixels and for its speed.

#include "CInkFloodFill.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>

#include <cstring>
#include <utility>
#include <vector>

// What fill.FormFloodFillBmp(layer) does, for a layer that paints into `image`.
inline void literalFill(CInkFloodFill &fill, QImage &image)
{
    if (fill.m_graphData.isEmpty())
        return;
    const QPoint seed(int(fill.m_graphData.constFirst().x()), int(fill.m_graphData.constFirst().y()));
    const QColor target = fill.GetPixel(seed.x(), seed.y(), &image);
    if (fill.m_color == target || !fill.m_rcCanvas.contains(seed) || !image.valid(seed))
        return;

    const QRect region = fill.m_rcCanvas & image.rect();
    // Each pixel once: the fill colour may read back as the target.
    std::vector<bool> taken(std::size_t(image.width()) * std::size_t(image.height()));
    const auto index = [&](int x, int y) { return std::size_t(y) * std::size_t(image.width()) + std::size_t(x); };
    const auto isOpen = [&](int x, int y) {
        return !taken[index(x, y)] && (image.pixel(x, y) | 0xff000000U) == target.rgb();
    };
    std::vector<QPoint> queue{seed};
    for (std::size_t head = 0; head < queue.size(); ++head) {
        const auto [x, y] = std::pair(queue[head].x(), queue[head].y());
        if (!isOpen(x, y))
            continue;
        int left = x;
        while (left > region.left() && isOpen(left - 1, y))
            --left;
        int right = x;
        while (right < region.right() && isOpen(right + 1, y))
            ++right;
        for (int px = left; px <= right; ++px) {
            fill.SetPixel(px, y, fill.m_color, &image);
            taken[index(px, y)] = true;
            if (y > region.top() && isOpen(px, y - 1))
                queue.emplace_back(px, y - 1);
            if (y < region.bottom() && isOpen(px, y + 1))
                queue.emplace_back(px, y + 1);
        }
    }
    fill.m_bFilled = 1;
}

// What fill.Draw(p1, p2, ...) does once the fill is finished: all of the bitmap is painted on every layer.
inline void literalDraw(CInkFloodFill &fill, QPainter &p1, QPainter &p2, QPainter &p4)
{
    if (!fill.m_pImage)
        fill.m_pImage = new QImage;
    *fill.m_pImage = QImage(fill.m_rcCanvas.size(), QImage::Format_ARGB32);
    fill.m_pImage->fill(0);
    literalFill(fill, *static_cast<QImage *>(p1.device()));
    for (QPainter *layer : {&p2, &p1, &p4})
        layer->drawImage(QRectF(fill.m_rcCanvas), *fill.m_pImage, QRectF(QPointF(), QSizeF(fill.m_rcCanvas.size())));
}

// Equal to the last byte, also in bytes that no pixel's colour shows.
inline bool sameBits(const QImage &a, const QImage &b)
{
    if (a.size() != b.size() || a.format() != b.format())
        return false;
    const auto bytes = std::size_t((a.width() * a.depth() + 7) / 8);
    for (int y = 0; y < a.height(); ++y) {
        if (std::memcmp(a.constScanLine(y), b.constScanLine(y), bytes) != 0)
            return false;
    }
    return true;
}

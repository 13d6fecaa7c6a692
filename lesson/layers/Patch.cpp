#include "lesson/layers/Patch.h"

#include <algorithm>
#include <cstring>

namespace InkLesson {

namespace {

constexpr int kSide = 64; // of a tile, pixels
constexpr int kBytesPerPixel = 4;

uchar *pixel(QImage &image, const QPoint &at)
{
    return image.scanLine(at.y()) + std::ptrdiff_t(at.x()) * kBytesPerPixel;
}

const uchar *pixel(const QImage &image, const QPoint &at)
{
    return image.constScanLine(at.y()) + std::ptrdiff_t(at.x()) * kBytesPerPixel;
}

// Whether `area` of the first is what the second has at `area` moved by `offset`.
bool isSame(const QImage &first, const QImage &second, const QRect &area, const QPoint &offset)
{
    const auto bytes = std::size_t(area.width()) * kBytesPerPixel;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const QPoint row(area.left(), y);
        if (std::memcmp(pixel(first, row), pixel(second, row + offset), bytes) != 0)
            return false;
    }
    return true;
}

} // namespace

Patch::Patch(const QImage &before, const QImage &now, const QPoint &origin)
{
    for (int y = 0; y < before.height(); y += kSide) {
        for (int x = 0; x < before.width(); x += kSide) {
            const QRect area = QRect(x, y, kSide, kSide) & before.rect();
            if (!isSame(before, now, area, origin))
                m_tiles.push_back({area.topLeft() + origin, before.copy(area)});
        }
    }
}

qint64 Patch::bytes() const
{
    qint64 sum = 0;
    for (const Tile &tile : m_tiles)
        sum += tile.pixels.sizeInBytes();
    return sum;
}

void Patch::exchange(QImage &image)
{
    for (Tile &tile : m_tiles) {
        const auto bytes = std::ptrdiff_t(tile.pixels.width()) * kBytesPerPixel;
        for (int y = 0; y < tile.pixels.height(); ++y) {
            uchar *kept = tile.pixels.scanLine(y);
            std::swap_ranges(kept, kept + bytes, pixel(image, tile.origin + QPoint(0, y)));
        }
    }
}

} // namespace InkLesson

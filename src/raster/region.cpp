#include "raster/region_p.h"

#include <QtGui/QImage>

#include <algorithm>
#include <memory>
#include <vector>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace {

constexpr int kBlockPixels = 64;
constexpr quint64 kWhole = ~quint64(0);
constexpr QRgb kOpaque = 0xff000000U;

// Formats whose pixels are read and written as they lie in memory, save for the alpha.
bool isPlain(const QImage &image)
{
    return image.format() == QImage::Format_RGB32 || image.format() == QImage::Format_ARGB32 ||
           image.format() == QImage::Format_ARGB32_Premultiplied;
}

constexpr quint64 lowest(int count)
{
    return count < kBlockPixels ? (quint64(1) << count) - 1 : kWhole;
}

// One bit for each of 64 pixels whose colour is the opaque `target`.
quint64 matches(const QRgb *pixels, QRgb target)
{
    quint64 bits = 0;
#ifdef __SSE2__
    const __m128i alpha = _mm_set1_epi32(int(kOpaque));
    const __m128i color = _mm_set1_epi32(int(target));
    for (int first = 0; first < kBlockPixels; first += 16) {
        const auto four = [&](int at) {
            const __m128i raw = _mm_loadu_si128(reinterpret_cast<const __m128i *>(pixels + first + at));
            return _mm_cmpeq_epi32(_mm_or_si128(raw, alpha), color);
        };
        const __m128i bytes = _mm_packs_epi16(_mm_packs_epi32(four(0), four(4)), _mm_packs_epi32(four(8), four(12)));
        bits |= quint64(quint16(_mm_movemask_epi8(bytes))) << first;
    }
#else
    for (int i = 0; i < kBlockPixels; ++i)
        bits |= quint64((pixels[i] | kOpaque) == target) << i;
#endif
    return bits;
}

// Writes `color` over those of 64 pixels whose bit is set.
void write(QRgb *pixels, quint64 bits, QRgb color)
{
#ifdef __SSE2__
    const __m128i ink = _mm_set1_epi32(int(color));
    const __m128i lanes = _mm_setr_epi32(1, 2, 4, 8);
    for (int first = 0; first < kBlockPixels; first += 4) {
        const int four = int(bits >> first & 15);
        auto *const at = reinterpret_cast<__m128i *>(pixels + first);
        if (four == 15) {
            _mm_storeu_si128(at, ink);
        } else if (four) {
            const __m128i mask = _mm_cmpeq_epi32(_mm_and_si128(_mm_set1_epi32(four), lanes), lanes);
            const __m128i kept = _mm_andnot_si128(mask, _mm_loadu_si128(at));
            _mm_storeu_si128(at, _mm_or_si128(_mm_and_si128(mask, ink), kept));
        }
    }
#else
    for (int i = 0; i < kBlockPixels; ++i) {
        if (bits >> i & 1)
            pixels[i] = color;
    }
#endif
}

// The runs of `open` that hold a bit of `seeds`.
quint64 spread(quint64 seeds, quint64 open)
{
    if (!((seeds << 1 | seeds >> 1) & open & ~seeds))
        return seeds;
    quint64 up = seeds, down = seeds, openUp = open, openDown = open;
    for (int step = 1; step < kBlockPixels; step *= 2) {
        up |= openUp & up << step;
        openUp &= openUp << step;
        down |= openDown & down >> step;
        openDown &= openDown >> step;
    }
    return up | down;
}

// 64 pixels of a row, the leftmost in the lowest bit.
struct Block
{
    quint64 open;    // has the target colour and is not taken
    quint64 taken;   // belongs to the region
    quint64 pending; // open when a neighbour was taken; the block is on the work list while there are any
};

// A region as it grows. Blocks are read from the image when the flood first touches them; a row's known ones lie side
// by side.
class Region
{
public:
    Region(const QImage &image, const QRect &within, QRgb target)
        : m_image(image)
        , m_within(within)
        , m_target(target)
        , m_plain(isPlain(image))
        , m_rows(within.height())
        , m_perRow((within.width() + kBlockPixels - 1) / kBlockPixels)
        , m_blocks(new Block[std::size_t(m_rows) * std::size_t(m_perRow)]) // pages not touched take no memory
        , m_known(std::size_t(m_rows))
    {
    }

    void flood(const QPoint &seed);
    QRect bounds() const;
    void paint(QImage &image, QRgb color, int row) const;
    int rows() const { return m_rows; }

private:
    struct Range
    {
        int first{0}, end{0};
    };

    struct Place
    {
        int row, block;
    };

    Block *rowOfBlocks(int row) const { return m_blocks.get() + std::size_t(row) * std::size_t(m_perRow); }
    Block &known(int row, int block);
    void learn(int row, int block);
    quint64 read(int row, int block) const;
    void offer(int row, int block, quint64 taken);
    void offerBoth(int row, int block, quint64 taken);
    void runOn(int row, int block, int step);
    void grow(int row, int block, quint64 seeds);

    const QImage &m_image;
    const QRect m_within;
    const QRgb m_target;
    const bool m_plain;
    const int m_rows, m_perRow;
    const std::unique_ptr<Block[]> m_blocks;
    std::vector<Range> m_known;
    std::vector<Place> m_work; // blocks with pending pixels, each once
};

quint64 Region::read(int row, int block) const
{
    const int x = m_within.left() + block * kBlockPixels;
    const int y = m_within.top() + row;
    const int count = std::min(m_within.right() - x + 1, kBlockPixels);
    const auto *pixels = m_plain ? reinterpret_cast<const QRgb *>(m_image.constScanLine(y)) + x : nullptr;
    if (pixels && count == kBlockPixels)
        return matches(pixels, m_target);
    quint64 bits = 0;
    for (int i = 0; i < count; ++i)
        bits |= quint64(((pixels ? pixels[i] : m_image.pixel(x + i, y)) | kOpaque) == m_target) << i;
    return bits;
}

// Reads a block, and those between it and the row's known ones.
void Region::learn(int row, int block)
{
    Range &range = m_known[std::size_t(row)];
    if (range.first == range.end)
        range = {block, block};
    const int first = std::min(block, range.end);
    const int end = std::max(block + 1, range.first);
    Block *blocks = rowOfBlocks(row);
    for (int i = first; i < end; ++i)
        blocks[i] = {read(row, i), 0, 0};
    range = {std::min(range.first, first), std::max(range.end, end)};
}

inline Block &Region::known(int row, int block)
{
    const Range &range = m_known[std::size_t(row)];
    if (block < range.first || block >= range.end)
        learn(row, block);
    return rowOfBlocks(row)[block];
}

// Makes pending what lies open beside taken pixels.
inline void Region::offer(int row, int block, quint64 taken)
{
    Block &at = known(row, block);
    const quint64 seeds = taken & at.open;
    if (!seeds)
        return;
    if (!at.pending)
        m_work.push_back({row, block});
    at.pending |= seeds;
}

inline void Region::offerBoth(int row, int block, quint64 taken)
{
    if (row > 0)
        offer(row - 1, block, taken);
    if (row < m_rows - 1)
        offer(row + 1, block, taken);
}

// Takes a run that leaves `block` sideways as far as it goes.
void Region::runOn(int row, int block, int step)
{
    for (block += step; block >= 0 && block < m_perRow; block += step) {
        Block &at = known(row, block);
        quint64 run = at.open;
        if (run != kWhole) {
            const quint64 walls = ~run;
            run = step > 0 ? lowest(__builtin_ctzll(walls)) : ~lowest(kBlockPixels - __builtin_clzll(walls));
        }
        if (!run)
            return;
        at.open ^= run;
        at.taken |= run;
        offerBoth(row, block, run);
        if (run != kWhole)
            return;
    }
}

// Takes the runs through `seeds` and goes on up or down the same block while it can; what else lies open waits.
void Region::grow(int row, int block, quint64 seeds)
{
    while (seeds) {
        Block &at = known(row, block);
        const quint64 taken = spread(seeds, at.open);
        at.open ^= taken;
        at.taken |= taken;
        if (taken & 1)
            runOn(row, block, -1);
        if (taken >> (kBlockPixels - 1))
            runOn(row, block, 1);
        seeds = row > 0 ? taken & known(row - 1, block).open : 0;
        if (seeds) {
            if (row < m_rows - 1)
                offer(row + 1, block, taken);
            --row;
        } else if (row < m_rows - 1) {
            seeds = taken & known(++row, block).open;
        }
    }
}

void Region::flood(const QPoint &seed)
{
    const int row = seed.y() - m_within.top();
    const int column = seed.x() - m_within.left();
    offer(row, column / kBlockPixels, quint64(1) << column % kBlockPixels);
    while (!m_work.empty()) {
        const Place at = m_work.back();
        m_work.pop_back();
        Block &block = rowOfBlocks(at.row)[at.block];
        const quint64 seeds = block.pending & block.open;
        block.pending = 0;
        grow(at.row, at.block, seeds);
    }
}

QRect Region::bounds() const
{
    QRect bounds;
    for (int row = 0; row < m_rows; ++row) {
        const Range &range = m_known[std::size_t(row)];
        const Block *blocks = rowOfBlocks(row);
        int first = range.first;
        while (first < range.end && !blocks[first].taken)
            ++first;
        if (first == range.end)
            continue;
        int last = range.end - 1;
        while (!blocks[last].taken)
            --last;
        const int left = first * kBlockPixels + __builtin_ctzll(blocks[first].taken);
        const int right = last * kBlockPixels + kBlockPixels - 1 - __builtin_clzll(blocks[last].taken);
        bounds |= QRect(QPoint(left, row), QPoint(right, row));
    }
    return bounds.translated(m_within.topLeft());
}

// Writes one row of the region; pixels that the image does not have are passed over.
void Region::paint(QImage &image, QRgb color, int row) const
{
    const int y = m_within.top() + row;
    if (y >= image.height())
        return;
    const bool plain = isPlain(image);
    const Range &range = m_known[std::size_t(row)];
    const Block *blocks = rowOfBlocks(row);
    QRgb *pixels = nullptr; // the image is not detached from its copies before there is a pixel to write
    for (int block = range.first; block < range.end; ++block) {
        const int x = m_within.left() + block * kBlockPixels;
        if (x >= image.width())
            return;
        quint64 rest = blocks[block].taken & lowest(image.width() - x);
        if (!rest)
            continue;
        if (plain && !pixels)
            pixels = reinterpret_cast<QRgb *>(image.scanLine(y));
        if (plain && x + kBlockPixels <= image.width()) {
            write(pixels + x, rest, color);
            continue;
        }
        for (; rest; rest &= rest - 1) {
            const int at = x + __builtin_ctzll(rest);
            if (plain)
                pixels[at] = color;
            else
                image.setPixel(at, y, color);
        }
    }
}

} // namespace

QRect InkInternal::floodRegion(QImage &image, QImage *bitmap, const QRect &within, const QPoint &seed, QRgb color)
{
    Region region(image, within, image.pixel(seed) | kOpaque);
    region.flood(seed);
    for (int row = 0; row < region.rows(); ++row) {
        region.paint(image, color, row);
        if (bitmap)
            region.paint(*bitmap, color, row);
    }
    return region.bounds();
}

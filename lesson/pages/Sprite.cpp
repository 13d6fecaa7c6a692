#include "lesson/pages/Sprite.h"

#include "lesson/pages/Difference.h"

#include <QtGui/QRgba64>

#include <algorithm>
#include <array>
#include <cstring>

namespace InkLesson {

namespace {

// A run begins with a byte: its kind in the two highest bits, its length less one in the others, to which a second byte
// adds its own where pixels are skipped. Then come a byte for each pixel of which a part is covered, and four for each
// that is kept as it is.
enum class Kind : uchar {
    Skipped,
    Whole, // pixels of the sprite's colour
    Parts, // of pixels of that colour
    Pixels
};
constexpr int kLengthBits = 6, kSkipBits = kLengthBits + 8;
constexpr int kMostLength = 1 << kLengthBits, kMostSkip = 1 << kSkipBits;
constexpr std::ptrdiff_t kWorthARun = 8; // whole pixels; fewer are parts of 255

constexpr uint kFull = 255; // coverage of a whole pixel

// The four channels of a pixel, each with room for a product; alpha in the highest.
using Channels = quint64;
constexpr Channels kEach = 0x00ff00ff00ff00ff;
constexpr int kAlphaShift = 48;

Channels channelsOf(QRgb pixel)
{
    return (pixel | Channels(pixel) << 24) & kEach;
}

QRgb pixelOf(Channels channels)
{
    return QRgb(channels | channels >> 24);
}

// Each channel times `part` / 255, rounded as Qt's raster engine rounds it (BYTE_MUL in Qt 5.15).
Channels scaled(Channels channels, uint part)
{
    constexpr Channels kHalf = 0x0080008000800080;
    const Channels product = channels * part;
    return (product + (product >> 8 & kEach) + kHalf) >> 8 & kEach;
}

QRgb over(QRgb below, Channels above)
{
    return pixelOf(above + scaled(channelsOf(below), kFull - uint(above >> kAlphaShift)));
}

// Which part of a pixel of one colour gives which pixel.
class Coverage
{
public:
    explicit Coverage(QRgb color)
        : m_color(color)
    {
        m_firstOf.fill(kFull + 1);
        for (uint part = kFull + 1; part-- > 0;)
            m_firstOf[uint(qAlpha(pixelOfPart(part)))] = part;
    }

    QRgb color() const { return m_color; }

    // Nothing for a pixel of another colour.
    std::optional<uchar> partOf(QRgb pixel) const
    {
        const int alpha = qAlpha(pixel);
        for (uint part = m_firstOf[uint(alpha)]; part <= kFull && qAlpha(pixelOfPart(part)) == alpha; ++part) {
            if (pixelOfPart(part) == pixel)
                return uchar(part);
        }
        return std::nullopt;
    }

private:
    QRgb pixelOfPart(uint part) const { return pixelOf(scaled(channelsOf(m_color), part)); }

    const QRgb m_color;
    std::array<uint, kFull + 1> m_firstOf; // of each alpha, the least part that gives it
};

const QRgb *rowOf(const QImage &image, int y)
{
    return reinterpret_cast<const QRgb *>(image.constScanLine(y));
}

// The first pixel that is not transparent; `end` without one.
const QRgb *firstSeen(const QRgb *pixel, const QRgb *end)
{
    using Four = quint64 __attribute__((vector_size(16))); // pixels
    constexpr std::ptrdiff_t kAtOnce = 16;
    for (; end - pixel >= kAtOnce; pixel += kAtOnce) {
        std::array<Four, 4> fours;
        std::memcpy(fours.data(), pixel, sizeof fours);
        const Four any = (fours[0] | fours[1]) | (fours[2] | fours[3]);
        if ((any[0] | any[1]) != 0)
            break;
    }
    return std::find_if(pixel, end, [](QRgb other) { return other != 0; });
}

// The least rectangle that holds all of `area` that is not transparent. Of each row only what may make it larger is
// read, and of those before the first and after the last everything.
QRect seenPart(const QImage &picture, const QRect &area)
{
    const int right = area.right() + 1;
    const auto isSeen = [&](int y) {
        const QRgb *row = rowOf(picture, y);
        return firstSeen(row + area.left(), row + right) != row + right;
    };
    int top = area.top(), bottom = area.bottom();
    while (top <= bottom && !isSeen(top))
        ++top;
    while (top < bottom && !isSeen(bottom))
        --bottom;
    int from = right, to = area.left();
    for (int y = top; y <= bottom; ++y) {
        const QRgb *row = rowOf(picture, y);
        from = int(firstSeen(row + area.left(), row + from) - row);
        for (const QRgb *seen = row + to; (seen = firstSeen(seen, row + right)) != row + right; to = int(seen - row))
            ++seen;
    }
    return top > bottom ? QRect() : QRect(QPoint(from, top), QPoint(to - 1, bottom));
}

// Puts the runs of one row after the other.
class Writer
{
public:
    Writer(std::vector<uchar> &runs, const Coverage &coverage)
        : m_runs(runs)
        , m_coverage(coverage)
    {
    }

    void skip(std::ptrdiff_t count)
    {
        for (; count > 0; count -= kMostSkip) {
            const auto more = std::min<std::ptrdiff_t>(count, kMostSkip) - 1;
            m_runs.push_back(uchar(more >> 8));
            m_runs.push_back(uchar(more));
        }
    }

    void add(const QRgb *pixel, const QRgb *end)
    {
        m_length = 0;
        while (pixel != end) {
            const QRgb color = m_coverage.color();
            const QRgb *wholeEnd = std::find_if(pixel, end, [color](QRgb other) { return other != color; });
            if (wholeEnd - pixel < kWorthARun)
                add(*pixel++);
            for (; wholeEnd - pixel >= kWorthARun || (m_kind == Kind::Whole && pixel < wholeEnd); ++pixel)
                extend(Kind::Whole);
        }
    }

private:
    void add(QRgb pixel)
    {
        if (const auto part = m_coverage.partOf(pixel)) {
            extend(Kind::Parts);
            m_runs.push_back(*part);
            return;
        }
        extend(Kind::Pixels);
        std::array<uchar, sizeof pixel> bytes;
        std::memcpy(bytes.data(), &pixel, sizeof pixel);
        m_runs.insert(m_runs.end(), bytes.begin(), bytes.end());
    }

    void extend(Kind kind)
    {
        if (m_length == 0 || m_length == kMostLength || m_kind != kind) {
            m_kind = kind;
            m_length = 0;
            m_head = m_runs.size();
            m_runs.push_back(0);
        }
        m_runs[m_head] = uchar(uint(kind) << kLengthBits | uint(m_length++));
    }

    std::vector<uchar> &m_runs;
    const Coverage &m_coverage;
    Kind m_kind{};        // of the run that is being written
    int m_length{};       // 0 where there is none
    std::size_t m_head{}; // where it begins
};

struct Run
{
    Kind kind;
    int length;
    const uchar *bytes; // of its pixels
    const uchar *end;
};

Run runAt(const uchar *head)
{
    const auto kind = Kind(*head >> kLengthBits);
    const int low = *head & (kMostLength - 1);
    const uchar *bytes = head + 1;
    switch (kind) {
    case Kind::Skipped:
        return {kind, (low << 8 | *bytes) + 1, bytes, bytes + 1};
    case Kind::Whole:
        return {kind, low + 1, bytes, bytes};
    case Kind::Parts:
        return {kind, low + 1, bytes, bytes + low + 1};
    case Kind::Pixels:
        break;
    }
    return {kind, low + 1, bytes, bytes + std::size_t(low + 1) * sizeof(QRgb)};
}

// Pixels of a row.
struct Span
{
    int y;
    int from;
    int to; // one more
};

// Two pixels as one value, which processors multiply at once: what Channels do, for each of them.
using Pair = quint16 __attribute__((vector_size(16)));
using PairBytes = uchar __attribute__((vector_size(8)));
constexpr int kPair = 2;
constexpr int kAlpha = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? 3 : 0; // of the first pixel; four more of the second

Pair pairOf(const void *pixels)
{
    PairBytes bytes;
    std::memcpy(&bytes, pixels, sizeof bytes);
    return __builtin_convertvector(bytes, Pair);
}

Pair pairOf(QRgb pixel)
{
    const std::array<QRgb, kPair> both{pixel, pixel};
    return pairOf(both.data());
}

Pair scaled(const Pair &pixels, const Pair &parts)
{
    constexpr quint16 kHalf = 0x80;
    const Pair product = pixels * parts;
    return (product + (product >> 8) + kHalf) >> 8;
}

// What is laid over a row, in two forms: one pixel and two, from `x` on.
struct Same
{
    const Pair pair;
    const Channels one;

    explicit Same(QRgb color)
        : pair(pairOf(color))
        , one(channelsOf(color))
    {
    }
    Pair pairAt(int) const { return pair; }
    Channels at(int) const { return one; }
};

struct Parts
{
    const Same color;
    const uchar *bytes;

    Pair pairAt(int x) const
    {
        const quint16 a = bytes[x], b = bytes[x + 1];
        return scaled(color.pair, Pair{a, a, a, a, b, b, b, b});
    }
    Channels at(int x) const { return scaled(color.one, bytes[x]); }
};

struct Kept
{
    const uchar *bytes;

    const uchar *pixel(int x) const { return bytes + std::size_t(x) * sizeof(QRgb); }
    Pair pairAt(int x) const { return pairOf(pixel(x)); }
    Channels at(int x) const
    {
        QRgb one;
        std::memcpy(&one, pixel(x), sizeof one);
        return channelsOf(one);
    }
};

template <typename Above>
void layOver(QRgb *row, int count, const Above &above)
{
    int x = 0;
    for (; x + kPair <= count; x += kPair) {
        const Pair pixels = above.pairAt(x);
        const Pair alphas = __builtin_shufflevector(pixels, pixels, kAlpha, kAlpha, kAlpha, kAlpha, kAlpha + 4,
                                                    kAlpha + 4, kAlpha + 4, kAlpha + 4);
        const Pair sum = pixels + scaled(pairOf(row + x), quint16(kFull) - alphas);
        const PairBytes bytes = __builtin_convertvector(sum, PairBytes);
        std::memcpy(row + x, &bytes, sizeof bytes);
    }
    if (x < count)
        row[x] = over(row[x], above.at(x));
}

// That part of a run that begins at `start`.
void lay(const Run &run, int start, const Span &span, QRgb color, QRgb *row)
{
    const int count = span.to - span.from;
    const std::ptrdiff_t passed = span.from - start;
    row += span.from;
    if (run.kind == Kind::Whole && uint(qAlpha(color)) == kFull)
        std::fill(row, row + count, color);
    else if (run.kind == Kind::Whole)
        layOver(row, count, Same(color));
    else if (run.kind == Kind::Parts)
        layOver(row, count, Parts{Same(color), run.bytes + passed});
    else if (run.kind == Kind::Pixels)
        layOver(row, count, Kept{run.bytes + passed * std::ptrdiff_t(sizeof(QRgb))});
}

} // namespace

std::optional<Sprite> Sprite::of(const QImage &picture, const QRect &area, const QColor &color)
{
    const QRect seen = seenPart(picture, area & picture.rect());
    const Coverage coverage(color.rgba64().premultiplied().toArgb32());
    Sprite sprite;
    sprite.m_color = coverage.color();
    sprite.m_rect = seen;
    sprite.m_rows.reserve(std::size_t(seen.height()) + 1);
    Writer writer(sprite.m_runs, coverage);
    for (int y = seen.top(); y <= seen.bottom(); ++y) {
        sprite.m_rows.push_back(quint32(sprite.m_runs.size()));
        const QRgb *pixel = rowOf(picture, y) + seen.left(), *const end = pixel + seen.width();
        for (const QRgb *from = firstSeen(pixel, end); from != end; from = firstSeen(pixel, end)) {
            writer.skip(from - pixel);
            pixel = std::find(from, end, 0U);
            writer.add(from, pixel);
        }
        if (sprite.m_runs.size() > kMostBytes)
            return std::nullopt;
    }
    sprite.m_rows.push_back(quint32(sprite.m_runs.size()));
    sprite.m_runs.shrink_to_fit();
    return sprite;
}

template <typename Lay>
void Sprite::visitRow(int y, int left, int right, Lay lay) const
{
    const quint32 *place = &m_rows[std::size_t(y - m_rect.top())];
    const uchar *head = m_runs.data() + place[0], *const end = m_runs.data() + place[1];
    for (int x = m_rect.left(); head != end && x < right;) {
        const Run run = runAt(head);
        if (run.kind != Kind::Skipped && x + run.length > left)
            lay(run, x);
        x += run.length;
        head = run.end;
    }
}

template <typename Lay>
void Sprite::visit(const QRect &area, Lay lay) const
{
    const QRect within = area & m_rect;
    const int left = within.left(), right = within.right() + 1;
    for (int y = within.top(); y <= within.bottom(); ++y) {
        visitRow(y, left, right, [&](const Run &run, int x) {
            lay(run, x, Span{y, std::max(x, left), std::min(x + run.length, right)});
        });
    }
}

void Sprite::paint(const PixelRows &page, const QRect &area) const
{
    visit(area, [&](const Run &run, int start, const Span &span) { lay(run, start, span, m_color, page.row(span.y)); });
}

void Sprite::paint(const PixelRows &page, const PixelRows &ink, const QRect &area) const
{
    visit(area, [&](const Run &run, int start, const Span &span) {
        lay(run, start, span, m_color, page.row(span.y));
        lay(run, start, span, m_color, ink.row(span.y));
    });
}

void Sprite::paint(const PixelRows &page, const Difference &where, const QRect &area) const
{
    const int bottom = std::min(m_rect.bottom(), area.bottom());
    for (int y = std::max(m_rect.top(), area.top()); y <= bottom; ++y) {
        const Difference::Span *span = where.begin(y), *const end = where.end(y);
        if (span == end)
            continue;
        QRgb *const row = page.row(y);
        visitRow(y, span->from, end[-1].to, [&](const Run &run, int x) {
            const int to = x + run.length;
            while (span != end && span->to <= x)
                ++span;
            for (const Difference::Span *one = span; one != end && one->from < to; ++one)
                lay(run, x, Span{y, std::max(x, one->from), std::min(to, one->to)}, m_color, row);
        });
    }
}

bool Sprite::paintsIn(const QRect &area) const
{
    bool paints = false;
    visit(area, [&paints](const Run &, int, const Span &) { paints = true; });
    return paints;
}

} // namespace InkLesson

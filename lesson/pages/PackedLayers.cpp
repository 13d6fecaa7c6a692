#include "lesson/pages/PackedLayers.h"

#include "lesson/pages/PageLayers.h"
#include "lesson/pages/PixelRows.h"
#include "lesson/pages/Workers.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <utility>

namespace InkLesson {

namespace {

// A run begins with a word: its kind in the two lowest bits, its length above. One of a colour has that in the next
// word, and one that is kept a word for each pixel.
enum class Kind : quint32 { Background, Ink, Color, Kept };
constexpr int kKindBits = 2;
constexpr std::size_t kMostLength = std::size_t(1) << 29;
constexpr std::size_t kWorthARun = 3; // pixels
constexpr int kRowsOfAPart = 64;

struct Pixels
{
    const QRgb *first;
    const QRgb *background;
    const QRgb *ink; // below those that are packed
};

// Rows lie one after the other without a gap.
const QRgb *rowOf(const QImage &image, int y)
{
    return reinterpret_cast<const QRgb *>(image.constScanLine(y));
}

// Of a part that begins at that row.
std::size_t pixelsOfPart(const QSize &size, int y)
{
    return std::size_t(size.width()) * std::size_t(std::min(kRowsOfAPart, size.height() - y));
}

std::size_t alike(const QRgb *pixels, const QRgb *others, std::size_t most)
{
    return std::size_t(std::mismatch(pixels, pixels + most, others).first - pixels);
}

// The longest run that begins at a pixel and that something else tells.
std::pair<Kind, std::size_t> runAt(const Pixels &pixels, std::size_t at, std::size_t most)
{
    const QRgb *pixel = pixels.first + at, color = *pixel;
    const auto end = std::find_if(pixel, pixel + most, [color](QRgb other) { return other != color; });
    std::pair<Kind, std::size_t> best{Kind::Color, std::size_t(end - pixel)};
    for (const auto &[kind, others] :
         {std::pair(Kind::Background, pixels.background), std::pair(Kind::Ink, pixels.ink)}) {
        const std::size_t length = others ? alike(pixel, others + at, most) : 0;
        if (length >= best.second)
            best = {kind, length};
    }
    return best;
}

std::vector<quint32> packed(const Pixels &pixels, std::size_t count)
{
    std::vector<quint32> words;
    std::size_t head = 0; // of the run that is kept, where there is one
    std::size_t kept = 0;
    for (std::size_t at = 0; at < count;) {
        const auto [kind, length] = runAt(pixels, at, std::min(count - at, kMostLength));
        if (length >= kWorthARun) {
            words.push_back(quint32(length << kKindBits) | quint32(kind));
            if (kind == Kind::Color)
                words.push_back(pixels.first[at]);
            kept = 0;
            at += length;
            continue;
        }
        if (kept == 0 || kept == kMostLength) {
            head = words.size();
            kept = 0;
            words.push_back(0);
        }
        words.push_back(pixels.first[at++]);
        words[head] = quint32(++kept << kKindBits) | quint32(Kind::Kept);
    }
    words.shrink_to_fit();
    return words;
}

// Whether they tell so many pixels, no more and no less, by kinds from `lowest` on.
bool tellAll(const std::vector<quint32> &words, std::size_t count, Kind lowest)
{
    std::size_t told = 0;
    for (std::size_t at = 0; at < words.size();) {
        const std::size_t length = words[at] >> kKindBits;
        const auto kind = Kind(words[at] & ((1U << kKindBits) - 1));
        const std::size_t more = kind == Kind::Color ? 1 : kind == Kind::Kept ? length : 0;
        if (kind < lowest || more > words.size() - at - 1)
            return false;
        told += length;
        at += 1 + more;
    }
    return told == count;
}

void unpack(const std::vector<quint32> &words, QRgb *pixel, const QRgb *background, const QRgb *ink)
{
    const QRgb *const first = pixel;
    for (auto word = words.begin(); word != words.end();) {
        const std::size_t length = *word >> kKindBits;
        const auto kind = Kind(*word++ & ((1U << kKindBits) - 1));
        const std::ptrdiff_t at = pixel - first;
        if (kind == Kind::Background)
            std::copy_n(background + at, length, pixel);
        else if (kind == Kind::Ink)
            std::copy_n(ink + at, length, pixel);
        else if (kind == Kind::Color)
            std::fill_n(pixel, length, *word++);
        else
            std::copy_n(std::exchange(word, word + std::ptrdiff_t(length)), length, pixel);
        pixel += length;
    }
}

} // namespace

PackedLayers::PackedLayers(const PageLayers &layers)
    : m_size(layers.rect().size())
{
    for (int y = 0; y < m_size.height(); y += kRowsOfAPart) {
        const std::size_t count = pixelsOfPart(m_size, y);
        const QRgb *ink = rowOf(layers.ink(), y);
        m_parts.push_back({packed({rowOf(layers.page(), y), rowOf(layers.background(), y), ink}, count),
                           packed({ink, nullptr, nullptr}, count)});
    }
}

std::unique_ptr<PageLayers> PackedLayers::unpacked(QImage background, Workers *workers,
                                                   std::unique_ptr<PageLayers> spare) const
{
    if (spare && spare->rect().size() != m_size)
        spare.reset();
    auto layers = spare ? std::move(spare) : std::make_unique<PageLayers>(m_size, PageLayers::Pixels::Any);
    layers->setBackground(std::move(background));
    if (layers->isNull())
        return nullptr;
    layers->lend(workers);
    const PixelRows page(layers->m_page), surface(layers->m_surface), ink(layers->m_ink);
    shareOut(workers, int(m_parts.size()), [&](int number, int) {
        const Part &part = m_parts[std::size_t(number)];
        const int y = number * kRowsOfAPart;
        unpack(part.ink, ink.row(y), nullptr, nullptr);
        unpack(part.page, page.row(y), rowOf(layers->m_background, y), ink.row(y));
        std::copy_n(page.row(y), pixelsOfPart(m_size, y), surface.row(y));
    });
    return layers;
}

std::size_t PackedLayers::bytes() const
{
    std::size_t words = 0;
    for (const Part &part : m_parts)
        words += part.page.capacity() + part.ink.capacity();
    return words * sizeof(quint32);
}

// Of each part the number of words of the page and that of the ink, and then those.
QByteArray PackedLayers::toBytes() const
{
    QByteArray bytes;
    const auto add = [&bytes](const quint32 *first, std::size_t count) {
        bytes.append(reinterpret_cast<const char *>(first), int(count * sizeof *first));
    };
    for (const Part &part : m_parts) {
        const quint32 counts[] = {quint32(part.page.size()), quint32(part.ink.size())};
        add(counts, std::size(counts));
        add(part.page.data(), part.page.size());
        add(part.ink.data(), part.ink.size());
    }
    return bytes;
}

std::unique_ptr<PackedLayers> PackedLayers::fromBytes(const QByteArray &bytes, const QSize &size)
{
    std::unique_ptr<PackedLayers> layers(new PackedLayers(size));
    qsizetype at = 0;
    const auto read = [&](std::size_t count, Runs &words) {
        if (count > std::size_t(bytes.size() - at) / sizeof(quint32))
            return false;
        words.resize(count);
        std::memcpy(words.data(), bytes.constData() + at, count * sizeof(quint32));
        at += qsizetype(count * sizeof(quint32));
        return true;
    };
    for (int y = 0; y < size.height(); y += kRowsOfAPart) {
        Runs counts;
        Part part;
        if (!read(2, counts) || !read(counts[0], part.page) || !read(counts[1], part.ink))
            return nullptr;
        const std::size_t count = pixelsOfPart(size, y);
        if (!tellAll(part.page, count, Kind::Background) || !tellAll(part.ink, count, Kind::Color))
            return nullptr;
        layers->m_parts.push_back(std::move(part));
    }
    return at == bytes.size() ? std::move(layers) : nullptr;
}

} // namespace InkLesson

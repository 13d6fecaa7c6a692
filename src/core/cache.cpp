#include "cache_p.h"

#include "painting_p.h"
#include "pixels_p.h"

#include <QtCore/QVarLengthArray>
#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>

#include <algorithm>
#include <memory>

#ifdef Q_OS_UNIX
#include <sys/mman.h>
#endif

using namespace InkInternal;

namespace {

constexpr std::size_t kLazyBytes = std::size_t(1) << 20; // for less, a mapping of its own costs more than zeroing

// Before and after the pixels: Qt reads beyond the last one where it smooths a scaled image.
constexpr std::size_t kSpareBytes = 4096;

constexpr int kTile = 32;             // pixels a side of what is composited or left out
constexpr int kSmallPart = 128 * 128; // pixels in a clip; so few are composited as soon as looked at
constexpr int kTilesKept = 256;       // a row of tiles up to 8 192 pixels wide needs no heap

struct Pages
{
    void *start;
    std::size_t bytes;
};

// Called when the last copy of an image on pages is gone.
void unmapPages(void *info)
{
    const std::unique_ptr<Pages> pages(static_cast<Pages *>(info));
#ifdef Q_OS_UNIX
    munmap(pages->start, pages->bytes);
#endif
}

QImage imageOnPages(const QSize &size, void *(*map)(std::size_t))
{
    const int bytesPerLine = size.width() * int(sizeof(QRgb));
    const std::size_t bytes = std::size_t(bytesPerLine) * std::size_t(size.height());
    if (bytes < kLazyBytes)
        return {};
    const std::size_t mapped = bytes + 2 * kSpareBytes;
    void *start = map(mapped);
    if (!start)
        return {};
    auto pages = std::make_unique<Pages>(Pages{start, mapped});
    auto *pixels = static_cast<uchar *>(start) + kSpareBytes;
    QImage image(pixels, size.width(), size.height(), bytesPerLine, QImage::Format_ARGB32, unmapPages, pages.get());
    Pages *const taken = pages.release();
    if (image.isNull()) // Qt makes no row of 67 108 864 pixels or more, and then forgets the pages
        unmapPages(taken);
    return image;
}

// An event of a stroke shows so little that looking for ink does not pay.
bool showsLittle(QPainter &painter)
{
    if (!painter.hasClipping())
        return false;
    const QRectF clip = clipBounds(painter);
    return clip.width() * clip.height() <= kSmallPart;
}

// Whether parts of `pixels` at their own places give the pixels of one drawImage of all of it.
bool fallsIntoParts(const QPainter &painter, const QImage &pixels, const QRect &canvas)
{
    return keepsWhatIsUnderNothing(painter) && isWholeShift(painter.deviceTransform()) &&
           pixels.format() == QImage::Format_ARGB32 && pixels.devicePixelRatioF() == 1.0 && canvas == pixels.rect() &&
           canvas.width() > 1;
}

// The part of `pixels` that can show through the painter's clip.
QRect visiblePart(QPainter &painter, const QImage &pixels)
{
    const QTransform &toDevice = painter.deviceTransform();
    const QPaintDevice &device = *painter.paintEngine()->paintDevice();
    const QRect part =
        pixels.rect() &
        QRect(0, 0, device.width(), device.height()).translated(-int(toDevice.dx()), -int(toDevice.dy()));
    if (!painter.hasClipping())
        return part;
    const QRectF clip = clipBounds(painter);
    // Qt has its own way with the edges of a clip of no size.
    return clip.isEmpty() ? part : (clip.adjusted(-1, -1, 1, 1) & QRectF(part)).toAlignedRect();
}

// Composites a run of tiles in one row.
void layOverPart(QPainter &painter, const QImage &pixels, QRect part)
{
    part &= pixels.rect();
    if (part.width() == 1 && part.height() == 1)
        part.setLeft(part.left() - 1); // Qt would fill a single pixel with its colour, which rounds differently
    painter.drawImage(QRectF(part), pixels, QRectF(part));
}

bool anyInk(const QRgb *first, const QRgb *last)
{
    QRgb bits = 0;
    for (; first != last; ++first)
        bits |= *first;
    return bits != 0;
}

// Notes the tiles of `visible` that have ink in this row, counted from the first one. Most rows have none.
void markInked(const QRgb *row, const QRect &visible, bool *inked)
{
    if (!anyInk(row + visible.left(), row + visible.right() + 1))
        return;
    const int firstTile = visible.left() / kTile;
    for (int tile = firstTile; tile <= visible.right() / kTile; ++tile) {
        const int from = std::max(tile * kTile, visible.left());
        const int to = std::min((tile + 1) * kTile, visible.right() + 1);
        bool &isInked = inked[tile - firstTile];
        isInked = isInked || anyInk(row + from, row + to);
    }
}

} // namespace

QRect InkInternal::canvasRect(const QSize &size)
{
    return edges(0, 0, qint64(size.width()) - 1, qint64(size.height()) - 1);
}

void *InkInternal::mapPages(std::size_t bytes)
{
#ifdef Q_OS_UNIX
    void *start = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (start == MAP_FAILED)
        return nullptr;
#ifdef MADV_NOHUGEPAGE
    // Where the system hands out pages of two megabytes, a short stroke would take up half of the image.
    madvise(start, bytes, MADV_NOHUGEPAGE);
#endif
    return start;
#else
    Q_UNUSED(bytes)
    return nullptr;
#endif
}

QImage InkInternal::blankPixels(const QRect &canvas, void *(*map)(std::size_t))
{
    const QSize size(saturated(width(canvas)), saturated(height(canvas)));
    if (size.isEmpty() || !fitsIntoMemory(size))
        return {};
    QImage image = imageOnPages(size, map);
    if (image.isNull()) {
        image = QImage(size, QImage::Format_ARGB32);
        image.fill(0);
    }
    return image;
}

bool InkInternal::ensureCache(CInkGraph &graph, const QRect &canvas)
{
    if (!graph.m_pImage) {
        auto image = std::make_unique<QImage>(blankPixels(canvas));
        if (!image->isNull())
            graph.m_pImage = image.release();
    }
    return graph.m_pImage && !graph.m_pImage->isNull();
}

void InkInternal::layOver(QPainter &painter, const QImage &pixels, const QRect &canvas, const QRectF &source)
{
    if (!fallsIntoParts(painter, pixels, canvas) || showsLittle(painter)) {
        paintImage(painter, real(canvas), pixels, source);
        return;
    }
    const QRect visible = visiblePart(painter, pixels);
    if (visible.isEmpty())
        return;
    const int firstTile = visible.left() / kTile;
    const int tiles = visible.right() / kTile + 1 - firstTile;
    QVarLengthArray<bool, kTilesKept> inked(tiles + 1);
    for (int top = visible.top() / kTile * kTile; top <= visible.bottom(); top += kTile) {
        std::fill(inked.begin(), inked.end(), false);
        const int last = std::min(top + kTile - 1, visible.bottom());
        for (int y = std::max(top, visible.top()); y <= last; ++y)
            markInked(reinterpret_cast<const QRgb *>(pixels.constScanLine(y)), visible, inked.data());
        for (int begin = 0; begin < tiles; ++begin) {
            const int end = int(std::find(inked.begin() + begin, inked.end(), false) - inked.begin());
            if (end > begin)
                layOverPart(painter, pixels, QRect((firstTile + begin) * kTile, top, (end - begin) * kTile, kTile));
            begin = end;
        }
    }
}

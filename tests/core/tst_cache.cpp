// Canvas-sized pixels: an ordinary image whose pages become real when they are written.

#include "CInkColorBrush.h"
#include "Canvas.h"
#include "Exact.h"

#include "core/cache_p.h"

#include <QtCore/QFile>

#include <vector>

using namespace InkInternal;

namespace {

constexpr QRect kCanvas4K{0, 0, 3840, 2160};
constexpr qint64 kCanvasBytes = 33'177'600;

std::vector<std::size_t> s_asked;

void *noPages(std::size_t bytes)
{
    s_asked.push_back(bytes);
    return nullptr;
}

void *countedPages(std::size_t bytes)
{
    s_asked.push_back(bytes);
    return mapPages(bytes);
}

// What the process takes up, in bytes: 0 the address space, 1 the memory.
qint64 takenUp(int column)
{
    QFile file("/proc/self/statm");
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll().split(' ').value(column).toLongLong() * 4096;
}

int mappings()
{
    QFile file("/proc/self/maps");
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll().count('\n');
}

QImage filledPlain(const QSize &size)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(0);
    return image;
}

} // namespace

TEST(cache, canvasHasTheLastPixelAsItsEdge)
{
    EXPECT_EDGES(canvasRect(QSize(7, 1)), 0, 0, 6, 0);
    EXPECT_EDGES(canvasRect(QSize(0, 0)), 0, 0, -1, -1);
    EXPECT_EDGES(canvasRect(QSize(-4, 12)), 0, 0, -5, 11);
}

TEST(cache, blankPixelsAreAnOrdinaryTransparentImage)
{
    const QImage image = blankPixels(kCanvas4K);
    EXPECT_EQ(image.size(), QSize(3840, 2160));
    EXPECT_EQ(image.format(), QImage::Format_ARGB32);
    EXPECT_EQ(image.bytesPerLine(), 15360);
    EXPECT_EQ(image.sizeInBytes(), kCanvasBytes);
    EXPECT_EQ(image.devicePixelRatioF(), 1.0);
    EXPECT_TRUE(image == filledPlain({3840, 2160}));
}

TEST(cache, widthAndHeightCountFromTheCanvasesCorner)
{
    const QImage image = blankPixels(QRect(-3, 40, 700, 600));
    EXPECT_EQ(image.size(), QSize(700, 600));
    EXPECT_EQ(image.bytesPerLine(), 2800);
}

TEST(cache, writingKeepsThePixelsWhereTheyAre)
{
    QImage image = blankPixels(kCanvas4K);
    const uchar *pixels = image.constBits();
    image.setPixel(3839, 2159, 0x12345678);
    QPainter painter(&image);
    painter.fillRect(0, 0, 3, 2, Qt::red);
    painter.end();
    EXPECT_EQ(image.bits(), pixels);
    EXPECT_EQ(image.pixel(3839, 2159), 0x12345678U);
    EXPECT_EQ(image.pixel(2, 1), 0xffff0000U);
    EXPECT_EQ(image.pixel(3, 1), 0U);
}

// Qt reads a pixel beyond the last one where it smooths a scaled image.
TEST(cache, thereAreZeroesBeforeAndAfterThePixels)
{
    const QImage image = blankPixels(kCanvas4K); // its bytes end with a page
    const uchar *first = image.constBits();
    const uchar *behind = first + kCanvasBytes;
    for (int i = 0; i < 4096; ++i) {
        ASSERT_EQ(behind[i], 0);
        ASSERT_EQ(first[-1 - i], 0);
    }
}

TEST(cache, copiesShareUntilOneIsWritten)
{
    QImage image = blankPixels(kCanvas4K);
    image.setPixel(5, 6, 0xff010203);
    QImage copy = image;
    EXPECT_EQ(copy.constBits(), image.constBits());
    copy.setPixel(5, 6, 0xff999999);
    EXPECT_NE(copy.constBits(), image.constBits());
    EXPECT_EQ(image.pixel(5, 6), 0xff010203U);
    EXPECT_EQ(copy.pixel(5, 6), 0xff999999U);
    EXPECT_EQ(copy.pixel(3839, 2159), 0U);
}

TEST(cache, copyOutlivesTheFirst)
{
    QImage copy;
    {
        QImage image = blankPixels(kCanvas4K);
        image.setPixel(5, 6, 0xff010203);
        copy = image;
    }
    const uchar *pixels = copy.constBits();
    EXPECT_EQ(copy.pixel(5, 6), 0xff010203U);
    copy.setPixel(5, 7, 0xff040506); // the last holder writes in place
    EXPECT_EQ(copy.constBits(), pixels);
    EXPECT_EQ(copy.pixel(5, 7), 0xff040506U);
}

TEST(cache, pagesAreGivenBackWithTheLastCopy)
{
    blankPixels(kCanvas4K);
    const int mappingsBefore = mappings();
    const qint64 spaceBefore = takenUp(0);
    {
        const QImage image = blankPixels(kCanvas4K);
        EXPECT_GE(takenUp(0), spaceBefore + kCanvasBytes);
    }
    for (int i = 0; i < 1000; ++i) {
        QImage image = blankPixels(kCanvas4K);
        const QImage copy = image;
        image = QImage();
        EXPECT_EQ(copy.pixel(i, i), 0U);
    }
    EXPECT_LE(mappings(), mappingsBefore + 5);
    EXPECT_LT(takenUp(0), spaceBefore + kCanvasBytes);
}

TEST(cache, pagesOfARowTooLongForAnImageAreGivenBack)
{
    s_asked.clear();
    const qint64 spaceBefore = takenUp(0);
    EXPECT_TRUE(blankPixels(QRect(0, 0, 67'108'864, 1), countedPages).isNull());
    EXPECT_EQ(s_asked, std::vector<std::size_t>{268'443'648});
    EXPECT_LT(takenUp(0), spaceBefore + 268'435'456);
}

TEST(cache, strokeTakesUpWhatItTouches)
{
    CInkColorBrush brush(QSize(3840, 2160));
    QImage layer(3840, 2160, QImage::Format_ARGB32_Premultiplied);
    layer.fill(Qt::white); // its pages are real before anything is measured
    QPainter painter(&layer);
    {
        CInkColorBrush first(QSize(140, 100)); // what painting itself takes up the first time
        feed(first, PT_DOWN, 50, 50);
        feed(first, PT_MOVE, 70, 50);
        QRect all = layer.rect();
        first.Draw(painter, all);
    }
    const qint64 before = takenUp(1);
    feed(brush, PT_DOWN, 1000, 1000);
    for (int x = 1010; x <= 1300; x += 10) {
        QRect update = feed(brush, PT_MOVE, x, 1000 + x % 40);
        brush.Draw(painter, update);
    }
    QRect all = layer.rect();
    brush.Draw(painter, all); // reads all of the image
    EXPECT_NE(layer.pixel(1200, 1020), 0xffffffffU);
#ifdef __SANITIZE_ADDRESS__
    constexpr int kShare = 10; // what was given back counts, too
#else
    constexpr int kShare = 40;
#endif
    EXPECT_LE((takenUp(1) - before) * kShare, kCanvasBytes);
}

TEST(cache, withoutPagesTheImageIsMadeAtOnce)
{
    s_asked.clear();
    QImage image = blankPixels(kCanvas4K, noPages);
    EXPECT_EQ(s_asked, std::vector<std::size_t>{33'185'792});
    EXPECT_EQ(image.bytesPerLine(), 15360);
    EXPECT_TRUE(image == filledPlain({3840, 2160}));
    const uchar *pixels = image.constBits();
    image.setPixel(1, 1, 0xff000000);
    EXPECT_EQ(image.constBits(), pixels);
}

TEST(cache, pagesAreAskedForFromOneMegabyteOn)
{
    s_asked.clear();
    EXPECT_TRUE(blankPixels(QRect(0, 0, 512, 511), countedPages) == filledPlain({512, 511}));
    EXPECT_TRUE(s_asked.empty());
    EXPECT_TRUE(blankPixels(QRect(0, 0, 512, 512), countedPages) == filledPlain({512, 512}));
    EXPECT_EQ(s_asked, std::vector<std::size_t>{1'056'768});
}

TEST(cache, impossibleCanvasHoldsNoImageAndAsksForNothing)
{
    s_asked.clear();
    for (const QRect &canvas : {QRect(), QRect(0, 0, 0, 30), QRect(0, 0, 30, 0), QRect(0, 0, -4, -4),
                                QRect(0, 0, 16'001, 16'000), QRect(QPoint(INT_MIN, 0), QPoint(INT_MAX, 0))})
        EXPECT_TRUE(blankPixels(canvas, countedPages).isNull()) << canvas;
    EXPECT_TRUE(s_asked.empty());
}

TEST(cache, impossibleNumberOfPagesIsNotToBeHad)
{
    EXPECT_EQ(mapPages(0), nullptr);
    EXPECT_EQ(mapPages(std::size_t(1) << 62), nullptr);
}

TEST(cache, imageIsMadeOnceForATool)
{
    CInkColorBrush brush(QSize(40, 30));
    EXPECT_FALSE(ensureCache(brush, QRect()));
    EXPECT_EQ(brush.m_pImage, nullptr);
    EXPECT_TRUE(ensureCache(brush, QRect(0, 0, 40, 30)));
    const QImage *image = brush.m_pImage;
    EXPECT_EQ(image->size(), QSize(40, 30));
    EXPECT_TRUE(ensureCache(brush, QRect(0, 0, 50, 60)));
    EXPECT_EQ(brush.m_pImage, image);
    *brush.m_pImage = QImage();
    EXPECT_FALSE(ensureCache(brush, QRect(0, 0, 40, 30)));
}

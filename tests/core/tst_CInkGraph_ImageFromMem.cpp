// Encoded bytes in, an image of the caller's out.

#include "Exact.h"
#include "PlainGraph.h"
#include "Png.h"

#include <QtCore/QByteArray>

#include <algorithm>
#include <climits>
#include <memory>

namespace {

std::unique_ptr<QImage> decoded(QByteArray bytes)
{
    return std::unique_ptr<QImage>(PlainGraph().ImageFromMem(bytes.data(), bytes.size()));
}

// Three by two pixels, each of its own colour and alpha.
QImage sample()
{
    QImage image(3, 2, QImage::Format_ARGB32);
    image.setPixel(0, 0, 0xFFFF0000u);
    image.setPixel(1, 0, 0x8000FF00u);
    image.setPixel(2, 0, 0x400000FFu);
    image.setPixel(0, 1, 0x00000000u);
    image.setPixel(1, 1, 0xFFFFFFFFu);
    image.setPixel(2, 1, 0xFF123456u);
    return image;
}

} // namespace

TEST(CInkGraphImageFromMem, pngKeepsEveryPixelAndItsAlpha)
{
    const auto image = decoded(encoded(sample(), "PNG", 100));
    ASSERT_TRUE(image);
    EXPECT_EQ(image->format(), QImage::Format_ARGB32);
    EXPECT_TRUE(samePixels(*image, sample()));
}

TEST(CInkGraphImageFromMem, bmpKeepsEveryColor)
{
    const auto image = decoded(encoded(sample().convertToFormat(QImage::Format_RGB32), "BMP"));
    ASSERT_TRUE(image);
    ASSERT_EQ(image->size(), QSize(3, 2));
    EXPECT_EQ(image->pixel(0, 0), 0xFFFF0000u);
    EXPECT_EQ(image->pixel(1, 0), 0xFF00FF00u);
    EXPECT_EQ(image->pixel(2, 1), 0xFF123456u);
}

TEST(CInkGraphImageFromMem, jpegIsDecoded)
{
    QImage grey(16, 8, QImage::Format_RGB32);
    grey.fill(QColor(128, 128, 128));
    const QByteArray bytes = encoded(grey, "JPG", 100);
    const auto image = decoded(bytes);
    ASSERT_TRUE(image);
    ASSERT_EQ(image->size(), QSize(16, 8));
    EXPECT_EQ(image->pixel(5, 5), 0xFF808080u);
    EXPECT_TRUE(samePixels(*image, QImage::fromData(bytes)));
}

TEST(CInkGraphImageFromMem, handMadePngIsDecoded)
{
    const auto image = decoded(blackPng(20, 10));
    ASSERT_TRUE(image);
    ASSERT_EQ(image->size(), QSize(20, 10));
    EXPECT_EQ(image->pixel(19, 9), 0xFF000000u);
}

TEST(CInkGraphImageFromMem, imageDoesNotNeedTheBytesAnyMore)
{
    auto bytes = std::make_unique<QByteArray>(encoded(sample(), "PNG", 100));
    const std::unique_ptr<QImage> image(PlainGraph().ImageFromMem(bytes->data(), bytes->size()));
    bytes->fill('\0');
    bytes.reset();
    EXPECT_TRUE(samePixels(*image, sample()));
}

TEST(CInkGraphImageFromMem, bytesAreNotChanged)
{
    const QByteArray before = encoded(sample(), "PNG", 100);
    QByteArray bytes(before.constData(), before.size());
    delete PlainGraph().ImageFromMem(bytes.data(), bytes.size());
    EXPECT_EQ(bytes, before);
}

TEST(CInkGraphImageFromMem, everyCallGivesANewImage)
{
    QByteArray bytes = encoded(sample(), "PNG", 100);
    PlainGraph graph;
    const std::unique_ptr<QImage> first(graph.ImageFromMem(bytes.data(), bytes.size()));
    const std::unique_ptr<QImage> second(graph.ImageFromMem(bytes.data(), bytes.size()));
    ASSERT_NE(first, second);
    first->fill(Qt::red);
    EXPECT_TRUE(samePixels(*second, sample()));
}

TEST(CInkGraphImageFromMem, objectTakesNoPart)
{
    QByteArray bytes = encoded(sample(), "PNG", 100);
    PlainGraph graph;
    const std::unique_ptr<QImage> image(graph.ImageFromMem(bytes.data(), bytes.size()));
    EXPECT_EQ(graph.m_pImage, nullptr);

    graph.m_bFinished = 1;
    const std::unique_ptr<QImage> afterCommit(graph.ImageFromMem(bytes.data(), bytes.size()));
    EXPECT_TRUE(samePixels(*afterCommit, sample()));
}

TEST(CInkGraphImageFromMem, onlyTheGivenLengthIsRead)
{
    const QByteArray picture = encoded(sample(), "PNG", 100);
    QByteArray followed = picture + QByteArray(1000, 'x');
    const std::unique_ptr<QImage> image(PlainGraph().ImageFromMem(followed.data(), picture.size()));
    EXPECT_TRUE(samePixels(*image, sample()));

    // An array of exactly the given length, so that a byte too many is noticed.
    const std::unique_ptr<char[]> exact(new char[size_t(picture.size())]);
    std::copy(picture.begin(), picture.end(), exact.get());
    for (const int length : {1, 7, 8, 20, picture.size() / 2}) {
        const std::unique_ptr<QImage> cut(PlainGraph().ImageFromMem(exact.get(), length));
        ASSERT_TRUE(cut) << length;
        EXPECT_TRUE(cut->isNull()) << length;
    }
}

TEST(CInkGraphImageFromMem, garbageGivesANullImage)
{
    for (const QByteArray &bytes :
         {QByteArray("no picture at all"), QByteArray(1000, '\0'), QByteArray(1000, '\xFF'), QByteArray("P6 10 10"),
          QByteArray("BM"), QByteArray("\xFF\xD8\xFF\xE0", 4), QByteArray("GIF89a"), pngHeader(10, 10)}) {
        const auto image = decoded(bytes);
        ASSERT_TRUE(image);
        EXPECT_TRUE(image->isNull()) << bytes.left(20).toStdString();
    }
}

TEST(CInkGraphImageFromMem, noBytesGiveANullImage)
{
    QByteArray bytes = encoded(sample(), "PNG", 100);
    PlainGraph graph;
    for (const int length : {0, -1, -1000, INT_MIN}) {
        const std::unique_ptr<QImage> image(graph.ImageFromMem(bytes.data(), length));
        ASSERT_TRUE(image) << length;
        EXPECT_TRUE(image->isNull()) << length;
    }
    for (const int length : {100, 0, -1, INT_MAX}) {
        const std::unique_ptr<QImage> image(graph.ImageFromMem(nullptr, length));
        ASSERT_TRUE(image) << length;
        EXPECT_TRUE(image->isNull()) << length;
    }
}

TEST(CInkGraphImageFromMem, pictureOf256MegapixelsIsDecoded)
{
    const auto image = decoded(blackPng(16000, 16000));
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), QSize(16000, 16000));
}

TEST(CInkGraphImageFromMem, largerPictureIsRefused)
{
    for (const QSize &size : {QSize(16001, 16000), QSize(16000, 16001), QSize(20000, 20000)}) {
        const auto image = decoded(blackPng(size.width(), size.height()));
        ASSERT_TRUE(image);
        EXPECT_TRUE(image->isNull()) << size.width() << " by " << size.height();
    }
}

TEST(CInkGraphImageFromMem, claimOfAHugePictureIsRefused)
{
    const QByteArray bitmap =
        QByteArray("BM\x36\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\x20\x4E\0\0\x20\x4E\0\0\1\0\x20\0", 30) +
        QByteArray(24, '\0');
    for (const QByteArray &bytes :
         {pngHeader(20000, 20000), pngHeader(20000, 20000) + pngChunk("IDAT", "") + pngChunk("IEND", {}),
          pngHeader(0x7FFFFFFF, 0x7FFFFFFF), QByteArray("P6 20000 20000 255\n"), bitmap}) {
        const auto image = decoded(bytes);
        ASSERT_TRUE(image);
        EXPECT_TRUE(image->isNull()) << bytes.left(2).toStdString();
    }
}

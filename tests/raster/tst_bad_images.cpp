// What the raster tools make of bytes that are no picture, no whole one or one that is too large, and of pictures of
// every kind: nothing is said, and what is no picture paints nothing.

#include "CInkFloodFillEx.h"
#include "CInkPicTure.h"
#include "CInkText.h"
#include "Canvas.h"
#include "Exact.h"
#include "MessageLog.h"
#include "Png.h"

#include <QtCore/QTemporaryDir>

#include <climits>
#include <memory>

namespace {

// 60 x 40 pixels, no two neighbours alike.
QImage sample()
{
    QImage image(60, 40, QImage::Format_ARGB32);
    for (int y = 0; y < 40; ++y) {
        for (int x = 0; x < 60; ++x)
            image.setPixel(x, y, qRgba(4 * x, 6 * y, 60 * (x % 4), 255));
    }
    return image;
}

// A claim of 20 000 x 20 000 pixels over about a kibibyte: the first million of them, all black.
QByteArray hugePng()
{
    return pngHeader(20000, 20000) + pngChunk("IDAT", qCompress(QByteArray(1000000, '\0')).mid(4)) +
           pngChunk("IEND", {});
}

struct Bad
{
    const char *what;
    QByteArray bytes;
    int length;
};

std::vector<Bad> badBytes()
{
    const QByteArray png = encoded(sample(), "PNG");
    const QByteArray jpeg = encoded(sample(), "JPG");
    const QByteArray bmp = encoded(sample(), "BMP");
    std::vector<Bad> bad{
        {"text", "no image at all", 15},
        {"zeros", QByteArray(500, '\0'), 500},
        {"ones", QByteArray(500, '\xff'), 500},
        {"a PNG of no length", png, 0},
        {"a PNG of negative length", png, -1},
        {"a PNG of the lowest length", png, INT_MIN},
        {"a signature", png, 8},
        {"a header", png, 33},
        {"half a JPEG header", jpeg, 10},
        {"a JPEG signature", jpeg, 2},
        {"a bitmap header", bmp, 20},
        {"20 000 x 20 000 pixels", hugePng(), hugePng().size()},
        {"pixels without end", pngHeader(INT_MAX, INT_MAX), 33},
        {"pixels without height", pngHeader(10, 0), 33},
        {"a portable map", "P6 20000 20000 255\n", 19},
        {"a negative portable map", "P6 -3 -3 255\n", 13},
        {"an empty icon", QByteArray("\0\0\1\0\0\0", 6), 6},
    };
    for (int part = 1; part < 16; ++part)
        bad.push_back({"part of a PNG", png, png.size() * part / 16});
    return bad;
}

// What the readers themselves say about pictures that they cannot read is their own.
void expectQuiet(const MessageLog &log)
{
    for (const MessageLog::Line &line : log.lines)
        EXPECT_TRUE(line.type == QtDebugMsg || line.text.startsWith("libpng") || line.text.contains("JPEG"))
            << line.category.toStdString() << ": " << line.text.toStdString();
}

} // namespace

TEST(BadImages, hugePictureIsSmall)
{
    EXPECT_LT(hugePng().size(), 1200);
    EXPECT_GT(hugePng().size(), 900);
}

TEST(BadImages, pictureOfBadBytesIsEndedAndEmpty)
{
    for (Bad &row : badBytes()) {
        SCOPED_TRACE(::testing::Message() << row.what << ", " << row.length << " bytes");
        const MessageLog log;
        CInkPicTure picture(row.bytes.data(), row.length, QPoint(30, 40));
        EXPECT_EQ(picture.m_pPicture, nullptr);
        EXPECT_EQ(picture.m_bFinished, 1);
        EXPECT_EQ(picture.m_nImageWidth, 0);
        EXPECT_TRUE(isBlank(drawn(picture)));
        expectQuiet(log);
    }
}

TEST(BadImages, fileOfBadBytesIsEmpty)
{
    const QTemporaryDir folder;
    for (const Bad &row : badBytes()) {
        SCOPED_TRACE(::testing::Message() << row.what << ", " << row.length << " bytes");
        QFile file(folder.filePath("picture.png"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(row.bytes.left(std::max(row.length, 0))); // left(-1) would be the whole
        file.close();
        const MessageLog log;
        CInkPicTure picture(file.fileName(), QPoint(30, 40));
        EXPECT_TRUE(picture.m_pPicture->isNull());
        EXPECT_EQ(picture.m_bFinished, 0);
        EXPECT_EQ(picture.m_nImageHeight, 0);
        EXPECT_TRUE(isBlank(drawn(picture)));
        expectQuiet(log);
    }
}

TEST(BadImages, pathsThatAreNoFilesAreEmpty)
{
    const QTemporaryDir folder;
    for (const QString &path : {folder.path(), folder.filePath("missing.png"), folder.filePath("missing/too.png"),
                                QString(), QString(2, QChar::Null), QString(10000, QChar(0x78)), QString("/dev/null"),
                                QString(":/no/resource.png"), QString("file:///etc/hostname")}) {
        const MessageLog log;
        CInkPicTure picture(path, QPoint(30, 40));
        EXPECT_TRUE(picture.m_pPicture->isNull()) << path.left(40).toStdString();
        EXPECT_TRUE(isBlank(drawn(picture)));
    }
}

TEST(BadImages, textOfBadBytesIsCommittedAndEmpty)
{
    for (Bad &row : badBytes()) {
        SCOPED_TRACE(::testing::Message() << row.what << ", " << row.length << " bytes");
        const MessageLog log;
        CInkText text;
        text.SetTextImage(row.bytes.data(), row.length);
        ASSERT_NE(text.GetTextImage(), nullptr);
        EXPECT_TRUE(text.GetTextImage()->isNull());
        EXPECT_EQ(text.m_bFinished, 1);
        EXPECT_TRUE(isBlank(drawn(text)));
        expectQuiet(log);
    }
}

TEST(BadImages, fillOfBadBytesIsCommittedAndEmpty)
{
    for (Bad &row : badBytes()) {
        SCOPED_TRACE(::testing::Message() << row.what << ", " << row.length << " bytes");
        const MessageLog log;
        CInkFloodFillEx fill({60, 40});
        fill.SetOwnerIP(1);
        fill.SetDrawerIP(2);
        feed(fill, PT_DOWN, 3, 3);
        fill.InitPicture(row.bytes.data(), row.length);
        EXPECT_EQ(fill.m_bFinished, 0);
        fill.SetFloodFillBitmap(row.bytes.data(), row.length);
        EXPECT_EQ(fill.m_bFinished, 1);
        EXPECT_TRUE(fill.GetBitmap()->isNull());
        Layers layers;
        layers.draw(fill);
        EXPECT_TRUE(isBlank(layers.surface));
        EXPECT_TRUE(isBlank(layers.ink));
        EXPECT_TRUE(isBlank(layers.page));
        expectQuiet(log);
    }
}

TEST(BadImages, partOfAJpegIsAWholeImageOrNone)
{
    QByteArray jpeg = encoded(sample(), "JPG");
    int decoded = 0;
    for (int part = 0; part <= 32; ++part) {
        const MessageLog log; // the reader says a lot, each time something else
        const int length = jpeg.size() * part / 32;
        CInkText text;
        text.SetTextImage(jpeg.data(), length);
        const QSize size = text.GetTextImage()->size();
        EXPECT_TRUE(size == QSize(60, 40) || size == QSize(0, 0)) << length;
        decoded += size == QSize(60, 40);
        drawn(text);

        const CInkPicTure picture(jpeg.data(), length, QPoint(0, 0));
        EXPECT_EQ(picture.m_nImageWidth, size.width());
        EXPECT_EQ(picture.m_nImageHeight, size.height());
    }
    EXPECT_GE(decoded, 1);
    EXPECT_LE(decoded, 30);
}

TEST(BadImages, nullPointersOfAnyLengthAreAbsorbed)
{
    for (const int length : {0, 1, 100, -1, INT_MAX, INT_MIN}) {
        SCOPED_TRACE(length);
        CInkPicTure picture(nullptr, length, QPoint(30, 40));
        EXPECT_EQ(picture.m_pPicture, nullptr);
        EXPECT_EQ(picture.m_bFinished, 1);
        CInkText text;
        text.SetTextImage(nullptr, length);
        text.SetTextImage(static_cast<QImage *>(nullptr));
        EXPECT_EQ(text.GetTextImage(), nullptr);
        EXPECT_EQ(text.m_bFinished, 0);
        CInkFloodFillEx fill({60, 40});
        fill.SetFloodFillBitmap(nullptr, length);
        EXPECT_EQ(fill.GetBitmap(), nullptr);
        EXPECT_EQ(fill.m_bFinished, 1);
    }
}

TEST(BadImages, imagesOfEveryFormatArePaintedAsThePainterDoes)
{
    for (int format = QImage::Format_Mono; format < QImage::NImageFormats; ++format) {
        SCOPED_TRACE(::testing::Message() << "format " << format);
        const MessageLog log;
        QImage image = sample().convertToFormat(QImage::Format(format));
        CInkText text;
        text.SetTextImage(&image);
        EXPECT_EQ(text.GetTextImage()->format(), QImage::Format(format));
        const QImage expected = painted([&](QPainter &painter) {
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setClipRect(0, 0, 400, 300);
            painter.drawImage(QRectF(5, 5, 60, 40), image, QRectF(0, 0, 60, 40));
        });
        EXPECT_TRUE(samePixels(drawn(text), expected));
        EXPECT_FALSE(isBlank(expected));

        CInkPicTure picture(&image, QPoint(30, 40));
        EXPECT_EQ(picture.m_pPicture->format(), QImage::Format(format));
        EXPECT_FALSE(isBlank(drawn(picture)));
        expectQuiet(log);
    }
}

TEST(BadImages, imagesOfOnePixelOrOfNone)
{
    QImage dot(1, 1, QImage::Format_ARGB32_Premultiplied), none;
    dot.fill(Qt::red);
    const MessageLog log;
    CInkText text;
    text.SetTextImage(&none);
    EXPECT_TRUE(isBlank(drawn(text)));
    text.SetTextImage(&dot);
    const QImage seen = drawn(text);
    EXPECT_EQ(seen.pixel(5, 5), 0xFFFF0000u);
    EXPECT_EQ(seen.pixel(6, 5), 0u);
    EXPECT_EQ(seen.pixel(5, 6), 0u);
    CInkPicTure picture(&none, QPoint(10, 10));
    EXPECT_TRUE(isBlank(drawn(picture)));
    picture.InitPicture(&dot);
    picture.InitGraphData(10, 10);
    picture.FinishGraph();
    EXPECT_EQ(drawn(picture).pixel(10, 10), 0xFFFF0000u);
    expectQuiet(log);
}

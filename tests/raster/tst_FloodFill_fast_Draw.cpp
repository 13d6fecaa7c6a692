// The layers after a Draw of the fill against its literal form, where all of the bitmap is painted on every layer: in
// any state of their painters, in any format.

#include "CInkFloodFill.h"
#include "CInkFloodFillEx.h"
#include "Canvas.h"
#include "Exact.h"
#include "LiteralFill.h"
#include "RandomCases.h"

#include <QtCore/QBuffer>
#include <QtGui/QPaintEngine>
#include <QtGui/QPainterPath>
#include <QtGui/QPicture>

#include <gtest/gtest.h>

#include <vector>

namespace {

QImage::Format randomFormat(Random &random)
{
    const QImage::Format main[] = {QImage::Format_RGB32, QImage::Format_ARGB32, QImage::Format_ARGB32_Premultiplied,
                                   QImage::Format_RGB16, QImage::Format_RGB888};
    return random.oneIn(5) ? QImage::Format(random.from(QImage::Format_RGB32, QImage::NImageFormats - 1))
                           : random.of(main);
}

void fillWithAnyBytes(QImage &image, Random &random)
{
    for (int y = 0; y < image.height(); ++y) {
        uchar *row = image.scanLine(y);
        for (int i = 0; i < image.bytesPerLine(); ++i)
            row[i] = uchar(random.below(256));
    }
}

// White, or noise with some boxes of one colour to fill.
QImage randomLayer(const QSize &size, Random &random)
{
    const QImage::Format format = randomFormat(random);
    QImage layer(size, QImage::Format_ARGB32);
    layer.fill(Qt::white);
    if (random.oneIn(2))
        return layer.convertToFormat(format);
    fillWithAnyBytes(layer, random);
    layer = layer.convertToFormat(format);
    for (int i = 0; i < 6; ++i) {
        const QRect box(random.below(size.width()), random.below(size.height()), random.from(1, 30),
                        random.from(1, 12));
        QPainter painter(&layer);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(box, random.oneIn(2) ? QColor(10, 200, 90) : QColor(10, 200, 90, 120));
    }
    return layer;
}

void setTransform(QPainter &painter, int kind, Random &random)
{
    const int x = random.from(-20, 20);
    const int y = random.from(-9, 9);
    switch (kind) {
    case 0:
        painter.translate(x, y);
        break;
    case 1:
        painter.translate(x + 0.5, y + random.below(100) / 100.0);
        break;
    case 2:
        painter.scale(random.of({0.5, 1.25, 2.0, -1.0}), 1.0);
        break;
    case 3:
        painter.rotate(random.from(-30, 30));
        break;
    case 4:
        painter.setWindow(x, y, 40, 20);
        break;
    case 5:
        painter.setTransform(QTransform(1, 0, 0.001, 0, 1, 0, x, y, 1));
        break;
    case 6:
        painter.translate(random.of({1e9, -1e9, 16777216.0, -16777216.0, 16777215.0}), 0);
        break;
    default:
        break;
    }
}

void setClip(QPainter &painter, int kind, Random &random)
{
    const QRect box(random.from(-5, 60), random.from(-5, 15), random.from(0, 70), random.from(0, 20));
    QPainterPath path;
    path.addEllipse(QRectF(box).translated(0.3, 0.4));
    switch (kind) {
    case 0:
        painter.setClipRect(box);
        break;
    case 1:
        painter.setClipRegion(QRegion(box, QRegion::Ellipse));
        break;
    case 2:
        painter.setClipPath(path);
        break;
    default:
        break;
    }
}

// The same state for the same seed; mostly what hosts use. Modes other than SourceOver come without partial coverage:
// there Qt's own last bit depends on where the pixels lie in memory.
void setRandomState(QPainter &painter, unsigned seed)
{
    Random random(seed);
    if (random.oneIn(4)) {
        painter.setCompositionMode(QPainter::CompositionMode(random.below(QPainter::CompositionMode_Exclusion + 1)));
        setTransform(painter, random.of({0, 7}), random);
        setClip(painter, random.of({0, 3}), random);
        return;
    }
    setTransform(painter, random.below(16), random);
    setClip(painter, random.below(6), random);
    painter.setRenderHint(QPainter::Antialiasing, random.oneIn(3));
    painter.setRenderHint(QPainter::SmoothPixmapTransform, random.oneIn(3));
    if (random.oneIn(3))
        painter.setOpacity(random.of({0.0, 0.003, 0.4, 0.5, 0.998}));
}

// Writes down the source rectangles of the images that it is to paint.
class Recorder : public QPaintEngine
{
public:
    Recorder()
        : QPaintEngine(AllFeatures)
    {
    }
    bool begin(QPaintDevice * /*device*/) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState & /*state*/) override {}
    void drawPixmap(const QRectF & /*rect*/, const QPixmap & /*pixmap*/, const QRectF & /*source*/) override {}
    void drawImage(const QRectF & /*rect*/, const QImage & /*image*/, const QRectF &source,
                   Qt::ImageConversionFlags /*flags*/) override
    {
        sources.push_back(source);
    }
    Type type() const override { return User; }

    std::vector<QRectF> sources;
};

// An image that is painted on by an engine of its own.
class RecordedImage : public QImage
{
public:
    explicit RecordedImage(const QSize &size)
        : QImage(size, QImage::Format_ARGB32_Premultiplied)
    {
    }
    QPaintEngine *paintEngine() const override { return &recorder; }

    mutable Recorder recorder;
};

struct Sheets
{
    explicit Sheets(const QSize &size, Random &random)
        : page(randomLayer(size, random))
        , surface(randomLayer(size, random))
        , ink(randomLayer(size, random))
    {
    }
    Sheets(const Sheets &other)
        : page(other.page.copy())
        , surface(other.surface.copy())
        , ink(other.ink.copy())
    {
    }

    void draw(CInkFloodFill &fill, unsigned seed, bool literal)
    {
        QImage none(1, 1, QImage::Format_RGB32);
        QPainter p1(&page), p2(&surface), p3(&none), p4(&ink);
        setRandomState(p1, seed);
        setRandomState(p2, seed + 1);
        setRandomState(p4, seed + 2);
        literal ? literalDraw(fill, p1, p2, p4) : fill.Draw(p1, p2, p3, p4, QRect(), 0, 0);
    }

    QImage page, surface, ink;
};

// Pressed at a point of its canvas.
class Fill : public CInkFloodFill
{
public:
    Fill(const QRect &canvas, const QPoint &seed, const QColor &color)
    {
        m_rcCanvas = canvas;
        m_color = color;
        feed(*this, PT_DOWN, seed.x(), seed.y());
    }
};

} // namespace

TEST(FloodFillFastDraw, randomLayersEqualTheLiteralOnes)
{
    const unsigned cases = caseCount("INK_FILL_CASES", 10000);
    unsigned filled = 0;
    for (unsigned seed = 1; seed <= cases; ++seed) {
        SCOPED_TRACE(::testing::Message() << "seed " << seed);
        Random random(seed);
        const QSize size(random.from(1, 90), random.from(1, 24));
        QRect canvas(QPoint(), size);
        if (random.oneIn(4))
            canvas.setSize({random.from(1, 100), random.from(1, 30)});
        if (random.oneIn(8))
            canvas.translate(random.from(-9, 9), random.from(-9, 9));
        const QPoint at(random.below(size.width()), random.below(size.height()));
        Sheets fast(size, random);
        Sheets literal(fast);
        const QColor same(fast.page.pixel(at));
        const QColor color = random.of({QColor(255, 0, 0), QColor(0, 90, 0, 100), same});
        Fill ours(canvas, at, color);
        Fill plain(canvas, at, color);
        for (const int repaint : {0, 1}) { // the second mostly has nothing to fill
            fast.draw(ours, seed * 10 + unsigned(repaint), false);
            literal.draw(plain, seed * 10 + unsigned(repaint), true);
            EXPECT_TRUE(sameBits(fast.page, literal.page));
            EXPECT_TRUE(sameBits(fast.surface, literal.surface));
            EXPECT_TRUE(sameBits(fast.ink, literal.ink));
            EXPECT_TRUE(samePixels(*ours.m_pImage, *plain.m_pImage));
            EXPECT_EQ(ours.m_rcFillBounds, plain.m_rcFillBounds);
            EXPECT_EQ(ours.m_bFilled, plain.m_bFilled);
        }
        filled += ours.m_bFilled != 0;
        if (HasFailure())
            break;
    }
    EXPECT_GT(filled, cases / 3);
    EXPECT_LT(filled, cases);
    std::printf("seeds 1 to %u, %u of them with something to fill\n", cases, filled);
}

TEST(FloodFillFastDraw, repaintWithNothingToFillChangesAPlainLayerAlone)
{
    // A plain pixel is premultiplied and back again: the colour of an empty one is lost.
    const struct
    {
        QImage::Format format;
        QRgb before, after;
    } cases[] = {{QImage::Format_ARGB32, 0x00c86432U, 0x00000000U},
                 {QImage::Format_ARGB32_Premultiplied, 0x00c86432U, 0x00c86432U},
                 {QImage::Format_RGB32, 0xffc86432U, 0xffc86432U},
                 {QImage::Format_RGB888, 0xffc86432U, 0xffc86432U}};
    for (const auto &row : cases) {
        SCOPED_TRACE(row.format);
        QImage page(4, 2, QImage::Format_RGB32);
        page.fill(Qt::red);
        QImage surface(4, 2, row.format);
        for (int i = 0; i < 8; ++i)
            surface.setPixel(i % 4, i / 4, row.before);
        QImage ink = surface.copy();
        Fill fill(page.rect(), {0, 0}, Qt::red);
        {
            QPainter p1(&page), p2(&surface), p3, p4(&ink);
            fill.Draw(p1, p2, p3, p4, QRect(), 0, 0);
        }
        EXPECT_EQ(fill.m_bFilled, 0);
        for (int i = 0; i < 8; ++i) {
            EXPECT_EQ(surface.pixel(i % 4, i / 4), row.after);
            EXPECT_EQ(ink.pixel(i % 4, i / 4), row.after);
        }
    }
}

TEST(FloodFillFastDraw, anyBytesStayUnderNothing)
{
    // Also those that are no premultiplied colour, and the unused ones of RGB32.
    Random random(11);
    for (const QImage::Format format :
         {QImage::Format_RGB32, QImage::Format_ARGB32_Premultiplied, QImage::Format_RGB16, QImage::Format_RGB888}) {
        QImage all(256, 256, format);
        fillWithAnyBytes(all, random);
        if (format == QImage::Format_RGB16) {
            for (int i = 0; i < 65536; ++i)
                reinterpret_cast<quint16 *>(all.scanLine(i / 256))[i % 256] = quint16(i);
        }
        for (int i = 0; i < 40; ++i) {
            QImage surfaces[2];
            for (const bool literal : {false, true}) {
                QImage page(all.size(), QImage::Format_RGB32);
                page.fill(Qt::red);
                surfaces[literal] = all.copy();
                Fill fill(page.rect(), {0, 0}, Qt::red);
                QPainter p1(&page), p2(&surfaces[literal]), idle;
                setRandomState(p2, unsigned(i));
                p2.setCompositionMode(QPainter::CompositionMode_SourceOver);
                literal ? literalDraw(fill, p1, p2, idle) : fill.Draw(p1, p2, idle, idle, QRect(), 0, 0);
            }
            EXPECT_TRUE(sameBits(surfaces[1], all)) << i;
            EXPECT_TRUE(sameBits(surfaces[0], all)) << i;
        }
    }
}

TEST(FloodFillFastDraw, fillOfOnePixelIsRoundedAsThePartOfABitmapThatItIs)
{
    for (const int width : {1, 2, 5}) {
        for (const double opacity : {0.1, 0.4, 0.7, 0.998}) {
            QImage pages[2];
            for (const bool literal : {false, true}) {
                QImage page(width, 1, QImage::Format_RGB16);
                page.fill(Qt::black);
                page.setPixel(width / 2, 0, 0xffffffffU);
                Fill fill(page.rect(), {width / 2, 0}, Qt::red);
                QPainter p1(&page), idle;
                p1.setOpacity(opacity);
                literal ? literalDraw(fill, p1, idle, idle) : fill.Draw(p1, idle, idle, idle, QRect(), 0, 0);
                p1.end();
                pages[literal] = page;
            }
            EXPECT_TRUE(sameBits(pages[0], pages[1])) << width << " pixels, " << opacity;
        }
    }
}

TEST(FloodFillFastDraw, transparentPixelsErasePastTheFillInOtherModes)
{
    for (const bool nothingToFill : {false, true}) {
        QImage page(4, 1, QImage::Format_RGB32);
        page.fill(nothingToFill ? Qt::red : Qt::white);
        page.setPixel(1, 0, 0xff000000U);
        QImage surface = blankCanvas({5, 1}, Qt::green);
        QImage ink = surface.copy();
        Fill fill(page.rect(), {0, 0}, Qt::red);
        {
            QPainter p1(&page), p2(&surface), p3, p4(&ink);
            p2.setCompositionMode(QPainter::CompositionMode_Source);
            fill.Draw(p1, p2, p3, p4, QRect(), 0, 0);
        }
        const QRgb first = nothingToFill ? 0U : 0xffff0000U;
        EXPECT_EQ(surface.pixel(0, 0), first);
        EXPECT_EQ(surface.pixel(1, 0), 0U);
        EXPECT_EQ(surface.pixel(3, 0), 0U);
        EXPECT_EQ(surface.pixel(4, 0), 0xff00ff00U);
        EXPECT_EQ(ink.pixel(0, 0), nothingToFill ? 0xff00ff00U : first);
        EXPECT_EQ(ink.pixel(1, 0), 0xff00ff00U);
    }
}

TEST(FloodFillFastDraw, layersThatAreNoImagesGetTheWholeBitmap)
{
    for (const QColor &color : {QColor(Qt::red), QColor(Qt::white)}) { // fills one pixel, and nothing
        QPicture pictures[2];
        for (const bool literal : {false, true}) {
            QImage page(6, 4, QImage::Format_RGB32);
            page.fill(Qt::black);
            page.setPixel(2, 1, 0xffffffffU);
            Fill fill(page.rect(), {2, 1}, color);
            QPainter p1(&page), recorder(&pictures[literal]), idle;
            literal ? literalDraw(fill, p1, recorder, idle) : fill.Draw(p1, recorder, idle, idle, QRect(), 0, 0);
        }
        const auto bytes = [](const QPicture &picture) { return QByteArray(picture.data(), int(picture.size())); };
        EXPECT_EQ(bytes(pictures[0]), bytes(pictures[1]));
        EXPECT_GT(pictures[0].size(), 100U);
    }
}

TEST(FloodFillFastDraw, imagesWithAnotherEngineGetTheWholeBitmap)
{
    for (const QColor &color : {QColor(Qt::red), QColor(Qt::white)}) { // fills one pixel, and nothing
        QImage page(6, 4, QImage::Format_RGB32);
        page.fill(Qt::black);
        page.setPixel(2, 1, 0xffffffffU);
        RecordedImage surface(page.size());
        Fill fill(page.rect(), {2, 1}, color);
        {
            QPainter p1(&page), p2(&surface), idle;
            fill.Draw(p1, p2, idle, idle, QRect(), 0, 0);
        }
        ASSERT_EQ(surface.recorder.sources.size(), 1U);
        EXPECT_EQ(surface.recorder.sources[0].toRect(), QRect(0, 0, 6, 4));
    }
}

TEST(FloodFillFastDraw, receivedBitmapIsPaintedAsItIsWhateverItsSize)
{
    for (const QSize &size : {QSize(3, 2), QSize(6, 4), QSize(2, 1), QSize(3, 9)}) {
        SCOPED_TRACE(::testing::Message() << size.width() << " x " << size.height());
        QImage bitmap(size, QImage::Format_ARGB32);
        bitmap.fill(QColor(255, 0, 0, 77));
        QByteArray file;
        QBuffer buffer(&file);
        buffer.open(QIODevice::WriteOnly);
        bitmap.save(&buffer, "PNG");

        CInkFloodFillEx fill(QSize(3, 2));
        fill.SetDrawerIP(5);
        feed(fill, PT_DOWN, 0, 0);
        fill.SetFloodFillBitmap(file.data(), file.size());
        QImage surface = blankCanvas({9, 9}), page = surface.copy(), background = surface.copy(), ink = surface.copy();
        {
            QPainter p1(&page), p2(&surface), p3(&background), p4(&ink);
            fill.Draw(p1, p2, p3, p4, QRect(0, 0, 9, 9), 0, 0);
        }
        const QImage expected = painted(
            [&](QPainter &painter) { painter.drawImage(QRectF(0, 0, 3, 2), bitmap, QRectF(0, 0, 3, 2)); }, {9, 9});
        EXPECT_TRUE(samePixels(surface, expected));
        EXPECT_TRUE(samePixels(page, expected));
        EXPECT_TRUE(samePixels(ink, expected));
        EXPECT_TRUE(isBlank(background));
        EXPECT_FALSE(isBlank(surface));
    }
}

TEST(FloodFillFastDraw, sharedFillShowsTheSameAtItsFirstDrawAndLater)
{
    QImage page(70, 8, QImage::Format_RGB32);
    page.fill(Qt::white);
    for (int y = 0; y < 8; ++y)
        page.setPixel(66, y, 0xff000000U);
    CInkFloodFillEx fill(page.size());
    fill.SetColor(Qt::red);
    feed(fill, PT_DOWN, 68, 3);
    fill.FinishGraph();
    QImage expected = blankCanvas(page.size());
    for (int y = 0; y < 8; ++y) {
        for (const int x : {67, 68, 69})
            expected.setPixel(x, y, 0xffff0000U);
    }
    for (int i = 0; i < 2; ++i) {
        QImage surface = blankCanvas(page.size()), ink = surface.copy();
        {
            QPainter p1(&page), p2(&surface), p3, p4(&ink);
            fill.Draw(p1, p2, p3, p4, page.rect(), 0, 0);
        }
        EXPECT_TRUE(samePixels(surface, expected));
        EXPECT_TRUE(samePixels(ink, expected));
    }
}

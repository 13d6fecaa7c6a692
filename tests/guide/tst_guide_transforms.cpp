// What the guide says of transforms, in its table and in its examples.

#include "Exact.h"
#include "Output.h"
#include "Tools.h"

#include "CInk1ArrowLine.h"
#include "CInkFloodFill.h"
#include "CInkRectangle.h"
#include "CInkRgnSelect.h"

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>

#include <gtest/gtest.h>

namespace {

constexpr QRect kCanvas(0, 0, 400, 300);
const QPoint kShift(7, 5);

// From the guide's table: what stands beside a class.
QString rowOf(const std::string &tool)
{
    QFile page(GUIDE);
    if (!page.open(QIODevice::ReadOnly))
        return {};
    const QString name = QString::fromStdString(tool).remove("_penStyle");
    for (const QString &line : QString::fromUtf8(page.readAll()).split('\n')) {
        const QStringList cells = line.split('|');
        if (cells.size() == 4 && cells[1].contains('`' + name + '`'))
            return cells[2].trimmed();
    }
    return {};
}

template <typename Prepare>
QImage drawnAfter(CInkGraph &graph, Prepare prepare, double ratio = 1)
{
    QImage image = blankCanvas();
    image.setDevicePixelRatio(ratio);
    QPainter painter(&image);
    prepare(painter);
    QRect all = kCanvas;
    graph.Draw(painter, all);
    if (dynamic_cast<CInk1ArrowLine *>(&graph)) {
        painter.restore();
        painter.restore();
    }
    painter.end();
    image.setDevicePixelRatio(1);
    return image;
}

QImage shifted(const QImage &image)
{
    return painted([&](QPainter &painter) { painter.drawImage(kShift, image); });
}

class Transforms : public ::testing::TestWithParam<Tool>
{
protected:
    const Graph graph{GetParam().make()};

    // In progress, edited and committed.
    template <typename Check>
    void inEachPhase(Check check)
    {
        feed(*graph, PT_DOWN, 100, 100);
        feed(*graph, PT_MOVE, 160, 130);
        check("in progress");
        feed(*graph, PT_MOVE, 200, 160);
        feed(*graph, PT_UP, 200, 160);
        for (const QPoint &tap : GetParam().taps)
            drag(*graph, tap, tap);
        check("formed");
        graph->FinishGraph();
        if (GetParam().handOver)
            GetParam().handOver(*graph);
        check("committed");
    }
};

INSTANTIATE_TEST_SUITE_P(AllTools, Transforms, ::testing::ValuesIn(allTools()),
                         [](const auto &row) { return row.param.name; });

} // namespace

TEST_P(Transforms, tableSaysWhatATranslationDoes)
{
    const QString row = rowOf(GetParam().name);
    ASSERT_TRUE(
        QStringList({"the host's", "its own", "none: they work on the layers' pixels", "none: it paints nothing"})
            .contains(row))
        << row.toStdString();
    inEachPhase([&](const char *phase) {
        SCOPED_TRACE(phase);
        const QImage plain = drawnAfter(*graph, [](QPainter &) {});
        const QImage moved = drawnAfter(*graph, [](QPainter &painter) { painter.translate(kShift); });
        if (row == "none: it paints nothing") {
            EXPECT_TRUE(isBlank(moved));
        } else if (row == "the host's") {
            EXPECT_EQ(moved, shifted(plain));
        } else if (row == "its own") {
            EXPECT_EQ(moved, plain);
        }
    });
}

// Below the world transform are the window and the image's ratio, which no tool replaces.
TEST_P(Transforms, windowAndRatioReachEveryTool)
{
    if (rowOf(GetParam().name).startsWith("none"))
        return;
    const auto enlarge = [](QPainter &painter) {
        painter.setWindow(0, 0, 320, 240);
        painter.setViewport(0, 0, 400, 300);
    };
    inEachPhase([&](const char *phase) {
        SCOPED_TRACE(phase);
        const QImage plain = drawnAfter(*graph, [](QPainter &) {});
        const QImage large = drawnAfter(*graph, enlarge);
        EXPECT_EQ(large, drawnAfter(
                             *graph, [](QPainter &) {}, 1.25));
        EXPECT_EQ(isBlank(plain), isBlank(large));
        EXPECT_EQ(isBlank(plain), large == plain);
    });
}

namespace {

// Four layers of 200 x 200 pixels with a red box of width 2 around (20,20) to (80,80), in the layers' coordinates.
struct RatioLayers
{
    explicit RatioLayers(double ratio)
    {
        for (QImage *image : {&layers.page, &layers.surface, &layers.background, &layers.ink})
            image->setDevicePixelRatio(ratio);
        CInkRectangle box;
        box.SetColor(Qt::red);
        box.SetWidth(2);
        drag(box, {20, 20}, {80, 80});
        box.FinishGraph();
        layers.draw(box, layers.rect());
    }

    Guide::Layers layers{QSize(200, 200)};
};

constexpr QRgb kRed = 0xFFFF0000, kWhite = 0xFFFFFFFF, kGreen = 0xFF00FF00;

} // namespace

// A box is painted where it would be without the transform, and clipped where it would be with it.
TEST(Transform, boxVanishesUnderATranslationThatIsWiderThanItsPlace)
{
    CInkRectangle box;
    box.SetColor(Qt::red);
    drag(box, {20, 20}, {80, 80});
    box.FinishGraph();
    const QImage plain = drawnAfter(box, [](QPainter &) {});
    EXPECT_EQ(plain.pixel(20, 50), kRed);
    EXPECT_EQ(drawnAfter(box, [](QPainter &painter) { painter.scale(2, 2); }), plain);
    EXPECT_TRUE(isBlank(drawnAfter(box, [](QPainter &painter) { painter.translate(200, 0); })));
}

// On layers of ratio 2 the box is where it belongs, at twice its place in pixels, and the press is taken for a pixel.
TEST(Transform, fillOnLayersOfRatioTwoFillsAnotherPlace)
{
    RatioLayers plain(1), dense(2);
    EXPECT_EQ(plain.layers.page.pixel(20, 50), kRed);
    EXPECT_EQ(dense.layers.page.pixel(40, 100), kRed);
    for (RatioLayers *layers : {&plain, &dense}) {
        CInkFloodFill fill(QSize(200, 200));
        fill.SetColor(QColor(0, 255, 0));
        feed(fill, PT_DOWN, 30, 30); // in the box
        layers->layers.draw(fill, layers->layers.rect());
    }
    EXPECT_EQ(plain.layers.page.pixel(50, 50), kGreen);
    EXPECT_EQ(plain.layers.page.pixel(100, 100), kWhite);

    EXPECT_EQ(dense.layers.page.pixel(100, 10), kGreen); // beside the box: pixel (30,30) is there
    EXPECT_EQ(dense.layers.page.pixel(60, 60), kGreen);  // in the box: the filled pixels are painted enlarged
    EXPECT_EQ(dense.layers.page.pixel(40, 60), kGreen);  // over its outline
    EXPECT_EQ(dense.layers.page.pixel(100, 100), kWhite);
}

TEST(Transform, selectionOnLayersOfRatioTwoLiftsAnotherPlace)
{
    RatioLayers plain(1), dense(2);
    const auto lifted = [](RatioLayers &layers) {
        CInkRgnSelect selection;
        drag(selection, {10, 10}, {50, 50}); // over the box's top left corner
        layers.layers.draw(selection, layers.layers.rect());
        return selection.m_pImage->copy();
    };
    const QImage ofPlain = lifted(plain), ofDense = lifted(dense);
    EXPECT_EQ(ofPlain.size(), QSize(41, 41));
    EXPECT_EQ(ofPlain.pixel(10, 20), kRed);
    EXPECT_EQ(ofDense.size(), QSize(41, 41));
    EXPECT_EQ(ofDense.pixel(10, 20), 0U);               // pixel (20,30) of the layer
    EXPECT_EQ(ofDense.pixel(30, 35), kRed);             // pixel (40,45), which lies at (20,22.5)
    EXPECT_EQ(dense.layers.page.pixel(40, 60), kWhite); // the hole is where it belongs
    EXPECT_EQ(dense.layers.page.pixel(40, 120), kRed);
}

TEST(Transform, zoomedPageIsTheSurfaceEnlarged)
{
    const RatioLayers page(1);
    const QImage shown =
        painted([&](QPainter &painter) { Guide::paintZoomed(painter, page.layers, 2, QPointF(10, 10)); }, {100, 100});
    for (int y = 0; y < 100; ++y) {
        for (int x = 0; x < 100; ++x)
            ASSERT_EQ(shown.pixel(x, y), page.layers.surface.pixel(10 + x / 2, 10 + y / 2)) << x << ' ' << y;
    }
}

TEST(Transform, screenOfRatioTwoShowsEachPixelOnce)
{
    const RatioLayers page(1);
    QImage screen = blankCanvas({200, 200});
    screen.setDevicePixelRatio(2);
    QPainter painter(&screen);
    Guide::paintSharp(painter, page.layers, 2);
    painter.end();
    screen.setDevicePixelRatio(1);
    EXPECT_EQ(screen.convertToFormat(QImage::Format_RGB32), page.layers.surface);
}

TEST(Transform, thumbnailKeepsTheProportions)
{
    const Guide::Layers page(QSize(400, 300));
    const QImage small = Guide::thumbnail(page, {100, 100});
    EXPECT_EQ(small.size(), QSize(100, 75));
    EXPECT_EQ(small.pixel(50, 50), kWhite);
}

namespace {

// The pixels of the one picture in a PDF file, where those are stored without loss.
QByteArray pixelsIn(const QByteArray &pdf)
{
    const int picture = pdf.indexOf("/Subtype /Image");
    const int start = pdf.indexOf("stream\n", picture) + 7;
    const int end = pdf.indexOf("endstream", start);
    if (picture < 0 || !pdf.mid(picture, start - picture).contains("FlateDecode"))
        return {};
    QByteArray packed(4, 0); // where qUncompress expects the size
    packed[1] = 2;
    return qUncompress(packed + pdf.mid(start, end - start));
}

} // namespace

TEST(Transform, pdfHoldsThePagePixelForPixel)
{
    const RatioLayers page(1);
    const QTemporaryDir folder;
    const QString path = folder.filePath("page.pdf");
    ASSERT_TRUE(Guide::writePdf(path, page.layers));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray pixels = pixelsIn(file.readAll());
    ASSERT_EQ(pixels.size(), 200 * 200 * 3);
    const QImage stored(reinterpret_cast<const uchar *>(pixels.constData()), 200, 200, 600, QImage::Format_RGB888);
    EXPECT_EQ(stored.convertToFormat(QImage::Format_RGB32), page.layers.page);
    EXPECT_FALSE(Guide::writePdf(folder.filePath("no/such/folder.pdf"), page.layers));
}

TEST(Transform, enlargedObjectFillsTheTarget)
{
    CInkRectangle box;
    box.SetColor(Qt::red);
    box.SetWidth(2);
    drag(box, {20, 20}, {80, 80});
    box.FinishGraph();
    const QImage shown = painted(
        [&](QPainter &painter) { Guide::paintEnlarged(painter, box, QRect(0, 0, 100, 100), QRect(50, 0, 200, 200)); });
    EXPECT_EQ(shown.pixel(50 + 40, 100), kRed); // the left edge, 4 pixels wide now
    EXPECT_EQ(shown.pixel(50 + 36, 100), 0U);
    EXPECT_EQ(shown.pixel(50 + 100, 100), 0U);
    EXPECT_EQ(shown.pixel(50 + 160, 100), kRed); // the right edge
}

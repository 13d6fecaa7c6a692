// The paint bucket: its seed, and exactly which pixels it fills.

#include "CInkFloodFill.h"
#include "Exact.h"
#include "Flood.h"
#include "MessageLog.h"

#include <gtest/gtest.h>

#include <climits>
#include <limits>
#include <random>

namespace {

const QColor kRed(255, 0, 0);
const QRect kSentinel(1, 2, 3, 4);

// Pressed on a canvas of the given size.
class Fill : public CInkFloodFill
{
public:
    Fill(const QSize &canvas, int x, int y, const QColor &color = kRed)
        : CInkFloodFill(canvas)
    {
        SetColor(color);
        feed(*this, PT_DOWN, x, y);
    }
};

// One Draw against the plain fill: page, bitmap, bounds, flag, and what the layers show.
void expectPlainFlood(const QImage &page, const QSize &canvas, const QPoint &seed, const QColor &color)
{
    Flood expected = plainFlood(page, canvas, seed, color, QRect(seed, seed));
    Fill fill(canvas, seed.x(), seed.y(), color);
    const FilledLayers layers(fill, page);
    EXPECT_EQ(fill.m_bFilled != 0, expected.filled);
    EXPECT_EQ(fill.m_rcFillBounds, expected.bounds);
    ASSERT_NE(fill.m_pImage, nullptr);
    EXPECT_TRUE(samePixels(*fill.m_pImage, expected.bitmap));

    const QRectF all(QPointF(0, 0), QSizeF(canvas));
    QImage shown = blankCanvas(page.size());
    QPainter(&shown).drawImage(all, expected.bitmap, all);
    QPainter(&expected.page).drawImage(all, expected.bitmap, all);
    EXPECT_TRUE(samePixels(layers.page, expected.page));
    EXPECT_TRUE(samePixels(layers.surface, shown));
    EXPECT_TRUE(samePixels(layers.ink, shown));
    EXPECT_TRUE(isBlank(layers.background));
}

QImage randomPage(std::mt19937 &random, const QSize &size, const std::vector<QRgb> &colors)
{
    QImage page(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            page.setPixel(x, y, colors[random() % colors.size()]);
    }
    return page;
}

} // namespace

TEST(CInkFloodFill, newFillHasNoSeed)
{
    CInkFloodFill plain;
    EXPECT_TRUE(plain.m_graphData.isEmpty());
    EXPECT_NULL_RECT(plain.m_rcCanvas);
    CInkFloodFill sized(QSize(40, 30));
    ASSERT_EQ(sized.m_graphData.size(), 10);
    for (const QPointF &point : qAsConst(sized.m_graphData))
        EXPECT_POINT(point, 0.0, 0.0);
    EXPECT_EDGES(sized.m_rcCanvas, 0, 0, 39, 29);
    EXPECT_EDGES(sized.GetUpdateRect(), 0, 0, 39, 29);
    for (CInkFloodFill *fill : {&plain, &sized}) {
        EXPECT_NULL_RECT(fill->m_rcFillBounds);
        EXPECT_EQ(fill->m_bFilled, 0);
        EXPECT_EQ(fill->m_pImage, nullptr);
        EXPECT_EQ(fill->GetPointCount(), 0);
        EXPECT_FALSE(fill->FinishGraph());
        EXPECT_EQ(fill->m_bFinished, 0);
        EXPECT_EQ(fill->m_bHideHotShape, 0);
    }
}

TEST(CInkFloodFill, canvasRunsFromTheOriginToTheLastPixel)
{
    const struct
    {
        QSize size;
        int right, bottom;
    } cases[] = {{{40, 30}, 39, 29}, {{1, 1}, 0, 0}, {{0, 0}, -1, -1}, {{-5, 7}, -6, 6}};
    for (const auto &row : cases) {
        CInkFloodFill fill;
        fill.SetCanvasSize(row.size);
        EXPECT_EDGES(fill.m_rcCanvas, 0, 0, row.right, row.bottom);
        EXPECT_EDGES(fill.GetUpdateRect(), 0, 0, row.right, row.bottom);
    }
}

TEST(CInkFloodFill, onlyAPressDoesAnything)
{
    for (const int code : {INT_MIN, -1, 0, 2, 3, 4, 5, 6, 99}) {
        CInkFloodFill fresh(QSize(40, 30));
        Fill pressed({40, 30}, 7, 8);
        for (CInkFloodFill *fill : {&fresh, static_cast<CInkFloodFill *>(&pressed)}) {
            const int count = fill->m_nPointCount;
            const QPointF seed = fill->m_graphData.at(0);
            QRect update = kSentinel;
            fill->AddPoint(code, {20, 21}, update);
            EXPECT_EQ(update, kSentinel) << code;
            EXPECT_EQ(fill->m_nPointCount, count) << code;
            EXPECT_EQ(fill->m_bFinished, count) << code;
            EXPECT_POINT(fill->m_graphData.at(0), seed.x(), seed.y());
        }
    }
}

TEST(CInkFloodFill, pressSetsTheSeedAndCommits)
{
    CInkFloodFill fill(QSize(40, 30));
    QRect update(-500, -500, 2000, 2000);
    fill.AddPoint(PT_DOWN, {7, 8}, update);
    EXPECT_EDGES(update, 0, 0, 39, 29);
    EXPECT_POINT(fill.m_graphData.at(0), 7.0, 8.0);
    EXPECT_EQ(fill.m_graphData.size(), 10);
    EXPECT_EQ(fill.GetPointCount(), 1);
    EXPECT_EQ(fill.m_bFinished, 1);
    EXPECT_EQ(fill.m_bHideHotShape, 1);
    EXPECT_EQ(fill.m_bFilled, 0);
    EXPECT_EDGES(fill.m_rcFillBounds, 7, 8, 7, 8);
    EXPECT_EDGES(fill.GetUpdateRect(), 0, 0, 39, 29);
}

TEST(CInkFloodFill, seedGoesThroughSinglePrecision)
{
    Fill fill({40, 30}, 16777217, -16777217);
    EXPECT_POINT(fill.m_graphData.at(0), 16777216.0, -16777216.0);
    EXPECT_EDGES(fill.m_rcFillBounds, 16777217, -16777217, 16777217, -16777217);
}

TEST(CInkFloodFill, secondPressMovesTheSeed)
{
    const QImage page = picture({"..#..", "..#..", "..#.."});
    Fill fill({5, 3}, 1, 1);
    const FilledLayers first(fill, page);
    EXPECT_EDGES(fill.m_rcFillBounds, 0, 0, 1, 2);
    QRect update = kSentinel;
    fill.AddPoint(PT_DOWN, {4, 2}, update);
    // What the first fill covered: the bounds are reset afterwards.
    EXPECT_EDGES(update, -10, -10, 11, 12);
    EXPECT_EDGES(fill.m_rcFillBounds, 4, 2, 4, 2);
    EXPECT_EDGES(fill.GetUpdateRect(), -6, -8, 14, 12);
    EXPECT_EQ(fill.GetPointCount(), 1);
    const FilledLayers second(fill, first.page);
    EXPECT_EQ(joined(rowsOf(second.page)), "oo#oo\noo#oo\noo#oo");
    EXPECT_EQ(joined(rowsOf(second.surface)), "   oo\n   oo\n   oo");
    EXPECT_EDGES(fill.m_rcFillBounds, 3, 0, 4, 2);
}

TEST(CInkFloodFill, finishCommitsAPressedFill)
{
    Fill fill({40, 30}, 7, 8);
    fill.m_bFinished = fill.m_bHideHotShape = 0;
    EXPECT_TRUE(fill.FinishGraph());
    EXPECT_EQ(fill.m_bFinished, 1);
    EXPECT_EQ(fill.m_bHideHotShape, 1);
    fill.m_nPointCount = -1;
    EXPECT_FALSE(fill.FinishGraph());
}

TEST(CInkFloodFill, updateRectShrinksToWhatWasFilled)
{
    Fill fill({5, 4}, 2, 1);
    EXPECT_EDGES(fill.GetUpdateRect(), 0, 0, 4, 3);
    const FilledLayers layers(fill, picture({"#####", "##..#", "##.##", "#####"}));
    EXPECT_EQ(fill.m_bFilled, 1);
    EXPECT_EDGES(fill.m_rcFillBounds, 2, 1, 3, 2);
    EXPECT_EDGES(fill.GetUpdateRect(), -8, -9, 13, 12);
}

TEST(CInkFloodFill, pixelIsReadOpaque)
{
    CInkFloodFill fill;
    QImage image(2, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, 0x40112233U);
    image.setPixel(1, 0, 0);
    EXPECT_EQ(fill.GetPixel(0, 0, &image), QColor(0x11, 0x22, 0x33, 255));
    EXPECT_EQ(fill.GetPixel(1, 0, &image), QColor(0, 0, 0, 255));
    const MessageLog log;
    EXPECT_FALSE(fill.GetPixel(2, 0, &image).isValid());
    EXPECT_FALSE(fill.GetPixel(0, -1, &image).isValid());
    EXPECT_FALSE(fill.GetPixel(0, 0, nullptr).isValid());
    EXPECT_TRUE(log.lines.isEmpty());
}

TEST(CInkFloodFill, pixelIsWrittenOpaqueTwiceAndWidensTheBounds)
{
    CInkFloodFill fill(QSize(9, 9));
    QImage image(9, 9, QImage::Format_ARGB32);
    image.fill(0);
    const QColor translucent(1, 2, 3, 40);
    fill.SetPixel(5, 5, translucent, &image); // no bitmap yet
    EXPECT_EDGES(fill.m_rcFillBounds, 0, 0, 5, 5);
    fill.m_pImage = new QImage(9, 9, QImage::Format_ARGB32);
    fill.m_pImage->fill(0);
    fill.m_rcFillBounds = QRect(4, 4, 1, 1);
    const struct
    {
        int x, y, left, top, right, bottom;
    } cases[] = {{4, 4, 4, 4, 4, 4}, {2, 4, 2, 4, 4, 4}, {3, 1, 2, 1, 4, 4}, {7, 2, 2, 1, 7, 4}, {5, 8, 2, 1, 7, 8}};
    for (const auto &row : cases) {
        fill.SetPixel(row.x, row.y, translucent, &image);
        EXPECT_EDGES(fill.m_rcFillBounds, row.left, row.top, row.right, row.bottom);
        EXPECT_EQ(image.pixel(row.x, row.y), 0xff010203U);
        EXPECT_EQ(fill.m_pImage->pixel(row.x, row.y), 0xff010203U);
    }
    EXPECT_EQ(image.pixel(0, 0), 0U);
}

TEST(CInkFloodFill, fillsExactlyTheConnectedRegion)
{
    const struct
    {
        const char *name;
        QPoint seed;
        QStringList before, after;
        int left, top, right, bottom;
    } cases[] = {
        {"everything", {1, 1}, {"...", "...", "..."}, {"ooo", "ooo", "ooo"}, 0, 0, 2, 2},
        {"corners do not join", {0, 0}, {"..##", "..##", "##..", "##.."}, {"oo##", "oo##", "##..", "##.."}, 0, 0, 1, 1},
        {"falling diagonal", {1, 1}, {".##", "#.#", "##."}, {".##", "#o#", "##."}, 1, 1, 1, 1},
        {"rising diagonal", {1, 1}, {"##.", "#.#", ".##"}, {"##.", "#o#", ".##"}, 1, 1, 1, 1},
        {"last column", {3, 1}, {"###.", "#...", "###."}, {"###o", "#ooo", "###o"}, 1, 0, 3, 2},
        {"last row", {1, 2}, {"###.", "##..", "...."}, {"###o", "##oo", "oooo"}, 0, 0, 3, 2},
        {"first column", {0, 1}, {".###", "..##", ".###"}, {"o###", "oo##", "o###"}, 0, 0, 1, 2},
        {"first row", {2, 0}, {"....", "#.##", "#..#"}, {"oooo", "#o##", "#oo#"}, 0, 0, 3, 2},
        {"one pixel", {0, 0}, {"."}, {"o"}, 0, 0, 0, 0},
        {"one row", {3, 0}, {".#...#."}, {".#ooo#."}, 2, 0, 4, 0},
        {"one column", {0, 1}, {"#", ".", ".", "#", "."}, {"#", "o", "o", "#", "."}, 0, 1, 0, 2},
        {"black lines too", {0, 0}, {"#.#", "###", ".##"}, {"o.o", "ooo", ".oo"}, 0, 0, 2, 2},
        {"spiral",
         {2, 2},
         {".....", "####.", "...#.", ".###.", "....."},
         {"ooooo", "####o", "ooo#o", "o###o", "ooooo"},
         0,
         0,
         4,
         4},
        {"comb",
         {0, 3},
         {".#.#.", ".#.#.", ".#.##", ".....", "#####"},
         {"o#o#.", "o#o#.", "o#o##", "ooooo", "#####"},
         0,
         0,
         4,
         3},
    };
    for (const auto &row : cases) {
        SCOPED_TRACE(row.name);
        const QImage page = picture(row.before);
        Fill fill(page.size(), row.seed.x(), row.seed.y());
        const FilledLayers layers(fill, page);
        EXPECT_EQ(joined(rowsOf(layers.page)), joined(row.after));
        EXPECT_EDGES(fill.m_rcFillBounds, row.left, row.top, row.right, row.bottom);
        EXPECT_EQ(fill.m_bFilled, 1);
        QStringList only = row.after;
        for (QString &line : only)
            line.replace('.', ' ').replace('#', ' ');
        ASSERT_NE(fill.m_pImage, nullptr);
        EXPECT_EQ(fill.m_pImage->format(), QImage::Format_ARGB32);
        EXPECT_EQ(joined(rowsOf(*fill.m_pImage)), joined(only));
        EXPECT_EQ(joined(rowsOf(layers.surface)), joined(only));
        EXPECT_EQ(joined(rowsOf(layers.ink)), joined(only));
        EXPECT_TRUE(isBlank(layers.background));
        EXPECT_EQ(joined(rowsOf(page)), joined(row.before));
    }
}

TEST(CInkFloodFill, randomPagesAreFilledAsThePlainFillDoes)
{
    for (unsigned seed = 1; seed <= 300; ++seed) {
        SCOPED_TRACE(::testing::Message() << "seed " << seed);
        std::mt19937 random(seed);
        const auto upTo = [&](unsigned limit) { return int(random() % limit); };
        const QSize size(1 + upTo(14), 1 + upTo(14));
        std::vector<QRgb> colors(1 + random() % 3, 0xffffffffU); // mostly white: large regions
        colors.push_back(0xff000000U);
        colors.push_back(0x00000000U);
        const QSize canvas(1 + upTo(18), 1 + upTo(18));
        const QPoint at(upTo(unsigned(canvas.width())), upTo(unsigned(canvas.height())));
        const QColor fills[] = {kRed, QColor(255, 255, 255, 90), QColor(0, 0, 0, 0), QColor(9, 8, 7, 128), Qt::white};
        expectPlainFlood(randomPage(random, size, colors), canvas, at, fills[random() % 5]);
        if (HasFailure())
            break;
    }
}

TEST(CInkFloodFill, everyFormatIsFilledAsThePlainFillDoes)
{
    for (int format = QImage::Format_Mono; format < QImage::NImageFormats; ++format) {
        if (format == QImage::Format_Indexed8)
            continue; // no painter paints on it
        SCOPED_TRACE(::testing::Message() << "format " << format);
        const MessageLog log; // a page of two colours has none of the fill's
        std::mt19937 random{unsigned(format)};
        const QImage drawing = randomPage(random, {9, 7}, {0xffffffffU, 0xffffffffU, 0xff204060U, 0x80ff0000U});
        const QImage page = drawing.convertToFormat(QImage::Format(format));
        for (const QColor &color : {kRed, QColor(250, 251, 252), QColor(200, 100, 50, 20)}) {
            for (const QPoint &at : {QPoint(0, 0), QPoint(8, 6), QPoint(4, 3)})
                expectPlainFlood(page, page.size(), at, color);
        }
        EXPECT_TRUE(log.lines.isEmpty() || page.depth() == 1);
    }
}

TEST(CInkFloodFill, canvasAndPageOfOtherSizes)
{
    const QImage page = picture({"....", ".##.", "...."});
    const struct
    {
        QSize canvas;
        QPoint seed;
        const char *after;
        int right, bottom;
    } cases[] = {
        {{4, 3}, {0, 0}, "oooo\no##o\noooo", 3, 2},  {{3, 3}, {0, 0}, "ooo.\no##.\nooo.", 2, 2},
        {{4, 2}, {0, 0}, "oooo\no##o\n....", 3, 1},  {{1, 1}, {0, 0}, "o...\n.##.\n....", 0, 0},
        {{50, 3}, {0, 0}, "oooo\no##o\noooo", 3, 2}, {{50, 60}, {0, 0}, "oooo\no##o\noooo", 3, 2},
        {{4, 60}, {0, 0}, "oooo\no##o\noooo", 3, 2}, {{2, 60}, {0, 0}, "oo..\no##.\noo..", 1, 2},
    };
    for (const auto &row : cases) {
        SCOPED_TRACE(::testing::Message() << row.canvas.width() << " x " << row.canvas.height());
        const MessageLog log;
        Fill fill(row.canvas, row.seed.x(), row.seed.y());
        const FilledLayers layers(fill, page);
        EXPECT_EQ(joined(rowsOf(layers.page)), row.after);
        EXPECT_EDGES(fill.m_rcFillBounds, 0, 0, row.right, row.bottom);
        EXPECT_EQ(fill.m_pImage->size(), row.canvas);
        EXPECT_TRUE(log.lines.isEmpty());
    }
}

TEST(CInkFloodFill, seedOffTheCanvasOrThePageFillsNothing)
{
    const QImage page = picture({"....", "....", "...."});
    const struct
    {
        QSize canvas;
        QPoint seed;
    } cases[] = {{{3, 3}, {3, 0}},
                 {{4, 2}, {0, 2}},
                 {{4, 3}, {-1, 0}},
                 {{4, 3}, {0, -1}},
                 {{9, 9}, {4, 0}},
                 {{9, 9}, {0, 3}},
                 {{4, 3}, {4, 3}},
                 {{0, 0}, {0, 0}},
                 {{0, 3}, {0, 0}},
                 {{4, 3}, {INT_MAX, 0}},
                 {{4, 3}, {INT_MIN, INT_MIN}}};
    for (const auto &row : cases) {
        SCOPED_TRACE(::testing::Message() << row.canvas.width() << " " << row.seed.x() << " " << row.seed.y());
        const MessageLog log;
        Fill fill(row.canvas, row.seed.x(), row.seed.y());
        const FilledLayers layers(fill, page);
        EXPECT_TRUE(samePixels(layers.page, page));
        EXPECT_TRUE(isBlank(layers.surface));
        EXPECT_EQ(fill.m_bFilled, 0);
        EXPECT_EQ(fill.m_rcFillBounds.topLeft(), row.seed);
        EXPECT_TRUE(log.lines.isEmpty());
    }
}

TEST(CInkFloodFill, seedIsTruncatedTowardZero)
{
    const QImage page = picture({".#", "##"});
    Fill fill({2, 2}, 0, 0);
    fill.m_graphData[0] = QPointF(0.9, -0.9);
    EXPECT_EQ(joined(rowsOf(FilledLayers(fill, page).page)), "o#\n##");
}

TEST(CInkFloodFill, fillColorIsComparedWithAlphaAndModel)
{
    const QRgb white = 0xffffffffU;
    const struct
    {
        const char *name;
        QRgb pixel;
        QColor color;
        bool fills;
        QRgb after;
    } cases[] = {
        {"same", white, QColor(255, 255, 255), false, white},
        {"other alpha", white, QColor(255, 255, 255, 254), true, white},
        {"no alpha", 0xff102030U, QColor(16, 32, 48, 0), true, 0xff102030U},
        {"other model", white, QColor::fromHsv(0, 0, 255), true, white},
        {"empty pixel, black", 0x00000000U, QColor(0, 0, 0), false, 0x00000000U},
        {"empty pixel, transparent", 0x00000000U, QColor(0, 0, 0, 0), true, 0xff000000U},
        {"translucent pixel, its opaque colour", 0x80ff0000U, QColor(255, 0, 0), false, 0x80ff0000U},
        {"translucent pixel, its own colour", 0x80ff0000U, QColor(255, 0, 0, 128), true, 0xffff0000U},
        {"black", 0xff000000U, QColor(0, 0, 0), false, 0xff000000U},
        {"invalid colour", 0xff000000U, QColor(), true, 0xff000000U},
    };
    for (const auto &row : cases) {
        SCOPED_TRACE(row.name);
        QImage page(3, 2, QImage::Format_ARGB32);
        page.fill(row.pixel);
        Fill fill({3, 2}, 1, 1, row.color);
        fill.m_color = row.color;
        QPainter painter(&page);
        fill.m_pImage = new QImage(3, 2, QImage::Format_ARGB32);
        fill.m_pImage->fill(0);
        fill.FormFloodFillBmp(painter);
        painter.end();
        EXPECT_EQ(fill.m_bFilled, int(row.fills));
        for (int i = 0; i < 6; ++i) {
            EXPECT_EQ(page.pixel(i % 3, i / 3), row.after);
            EXPECT_EQ(fill.m_pImage->pixel(i % 3, i / 3), row.fills ? row.after : 0U);
        }
        EXPECT_EQ(fill.m_rcFillBounds, row.fills ? QRect(0, 0, 3, 2) : QRect(1, 1, 1, 1));
    }
}

TEST(CInkFloodFill, emptyPixelsAndBlackOnesAreOneRegion)
{
    Fill fill({4, 1}, 0, 0);
    EXPECT_EQ(joined(rowsOf(FilledLayers(fill, picture({" # ."})).page)), "ooo.");
}

TEST(CInkFloodFill, strangeCanvasesAndPointsCrashNothing)
{
    const QImage page = picture({"...", "..."});
    for (const QSize &canvas :
         {QSize(0, 0), QSize(-5, -5), QSize(-5, 2), QSize(3, -5), QSize(INT_MIN, INT_MIN), QSize(INT_MAX, 1)}) {
        for (const QPoint &at : {QPoint(0, 0), QPoint(2, 1), QPoint(-3, -3)}) {
            Fill fill(canvas, at.x(), at.y());
            const FilledLayers layers(fill, page);
            fill.GetUpdateRect();
        }
    }
    // Too large for a bitmap; the page is filled nevertheless.
    Fill huge({100000, 100000}, 0, 0);
    EXPECT_EQ(joined(rowsOf(FilledLayers(huge, page).page)), "ooo\nooo");
    EXPECT_EDGES(huge.m_rcFillBounds, 0, 0, 2, 1);

    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const QPointF &point : {QPointF(1e300, 0), QPointF(-1e300, 1e300), QPointF(nan, nan)}) {
        Fill fill({3, 2}, 0, 0);
        fill.m_graphData[0] = point;
        const FilledLayers layers(fill, page);
    }
}

TEST(CInkFloodFill, emptiedListIsFilledAgainByAPress)
{
    CInkFloodFill fill;
    fill.SetCanvasSize({2, 1});
    fill.SetColor(kRed);
    feed(fill, PT_DOWN, 1, 0);
    EXPECT_POINT(fill.m_graphData.at(0), 1.0, 0.0);
    EXPECT_EQ(joined(rowsOf(FilledLayers(fill, picture({".."})).page)), "oo");
    fill.m_graphData.clear();
    EXPECT_EQ(joined(rowsOf(FilledLayers(fill, picture({".."})).page)), "..");
}

TEST(CInkFloodFill, canvasMovedOffTheOriginCrashesNothing)
{
    // No operation makes such a canvas, but the field is open to the host.
    Fill fill({50, 50}, 42, 42);
    fill.m_rcCanvas = QRect(40, 40, 4, 4);
    QImage page(50, 50, QImage::Format_ARGB32);
    page.fill(Qt::white);
    const FilledLayers layers(fill, page);
    EXPECT_EQ(layers.page.pixel(42, 42), 0xffff0000U);
}

// From left to right it has more pixels than an int can count.
TEST(CInkFloodFill, canvasWiderThanAnIntIsBoundedByThePage)
{
    for (const int far : {2000000000, INT_MAX}) {
        Fill fill({50, 50}, 2, 1);
        fill.m_rcCanvas.setCoords(-2000000000, -2000000000, far, far);
        const FilledLayers layers(fill, picture({"....", "....", "...."}));
        EXPECT_EQ(joined(rowsOf(layers.page)), "oooo\noooo\noooo");
        EXPECT_EDGES(fill.m_rcFillBounds, 0, 0, 3, 2);
    }
}

TEST(CInkFloodFill, canvasTurnedOverIsFilledAsItsOtherSide)
{
    Fill fill({50, 50}, 2, 1);
    fill.m_rcCanvas.setCoords(2, 2, 0, 0);
    const FilledLayers layers(fill, picture({"....", "....", "...."}));
    EXPECT_EQ(joined(rowsOf(layers.page)), "ooo.\nooo.\nooo.");
}

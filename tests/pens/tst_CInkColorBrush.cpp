// The colour brush as it is painted. How it collects is in tst_textured_pens.cpp.

#include "CInkColorBrush.h"
#include "MessageLog.h"
#include "PenStroke.h"

#include <gtest/gtest.h>

namespace {

QImage transparentCache(const QSize &size = {400, 300})
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    return image;
}

// Each segment as four lines, of alpha 60, 40, 60 and 60 and of the given widths.
QImage rendered(const QVector<QPointF> &points, const QColor &color, std::initializer_list<int> widths)
{
    const int alphas[] = {60, 40, 60, 60};
    QImage image = transparentCache();
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int i = 1; i < points.size(); ++i) {
        const int *alpha = alphas;
        for (const int width : widths) {
            const QColor translucent(color.red(), color.green(), color.blue(), *alpha++);
            painter.setPen(roundPen(translucent, width));
            painter.drawLine(points[i - 1], points[i]);
        }
    }
    return image;
}

QImage laidOver(const QImage &cache, const QColor &canvas = Qt::transparent)
{
    QImage image = blankCanvas({400, 300}, canvas);
    QPainter painter(&image);
    painter.drawImage(0, 0, cache);
    return image;
}

const QVector<QPointF> kPath = {{100, 80}, {150, 40}, {200, 140}, {120.25, 150.5}, {110, 60}};

class Stroke : public CInkColorBrush
{
public:
    Stroke()
        : CInkColorBrush(QSize(400, 300))
    {
        m_graphData = kPath;
    }
};

} // namespace

TEST(CInkColorBrush, newBrushIsTwentyWideAndGreen)
{
    CInkColorBrush brush(QSize(400, 300));
    EXPECT_EQ(brush.m_nWidth, 20);
    EXPECT_EQ(brush.m_color, QColor(0, 200, 100, 255));
}

TEST(CInkColorBrush, segmentIsFourConcentricLines)
{
    const struct
    {
        int width;
        std::initializer_list<int> widths; // 1, 0.8, 0.6 and 0.4 of it
    } cases[] = {{20, {20, 16, 12, 8}},  {3, {3, 2, 1, 1}}, {1, {1, 0, 0, 0}}, {7, {7, 5, 4, 2}}, {5, {5, 4, 3, 2}},
                 {35, {35, 28, 21, 14}}, {2, {2, 1, 1, 0}}, {0, {0, 0, 0, 0}}, {9, {9, 7, 5, 3}}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.width);
        Stroke brush;
        brush.SetWidth(c.width);
        brush.SetColor(QColor(200, 30, 90, 17));
        const QImage image = drawn(brush);
        const QImage expected = rendered(kPath, QColor(200, 30, 90), c.widths);
        ASSERT_NE(brush.m_pImage, nullptr);
        EXPECT_TRUE(samePixels(*brush.m_pImage, expected));
        EXPECT_TRUE(samePixels(image, laidOver(expected)));
        EXPECT_EQ(brush.m_nDrawnCount, 4);
    }
}

TEST(CInkColorBrush, middleOfASegmentIsFourFoldAndItsRimSingle)
{
    CInkColorBrush brush(QSize(400, 300));
    brush.m_graphData = {QPointF(100, 100), QPointF(200, 100)};
    drawn(brush);
    // 20, 16, 12 and 8 wide: rims at 10, 8, 6 and 4 pixels from the line.
    EXPECT_EQ(qAlpha(brush.m_pImage->pixel(150, 109)), 60);
    EXPECT_EQ(qAlpha(brush.m_pImage->pixel(150, 110)), 0);
    EXPECT_NEAR(qAlpha(brush.m_pImage->pixel(150, 107)), 91, 1);  // 60 and 40
    EXPECT_NEAR(qAlpha(brush.m_pImage->pixel(150, 105)), 129, 1); // and 60
    EXPECT_NEAR(qAlpha(brush.m_pImage->pixel(150, 101)), 159, 1); // and 60 again
    EXPECT_EQ(qAlpha(brush.m_pImage->pixel(91, 100)), 60);        // round cap
    EXPECT_EQ(qAlpha(brush.m_pImage->pixel(91, 92)), 0);
}

TEST(CInkColorBrush, alphaStaysOnTheColor)
{
    for (const int alpha : {0, 10, 60, 255}) {
        Stroke brush;
        brush.SetColor(QColor(0, 200, 100, alpha));
        drawn(brush);
        EXPECT_EQ(brush.m_color, QColor(0, 200, 100, 60));
        EXPECT_TRUE(samePixels(*brush.m_pImage, rendered(kPath, QColor(0, 200, 100), {20, 16, 12, 8})));
        brush.SetColor(QColor(1, 2, 3, 4)); // nothing new to paint: set all the same
        drawn(brush);
        EXPECT_EQ(brush.m_color, QColor(1, 2, 3, 60));
    }
}

TEST(CInkColorBrush, strokePaintedAsItGrowsEqualsOnePaintedAtOnce)
{
    CInkColorBrush grown(QSize(400, 300)), atOnce(QSize(400, 300));
    const QPoint moves[] = {{117, 131}, {90, 127}, {92, 128}, {200, 60}, {205, 60}, {30, 20}};
    feed(grown, PT_DOWN, 100, 100);
    feed(atOnce, PT_DOWN, 100, 100);
    drawn(grown);
    for (const QPoint &move : moves) {
        feed(grown, PT_MOVE, move.x(), move.y());
        feed(atOnce, PT_MOVE, move.x(), move.y());
        drawn(grown);
        EXPECT_EQ(grown.m_nDrawnCount, grown.GetPointCount() - 1);
    }
    const QImage inSteps = drawn(grown);
    EXPECT_TRUE(samePixels(inSteps, drawn(atOnce)));
    EXPECT_TRUE(samePixels(*grown.m_pImage, *atOnce.m_pImage));
    EXPECT_EQ(atOnce.m_nDrawnCount, atOnce.GetPointCount() - 1);
}

TEST(CInkColorBrush, imageAfterEachDrawHoldsTheSegmentsSoFar)
{
    CInkColorBrush brush(QSize(400, 300));
    for (int i = 1; i <= 5; ++i) {
        brush.m_graphData = kPath.mid(0, i);
        drawn(brush);
        if (i == 1)
            EXPECT_EQ(brush.m_pImage, nullptr);
        else
            EXPECT_TRUE(samePixels(*brush.m_pImage, rendered(kPath.mid(0, i), QColor(0, 200, 100), {20, 16, 12, 8})));
        EXPECT_EQ(brush.m_nDrawnCount, i - 1);
    }
}

TEST(CInkColorBrush, drawingAgainAddsNothing)
{
    Stroke brush;
    const QImage first = drawn(brush);
    const QImage cache = *brush.m_pImage;
    EXPECT_TRUE(samePixels(drawn(brush), first));
    EXPECT_TRUE(samePixels(*brush.m_pImage, cache));
    EXPECT_EQ(brush.m_nDrawnCount, 4);
}

TEST(CInkColorBrush, whatIsRenderedStaysWhenTheStrokeChanges)
{
    Stroke brush;
    drawn(brush);
    const QImage cache = *brush.m_pImage;
    brush.MoveGraph(50.0f, 30.0f);
    brush.m_fRotateAngle = 30;
    brush.SetWidth(2);
    brush.SetColor(Qt::red);
    EXPECT_TRUE(samePixels(drawn(brush), laidOver(cache)));
    EXPECT_TRUE(samePixels(*brush.m_pImage, cache));
}

TEST(CInkColorBrush, imageThatIsThereIsPaintedOver)
{
    Stroke brush;
    brush.m_pImage = new QImage(transparentCache());
    brush.m_pImage->setPixel(300, 250, 0xff123456);
    drawn(brush);
    QImage expected = rendered(kPath, QColor(0, 200, 100), {20, 16, 12, 8});
    expected.setPixel(300, 250, 0xff123456);
    EXPECT_TRUE(samePixels(*brush.m_pImage, expected));
}

TEST(CInkColorBrush, imageIsBlendedOverTheCanvas)
{
    Stroke brush;
    QImage image = blankCanvas({400, 300}, QColor(250, 240, 230));
    QPainter painter(&image);
    QRect all = image.rect();
    brush.Draw(painter, all);
    painter.end();
    EXPECT_TRUE(samePixels(image, laidOver(*brush.m_pImage, QColor(250, 240, 230))));
}

TEST(CInkColorBrush, imageIsPaintedSmoothly)
{
    Stroke brush;
    const auto calls = paintCalls(brush);
    ASSERT_EQ(calls.size(), 1);
    EXPECT_FALSE(calls[0].isPath);
    EXPECT_TRUE(calls[0].hints.testFlag(QPainter::Antialiasing));
    EXPECT_TRUE(calls[0].hints.testFlag(QPainter::SmoothPixmapTransform));
    EXPECT_FALSE(int(calls[0].hints) & 0x08); // high quality is for the image only

    const auto scaledBy = [](QPainter &painter) { painter.scale(1.3, 0.7); };
    const QImage image = painted([&](QPainter &painter) {
        QRect all(0, 0, 400, 300);
        scaledBy(painter);
        brush.Draw(painter, all);
    });
    const QImage expected = painted([&](QPainter &painter) {
        scaledBy(painter);
        painter.setClipRect(QRect(0, 0, 400, 300));
        painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
        painter.drawImage(QRectF(0, 0, 400, 300), *brush.m_pImage, QRectF(0, 0, 400, 300));
    });
    EXPECT_TRUE(samePixels(image, expected));
}

TEST(CInkColorBrush, newCanvasSizeCutsWhatIsShown)
{
    Stroke brush;
    drawn(brush);
    brush.SetCanvasSize(QSize(160, 100));
    const QImage expected =
        painted([&](QPainter &painter) { painter.drawImage(QPointF(), *brush.m_pImage, QRectF(0, 0, 160, 100)); });
    EXPECT_TRUE(samePixels(drawn(brush), expected));
    brush.SetCanvasSize(QSize(4000, 3000)); // larger than the image: as it is
    EXPECT_TRUE(samePixels(drawn(brush), laidOver(*brush.m_pImage)));
    EXPECT_EQ(brush.m_pImage->size(), QSize(400, 300));
}

TEST(CInkColorBrush, clipHoldsTheHostsRectangleInEveryPhaseAndStays)
{
    Stroke brush;
    // The newest segment (110,60) to (120,150), widened by the pen to the right, with its margin of 40.
    EXPECT_EDGES(clipAfterDraw(brush, QRect(0, 0, 50, 50)), 0, 0, 180, 190);
    EXPECT_EDGES(clipAfterDraw(brush, QRect()), 70, 20, 180, 190);
    feed(brush, PT_UP, 0, 0);
    EXPECT_EDGES(clipAfterDraw(brush, QRect(0, 0, 50, 50)), 0, 0, 232, 182);
    EXPECT_EDGES(clipAfterDraw(brush, QRect()), 68, 8, 232, 182);
    EXPECT_EDGES(clipAfterDraw(brush, QRect(0, 0, 400, 300)), 0, 0, 399, 299);
}

TEST(CInkColorBrush, committedStrokeOfTwoPointsShowsWhereTheHostRepaints)
{
    CInkColorBrush brush(QSize(400, 300));
    feed(brush, PT_DOWN, 100, 100);
    feed(brush, PT_MOVE, 105, 100);
    feed(brush, PT_UP, 105, 100);
    const QVector<QPointF> points = {{100, 100}, {105, 100}};
    EXPECT_TRUE(samePixels(drawn(brush), laidOver(rendered(points, QColor(0, 200, 100), {20, 16, 12, 8}))));
    const QImage nowhere = painted([&](QPainter &painter) {
        QRect none;
        brush.Draw(painter, none);
    });
    EXPECT_TRUE(isBlank(nowhere));
}

TEST(CInkColorBrush, painterIsGivenBackButForItsClip)
{
    CInkColorBrush fresh(QSize(400, 300));
    EXPECT_NULL_RECT(clipAfterDrawWithOddPainter(fresh));
    Stroke brush;
    EXPECT_EDGES(clipAfterDrawWithOddPainter(brush), 0, 0, 399, 299);
    brush.FinishGraph();
    EXPECT_EDGES(clipAfterDrawWithOddPainter(brush), 0, 0, 399, 299);
}

TEST(CInkColorBrush, layersFollowTheCommit)
{
    Stroke brush;
    brush.ShowDrawerName(1);
    brush.ShowDrawerIcon(1);
    const QImage expected = laidOver(rendered(kPath, QColor(0, 200, 100), {20, 16, 12, 8}));
    Layers growing;
    growing.draw(brush);
    EXPECT_TRUE(samePixels(growing.surface, expected));
    EXPECT_TRUE(isBlank(growing.page));
    EXPECT_TRUE(isBlank(growing.ink));
    brush.FinishGraph();
    Layers finished;
    finished.draw(brush);
    EXPECT_TRUE(samePixels(finished.surface, expected));
    EXPECT_TRUE(samePixels(finished.ink, expected));
    EXPECT_TRUE(samePixels(finished.page, expected));
    EXPECT_TRUE(isBlank(finished.background));
}

TEST(CInkColorBrush, paintingLogsNothingAndLeavesTheCallersRectangle)
{
    const MessageLog log;
    Stroke brush;
    QImage image = blankCanvas();
    QPainter painter(&image);
    QRect rect(1, 2, 3, 4);
    brush.Draw(painter, rect);
    EXPECT_EDGES(rect, 1, 2, 3, 5);
    EXPECT_TRUE(log.lines.isEmpty());
}

TEST(CInkColorBrush, strokeOutsideTheCanvasIsCut)
{
    CInkColorBrush brush(QSize(150, 100));
    brush.m_graphData = kPath;
    const QImage image = drawn(brush);
    QImage inside = rendered(kPath, QColor(0, 200, 100), {20, 16, 12, 8}).copy(0, 0, 150, 100);
    EXPECT_TRUE(samePixels(*brush.m_pImage, inside));
    EXPECT_EQ(image.pixel(150, 50), 0u);
}

TEST(CInkColorBrush, hugeWidthIsPaintedWithoutAWarning)
{
    CInkColorBrush brush(QSize(60, 60));
    brush.SetWidth(40000);
    brush.m_graphData = {{10, 10}, {30, 30}};
    const MessageLog log;
    drawn(brush, {60, 60});
    EXPECT_TRUE(log.lines.isEmpty());
}

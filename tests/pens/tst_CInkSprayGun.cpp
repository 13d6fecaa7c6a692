// The spray gun: dots of one pixel each, which the host scatters.

#include "CInkSprayGun.h"
#include "PenStroke.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

class Spray : public CInkSprayGun
{
public:
    Spray()
        : CInkSprayGun(QSize(400, 300))
    {
        SetWidth(10);
    }
};

QImage dots(std::initializer_list<QPoint> points, QRgb color = 0xff000000, const QSize &size = {400, 300})
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    for (const QPoint &point : points)
        image.setPixel(point, color);
    return image;
}

QImage laidOver(const QImage &cache, const QColor &canvas = Qt::transparent)
{
    QImage image = blankCanvas({400, 300}, canvas);
    QPainter painter(&image);
    painter.drawImage(0, 0, cache);
    return image;
}

} // namespace

TEST(CInkSprayGun, newSprayIsEmpty)
{
    CInkSprayGun spray(QSize(400, 300));
    EXPECT_NULL_RECT(spray.m_rcDirty);
    EXPECT_EDGES(spray.m_rcCanvas, 0, 0, 399, 299);
    EXPECT_EQ(spray.m_nWidth, 1);
    EXPECT_EQ(spray.m_color, QColor(0, 0, 0, 255));
    EXPECT_EQ(spray.GetPointCount(), 0);
    EXPECT_GE(spray.m_graphData.capacity(), 20);
    EXPECT_EQ(spray.m_pImage, nullptr);
    EXPECT_NULL_RECT(spray.GetUpdateRect());
    EXPECT_NULL_RECT(spray.m_rcDirty);
}

TEST(CInkSprayGun, canvasHasTheLastPixelAsItsEdge)
{
    Spray spray;
    spray.SetCanvasSize(QSize(7, 1));
    EXPECT_EDGES(spray.m_rcCanvas, 0, 0, 6, 0);
    spray.SetCanvasSize(QSize());
    EXPECT_EDGES(spray.m_rcCanvas, 0, 0, -2, -2);
    EXPECT_EDGES(CInkSprayGun(QSize(-4, 12)).m_rcCanvas, 0, 0, -5, 11);
}

TEST(CInkSprayGun, everyCodeAppendsADot)
{
    Spray spray;
    int count = 0;
    for (const int code : {99, 0, 3, 4, 5, 1, -1, 1}) {
        SCOPED_TRACE(code);
        spray.m_bSparePoint = 1;
        feed(spray, code, 10 * count, 7);
        ASSERT_EQ(spray.GetPointCount(), ++count);
        EXPECT_POINT(spray.m_graphData.last(), 10 * (count - 1), 7);
        EXPECT_EQ(spray.m_nPointCount, 0);
        EXPECT_EQ(spray.m_bSparePoint, 1);
        EXPECT_EQ(spray.m_bFinished, 0);
    }
}

TEST(CInkSprayGun, positionsPassThroughSinglePrecision)
{
    Spray spray;
    feed(spray, PT_DOWN, 16'777'217, -16'777'217);
    EXPECT_POINT(spray.m_graphData[0], 16'777'216, -16'777'216);
    EXPECT_EDGES(spray.m_rcHot, 0, -16'777'217, 16'777'217, -1); // the box does not
}

TEST(CInkSprayGun, releaseAppendsItsDotAndCommits)
{
    Spray spray;
    feed(spray, PT_DOWN, 100, 100);
    EXPECT_EDGES(feed(spray, PT_UP, 120, 90), 0, 0, 120, 100);
    EXPECT_EQ(spray.GetPointCount(), 2);
    EXPECT_EQ(spray.m_bFinished, 1);
    EXPECT_EQ(spray.m_bHideHotShape, 1);
    EXPECT_EQ(spray.m_bEditMode, 0);

    QRect update(1, 2, 3, 4);
    spray.AddPoint(PT_MOVE, QPoint(300, 200), update);
    EXPECT_EDGES(update, 1, 2, 3, 5);
    EXPECT_EQ(spray.GetPointCount(), 2);
    EXPECT_EDGES(spray.m_rcHot, 0, 0, 120, 100);

    Spray lone;
    EXPECT_EDGES(feed(lone, PT_UP, 30, 40), 0, 0, 30, 40);
    EXPECT_EQ(lone.m_bFinished, 1);
}

TEST(CInkSprayGun, finishingNeverCommits)
{
    Spray spray;
    EXPECT_FALSE(spray.FinishGraph());
    feed(spray, PT_DOWN, 100, 100);
    feed(spray, PT_MOVE, 110, 100);
    EXPECT_FALSE(spray.FinishGraph());
    EXPECT_EQ(spray.m_bFinished, 0);
    EXPECT_EQ(spray.m_bHideHotShape, 0);
    spray.m_nPointCount = -1;
    EXPECT_FALSE(spray.FinishGraph());
    spray.m_nPointCount = 1; // which the spray never sets
    EXPECT_TRUE(spray.FinishGraph());
    EXPECT_EQ(spray.m_bFinished, 1);
    EXPECT_EQ(spray.m_bHideHotShape, 1);
    EXPECT_EQ(spray.m_bEditMode, 0);
}

TEST(CInkSprayGun, boxAlwaysReachesTheOrigin)
{
    Spray spray;
    feed(spray, PT_DOWN, 100, 80);
    EXPECT_EDGES(spray.m_rcHot, 0, 0, 100, 80);
    feed(spray, PT_MOVE, 90, 200);
    EXPECT_EDGES(spray.m_rcHot, 0, 0, 100, 200);
    feed(spray, PT_MOVE, -5, 10);
    EXPECT_EDGES(spray.m_rcHot, -5, 0, 100, 200);
    feed(spray, PT_MOVE, 0, -7);
    EXPECT_EDGES(spray.m_rcHot, -5, -7, 100, 200);

    Spray outside;
    feed(outside, PT_DOWN, -30, -40);
    EXPECT_EDGES(outside.m_rcHot, -30, -40, -1, -1);
}

TEST(CInkSprayGun, newestDotIsReportedWithItsMargin)
{
    const struct
    {
        int width;
        QRect reported;
    } cases[] = {{10, {QPoint(85, 85), QPoint(114, 114)}}, {1, {QPoint(90, 90), QPoint(110, 110)}},
                 {0, {QPoint(90, 90), QPoint(109, 109)}},  {7, {QPoint(87, 87), QPoint(113, 113)}},
                 {-3, {QPoint(91, 91), QPoint(107, 107)}}, {50, {QPoint(65, 65), QPoint(134, 134)}}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.width);
        Spray spray;
        spray.SetWidth(c.width);
        EXPECT_EQ(feed(spray, PT_DOWN, 100, 100), c.reported);
        EXPECT_EQ(spray.GetUpdateRect(), c.reported);
        EXPECT_EQ(spray.m_rcDirty, c.reported);
    }
    Spray spray;
    spray.m_graphData = {QPointF(-0.9, 100.9)};
    EXPECT_EDGES(spray.GetUpdateRect(), -15, 85, 14, 114);
}

TEST(CInkSprayGun, updateIsAssigned)
{
    Spray spray;
    QRect update(0, 0, 400, 300);
    spray.AddPoint(PT_DOWN, QPoint(100, 100), update);
    EXPECT_EDGES(update, 85, 85, 114, 114);
    spray.AddPoint(PT_MOVE, QPoint(200, 100), update);
    EXPECT_EDGES(update, 185, 85, 214, 114);
}

TEST(CInkSprayGun, reportsAreCollectedUntilTheNextDraw)
{
    Spray spray;
    feed(spray, PT_DOWN, 100, 100);
    feed(spray, PT_MOVE, 200, 150);
    EXPECT_EDGES(spray.m_rcDirty, 85, 85, 214, 164);
    drawn(spray);
    EXPECT_NULL_RECT(spray.m_rcDirty);
    feed(spray, PT_MOVE, 50, 50);
    EXPECT_EDGES(spray.m_rcDirty, 35, 35, 64, 64);
    feed(spray, PT_UP, 60, 50);
    drawn(spray);
    EXPECT_NULL_RECT(spray.m_rcDirty);
}

TEST(CInkSprayGun, shownLabelAndIconAreGrownByTheWidth)
{
    Spray spray;
    spray.m_sizeName = QSize(60, 20);
    spray.ShowDrawerName(1);
    // The label (100,100) to (159,119).
    EXPECT_EDGES(feed(spray, PT_DOWN, 100, 100), 85, 85, 169, 129);
    EXPECT_EDGES(spray.m_rcName, 100, 100, 159, 119);
    EXPECT_NULL_RECT(spray.m_rcIcon);

    // The icon (100,70) to (129,99).
    spray.ShowDrawerIcon(1);
    EXPECT_EDGES(spray.GetUpdateRect(), 85, 60, 169, 129);
    EXPECT_EDGES(spray.m_rcIcon, 100, 70, 129, 99);
    spray.ShowDrawerName(0);
    EXPECT_EDGES(spray.GetUpdateRect(), 85, 60, 139, 114);
    EXPECT_NULL_RECT(spray.m_rcName);

    // Not shown: no room for either, so far from the origin nothing reaches back to it.
    spray.ShowDrawerIcon(0);
    EXPECT_EDGES(spray.GetUpdateRect(), 85, 85, 114, 114);
    EXPECT_NULL_RECT(spray.m_rcIcon);
    EXPECT_EDGES(spray.m_rcDirty, 85, 60, 169, 129);
}

TEST(CInkSprayGun, labelWithoutASizeTakesTheRoomOfItsMargin)
{
    Spray spray;
    spray.SetWidth(40);
    spray.ShowDrawerName(1);
    // (100,100) to (99,99) grown by 40, beside (70,70) to (129,129).
    EXPECT_EDGES(feed(spray, PT_DOWN, 100, 100), 60, 60, 139, 139);
    EXPECT_EDGES(spray.m_rcName, 100, 100, 99, 99);
}

TEST(CInkSprayGun, finishedSprayReportsItsBoxAlone)
{
    Spray spray;
    spray.m_sizeName = QSize(60, 20);
    feed(spray, PT_DOWN, 100, 100);
    feed(spray, PT_UP, 110, 100);
    spray.m_rcDirty = QRect();
    spray.ShowDrawerName(1);
    spray.ShowDrawerIcon(1);
    EXPECT_EDGES(spray.GetUpdateRect(), 0, 0, 110, 100);
    EXPECT_NULL_RECT(spray.m_rcName);
    EXPECT_NULL_RECT(spray.m_rcIcon);
    EXPECT_NULL_RECT(spray.m_rcDirty);
}

TEST(CInkSprayGun, lastDotIsNeverPlotted)
{
    Spray spray;
    feed(spray, PT_DOWN, 100, 100);
    EXPECT_TRUE(isBlank(drawn(spray)));
    ASSERT_NE(spray.m_pImage, nullptr);
    EXPECT_EQ(spray.m_pImage->size(), QSize(400, 300));
    EXPECT_EQ(spray.m_pImage->format(), QImage::Format_ARGB32);
    EXPECT_TRUE(samePixels(*spray.m_pImage, dots({})));
    EXPECT_EQ(spray.m_nDrawnCount, 0);

    feed(spray, PT_MOVE, 110, 100);
    EXPECT_TRUE(samePixels(drawn(spray), laidOver(dots({{100, 100}}))));
    EXPECT_EQ(spray.m_nDrawnCount, 1);
    feed(spray, PT_UP, 120, 100);
    EXPECT_TRUE(samePixels(drawn(spray), laidOver(dots({{100, 100}, {110, 100}}))));
    EXPECT_EQ(spray.m_nDrawnCount, 2);
    EXPECT_TRUE(samePixels(drawn(spray), laidOver(dots({{100, 100}, {110, 100}}))));
    EXPECT_EQ(spray.m_nDrawnCount, 2);
}

TEST(CInkSprayGun, sprayPaintedAsItGrowsEqualsOnePaintedAtOnce)
{
    Spray grown, atOnce;
    const QColor color(200, 30, 90, 77);
    grown.SetColor(color);
    atOnce.SetColor(color);
    for (int i = 0; i < 60; ++i) {
        feed(grown, PT_MOVE, 17 * i % 97, 29 * i % 89);
        feed(atOnce, PT_MOVE, 17 * i % 97, 29 * i % 89);
        drawn(grown);
        EXPECT_EQ(grown.m_nDrawnCount, i);
    }
    const QImage inSteps = drawn(grown);
    EXPECT_FALSE(isBlank(inSteps));
    EXPECT_TRUE(samePixels(drawn(atOnce), inSteps));
    EXPECT_TRUE(samePixels(*atOnce.m_pImage, *grown.m_pImage));
}

TEST(CInkSprayGun, translucentDotReplacesItsPixelAndIsThenBlended)
{
    Spray spray;
    spray.SetColor(QColor(255, 0, 0, 120));
    for (int i = 0; i < 3; ++i)
        feed(spray, PT_MOVE, 100, 100);
    QImage image = blankCanvas({400, 300}, Qt::white);
    QPainter painter(&image);
    QRect all = image.rect();
    spray.Draw(painter, all);
    painter.end();
    EXPECT_EQ(spray.m_pImage->pixel(100, 100), 0x78ff0000u);
    EXPECT_TRUE(samePixels(image, laidOver(dots({{100, 100}}, 0x78ff0000), Qt::white)));
    EXPECT_EQ(image.pixel(100, 100), 0xffff8787);

    spray.SetColor(QColor(0, 0, 0, 0)); // replaces, too
    feed(spray, PT_MOVE, 100, 100);
    drawn(spray);
    EXPECT_EQ(spray.m_pImage->pixel(100, 100), 0u);
    EXPECT_EQ(spray.m_color, QColor(0, 0, 0, 0));
}

TEST(CInkSprayGun, dotsOutsideTheImageAreSkippedSilently)
{
    const MessageLog log;
    Spray spray;
    for (const QPoint &dot : {QPoint(400, 10), QPoint(10, 300), QPoint(-1, 10), QPoint(10, -1), QPoint(399, 299),
                              QPoint(0, 0), QPoint(INT_MAX, INT_MIN), QPoint(5, 5)})
        feed(spray, PT_MOVE, dot.x(), dot.y());
    drawn(spray);
    EXPECT_TRUE(samePixels(*spray.m_pImage, dots({{399, 299}, {0, 0}})));
    EXPECT_EQ(spray.m_nDrawnCount, 7);
    EXPECT_EDGES(spray.m_rcHot, -1, INT_MIN, INT_MAX, 300);
    EXPECT_TRUE(log.lines.isEmpty());
}

TEST(CInkSprayGun, dotsAreTruncated)
{
    Spray spray;
    spray.m_graphData = {QPointF(10.9, 20.9), QPointF(-0.9, 30.5), QPointF(1, 1)};
    drawn(spray);
    EXPECT_TRUE(samePixels(*spray.m_pImage, dots({{10, 20}, {0, 30}})));
}

TEST(CInkSprayGun, clipWhilePaintingIsTheCollectedAreaUntilTheCommit)
{
    Spray spray;
    feed(spray, PT_DOWN, 100, 100);
    feed(spray, PT_MOVE, 200, 150);
    EXPECT_EDGES(paintCalls(spray, QRect()).value(0).clip.toRect(), 85, 85, 214, 164);
    // Drawn: only what the host asks for is left.
    EXPECT_EDGES(paintCalls(spray, QRect(10, 10, 30, 40)).value(0).clip.toRect(), 10, 10, 39, 49);
    feed(spray, PT_MOVE, 200, 150);
    EXPECT_EDGES(paintCalls(spray, QRect(10, 10, 30, 40)).value(0).clip.toRect(), 10, 10, 214, 164);
    EXPECT_NULL_RECT(spray.m_rcDirty);
    feed(spray, PT_UP, 200, 150);
    EXPECT_EDGES(paintCalls(spray, QRect(10, 10, 30, 40)).value(0).clip.toRect(), 0, 0, 399, 299);
    EXPECT_NULL_RECT(spray.m_rcDirty);
}

TEST(CInkSprayGun, nothingIsShownWhereNothingIsDue)
{
    Spray spray;
    feed(spray, PT_DOWN, 100, 100);
    feed(spray, PT_MOVE, 300, 200);
    drawn(spray);
    const QImage image = painted([&](QPainter &painter) {
        QRect none;
        spray.Draw(painter, none);
    });
    EXPECT_TRUE(isBlank(image));
}

TEST(CInkSprayGun, imageIsPaintedWithThePaintersOwnHints)
{
    Spray spray;
    feed(spray, PT_DOWN, 100, 100);
    const auto calls = paintCalls(spray);
    ASSERT_EQ(calls.size(), 1);
    EXPECT_FALSE(calls[0].isPath);
    EXPECT_EQ(calls[0].hints, QPainter::TextAntialiasing);
}

TEST(CInkSprayGun, painterIsGivenBackWithItsClip)
{
    Spray spray;
    EXPECT_NULL_RECT(clipAfterDrawWithOddPainter(spray));
    feed(spray, PT_DOWN, 100, 100);
    EXPECT_EDGES(clipAfterDraw(spray, QRect(0, 0, 400, 300)), 0, 0, 4, 4);
    EXPECT_NULL_RECT(clipAfterDrawWithOddPainter(spray));
    feed(spray, PT_UP, 110, 100);
    EXPECT_EDGES(clipAfterDraw(spray, QRect(0, 0, 400, 300)), 0, 0, 4, 4);
    EXPECT_NULL_RECT(clipAfterDrawWithOddPainter(spray));
}

TEST(CInkSprayGun, imageKeepsTheSizeOfTheFirstDraw)
{
    CInkSprayGun spray(QSize(50, 40));
    feed(spray, PT_DOWN, 10, 10);
    feed(spray, PT_MOVE, 60, 10);
    drawn(spray);
    const QImage *image = spray.m_pImage;
    EXPECT_EQ(image->size(), QSize(50, 40));
    spray.SetCanvasSize(QSize(400, 300));
    feed(spray, PT_MOVE, 20, 20);
    feed(spray, PT_UP, 20, 20);
    EXPECT_TRUE(samePixels(drawn(spray), laidOver(dots({{10, 10}, {20, 20}}, 0xff000000, {50, 40}))));
    EXPECT_EQ(spray.m_pImage, image);
    EXPECT_TRUE(samePixels(*image, dots({{10, 10}, {20, 20}}, 0xff000000, {50, 40})));
}

TEST(CInkSprayGun, movedSprayKeepsWhatIsPlotted)
{
    Spray spray;
    feed(spray, PT_DOWN, 100, 100);
    feed(spray, PT_MOVE, 110, 100);
    drawn(spray);
    spray.MoveGraph(20.0f, 20.0f);
    EXPECT_TRUE(samePixels(drawn(spray), laidOver(dots({{100, 100}}))));
}

TEST(CInkSprayGun, sprayThatWasNeverPaintedHoldsNoImage)
{
    Spray spray;
    drawn(spray);
    EXPECT_EQ(spray.m_pImage, nullptr);
    feed(spray, PT_DOWN, 100, 100);
    feed(spray, PT_UP, 110, 100);
    Layers layers;
    layers.draw(spray, 1);
    EXPECT_EQ(spray.m_pImage, nullptr);
}

TEST(CInkSprayGun, layersFollowTheCommit)
{
    Spray spray;
    spray.ShowDrawerName(1);
    spray.ShowDrawerIcon(1);
    feed(spray, PT_DOWN, 100, 100);
    feed(spray, PT_MOVE, 110, 100);
    Layers growing;
    growing.draw(spray);
    EXPECT_TRUE(samePixels(growing.surface, laidOver(dots({{100, 100}}))));
    EXPECT_TRUE(isBlank(growing.page));
    EXPECT_TRUE(isBlank(growing.ink));
    feed(spray, PT_UP, 110, 100);
    const QImage expected = laidOver(dots({{100, 100}, {110, 100}}));
    Layers finished;
    finished.draw(spray);
    EXPECT_TRUE(samePixels(finished.surface, expected));
    EXPECT_TRUE(samePixels(finished.ink, expected));
    EXPECT_TRUE(samePixels(finished.page, expected));
    EXPECT_TRUE(isBlank(finished.background));
}

TEST(CInkSprayGun, drawLeavesTheCallersRectangle)
{
    Spray spray;
    feed(spray, PT_DOWN, 100, 100);
    QImage image = blankCanvas();
    QPainter painter(&image);
    QRect rect(1, 2, 3, 4);
    spray.Draw(painter, rect);
    EXPECT_EDGES(rect, 1, 2, 3, 5);
}

TEST(CInkSprayGun, hostileValuesAreSurvived)
{
    for (const QSize &size : {QSize(), QSize(0, 0), QSize(-4, 30), QSize(INT_MAX, INT_MAX), QSize(40, 30)}) {
        for (const int width : {INT_MIN, -7, 0, INT_MAX}) {
            for (const int far : {INT_MIN, 16'777'217, INT_MAX}) {
                CInkSprayGun spray(size);
                spray.SetWidth(width);
                spray.ShowDrawerName(1);
                spray.ShowDrawerIcon(1);
                feed(spray, PT_DOWN, far, 80);
                feed(spray, PT_MOVE, 10, far);
                drawn(spray);
                feed(spray, PT_UP, far, far);
                EXPECT_TRUE(isBlank(drawn(spray)));
                spray.m_graphData.clear();
                drawn(spray);
                EXPECT_NULL_RECT(spray.GetUpdateRect());
                spray.m_graphData = {QPointF(1, 1)};
                drawn(spray); // fewer than have been plotted
                spray.m_nDrawnCount = -5;
                drawn(spray);
            }
        }
    }
}

TEST(CInkSprayGun, canvasOfMoreThan256MegapixelsHoldsNoImage)
{
    CInkSprayGun spray(QSize(16001, 16000));
    feed(spray, PT_DOWN, 10, 10);
    feed(spray, PT_MOVE, 20, 20);
    EXPECT_TRUE(isBlank(drawn(spray)));
    EXPECT_EQ(spray.m_pImage, nullptr);
}

TEST(CInkSprayGun, canvasAsWideAsTheIntsAfterwardsIsHarmless)
{
    CInkSprayGun spray(QSize(100, 100));
    feed(spray, PT_DOWN, 10, 10);
    feed(spray, PT_MOVE, 20, 20);
    drawn(spray);
    spray.m_rcCanvas.setCoords(INT_MIN, 0, INT_MAX, 10);
    drawn(spray);
    EXPECT_EQ(spray.m_pImage->width(), 100);
}

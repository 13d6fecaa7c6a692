// The brush: the pencil's path with the finest antialiasing.

#include "CInkBrush.h"
#include "PenStroke.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

const QColor kTranslucentRed(255, 0, 0, 120);

} // namespace

TEST(CInkBrush, newBrushHasItsStyleFields)
{
    CInkBrush brush;
    EXPECT_EQ(brush.m_nPenParam, 32);
    EXPECT_EQ(brush.m_nCapStyle, 32);
    EXPECT_EQ(brush.m_nPenStyle, 1);
    EXPECT_EQ(brush.m_nWidth, 1);
    EXPECT_EQ(brush.m_color, QColor(0, 0, 0, 255));
    EXPECT_EQ(brush.GetPointCount(), 0);
}

TEST(CInkBrush, styleFieldsAreNotPaintedWith)
{
    CInkBrush brush;
    feedZigzag(brush);
    brush.SetWidth(12);
    brush.m_nCapStyle = Qt::FlatCap;
    brush.m_nPenStyle = Qt::DashLine;
    brush.m_nPenParam = 5;
    EXPECT_TRUE(samePixels(drawn(brush), smoothStroke(zigzagPath(), roundPen(Qt::black, 12))));
}

TEST(CInkBrush, strokeIsOnePath)
{
    for (const int width : {0, 1, 2, 9, 25}) {
        SCOPED_TRACE(width);
        CInkBrush brush;
        feedZigzag(brush);
        brush.SetWidth(width);
        brush.SetColor(kTranslucentRed); // one path: crossings are no darker
        const QImage expected = smoothStroke(zigzagPath(), roundPen(kTranslucentRed, width));
        EXPECT_FALSE(isBlank(expected));
        EXPECT_TRUE(samePixels(drawn(brush), expected));
        brush.FinishGraph();
        EXPECT_TRUE(samePixels(drawn(brush), expected));
        EXPECT_EQ(brush.m_color, QColor(kTranslucentRed));
    }
}

TEST(CInkBrush, strokeIsPaintedWithTheFinestAntialiasing)
{
    CInkBrush brush;
    feedZigzag(brush);
    brush.SetWidth(9);
    const auto calls = paintCalls(brush);
    ASSERT_EQ(calls.size(), 1);
    EXPECT_TRUE(calls[0].isPath);
    EXPECT_TRUE(calls[0].hints.testFlag(QPainter::Antialiasing));
    EXPECT_TRUE(int(calls[0].hints) & 0x08); // high-quality antialiasing, a name that is deprecated
    EXPECT_FALSE(calls[0].hints.testFlag(QPainter::SmoothPixmapTransform));
    EXPECT_TRUE(calls[0].transform.isIdentity());
    EXPECT_EQ(calls[0].pen, roundPen(QColor(0, 0, 0), 9));
}

TEST(CInkBrush, clipHoldsTheHostsRectangleInEveryPhase)
{
    CInkBrush brush;
    feedZigzag(brush);
    EXPECT_EDGES(clipAfterDraw(brush, QRect(0, 0, 50, 50)), 0, 0, 140, 170);
    EXPECT_EDGES(clipAfterDraw(brush, QRect()), 90, 40, 140, 170);
    brush.FinishGraph();
    EXPECT_EDGES(clipAfterDraw(brush, QRect(0, 0, 50, 50)), 0, 0, 232, 182);
    EXPECT_EDGES(clipAfterDraw(brush, QRect(0, 0, 400, 300)), 0, 0, 399, 299);
    EXPECT_EDGES(clipAfterDraw(brush, QRect()), 68, 8, 232, 182);
}

TEST(CInkBrush, finishedStrokeWiderThanItsFrameIsCutOnlyByTheHost)
{
    CInkBrush brush;
    brush.SetColor(Qt::black);
    brush.SetWidth(100);
    drag(brush, {200, 150}, {200, 160});
    EXPECT_NE(drawn(brush).pixel(155, 155), 0u);
    const QImage cut = painted([&](QPainter &painter) {
        QRect none;
        brush.Draw(painter, none);
    });
    EXPECT_NE(cut.pixel(168, 155), 0u);
    EXPECT_EQ(cut.pixel(167, 155), 0u);
}

TEST(CInkBrush, painterIsGivenBackButForItsClip)
{
    CInkBrush brush;
    EXPECT_EDGES(clipAfterDrawWithOddPainter(brush), 0, 0, -1, -1);
    feedZigzag(brush);
    EXPECT_EDGES(clipAfterDrawWithOddPainter(brush), 0, 0, 399, 299);
    brush.FinishGraph();
    EXPECT_EDGES(clipAfterDrawWithOddPainter(brush), 0, 0, 399, 299);
}

TEST(CInkBrush, painterKeepsItsTransformAndBrush)
{
    CInkBrush brush;
    feedZigzag(brush);
    brush.SetColor(kTranslucentRed);
    brush.SetWidth(6);
    brush.m_fRotateAngle = 45;
    const QImage image = painted([&](QPainter &painter) {
        QRect all(0, 0, 400, 300);
        painter.translate(15, 25);
        painter.setBrush(QColor(0, 200, 0, 90));
        brush.Draw(painter, all);
    });
    const QImage expected = painted([](QPainter &painter) {
        painter.translate(15, 25);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(QColor(0, 200, 0, 90));
        painter.setPen(roundPen(kTranslucentRed, 6));
        painter.drawPath(zigzagPath());
    });
    EXPECT_TRUE(samePixels(image, expected));
}

TEST(CInkBrush, layersFollowTheCommit)
{
    CInkBrush brush;
    feedZigzag(brush);
    brush.SetWidth(4);
    brush.SetColor(kTranslucentRed);
    brush.ShowDrawerName(1);
    brush.ShowDrawerIcon(1);
    brush.m_sizeName = QSize(60, 20);
    const QImage expected = smoothStroke(zigzagPath(), roundPen(kTranslucentRed, 4));
    Layers growing;
    growing.draw(brush);
    EXPECT_TRUE(samePixels(growing.surface, expected));
    EXPECT_TRUE(isBlank(growing.page));
    EXPECT_TRUE(isBlank(growing.background));
    EXPECT_TRUE(isBlank(growing.ink));
    brush.FinishGraph();
    Layers finished;
    finished.draw(brush);
    EXPECT_TRUE(samePixels(finished.surface, expected));
    EXPECT_TRUE(samePixels(finished.ink, expected));
    EXPECT_TRUE(samePixels(finished.page, expected));
    EXPECT_TRUE(isBlank(finished.background));
}

TEST(CInkBrush, iconSitsAboveTheLastPosition)
{
    CInkBrush brush;
    EXPECT_NULL_RECT(brush.GetDisIconRect());
    brush.m_graphData = {QPointF(5, 5), QPointF(100.7, 50.2)};
    EXPECT_EDGES(brush.GetDisIconRect(), 100, 20, 129, 49);
    brush.m_graphData = {QPointF(-3.7, -2.2)};
    EXPECT_EDGES(brush.GetDisIconRect(), -3, -32, 26, -3);
}

TEST(CInkBrush, everyCodeAppendsThePosition)
{
    CInkBrush brush;
    brush.SetWidth(1);
    int count = 0;
    for (const int code : {99, 0, 3, 4, 5, 1, -1, 1}) {
        SCOPED_TRACE(code);
        brush.m_bSparePoint = 1;
        feed(brush, code, 10 * count, 7);
        EXPECT_EQ(brush.IsSparePoint(), 0);
        ASSERT_EQ(brush.GetPointCount(), ++count);
        EXPECT_EQ(brush.m_nPointCount, count);
        EXPECT_POINT(brush.m_graphData.last(), 10 * (count - 1), 7);
        EXPECT_EQ(brush.m_bFinished, 0);
    }
}

TEST(CInkBrush, releasePositionIsPartOfTheStroke)
{
    CInkBrush brush;
    brush.SetWidth(1);
    EXPECT_FALSE(brush.FinishGraph());
    EXPECT_NULL_RECT(feed(brush, PT_DOWN, 100, 100));
    brush.ShowDrawerIcon(1);
    // Margin 20 around the newest segment, and the icon above its end.
    EXPECT_EDGES(feed(brush, PT_MOVE, 150, 130), 80, 80, 179, 150);
    EXPECT_EDGES(brush.m_rcIcon, 150, 100, 179, 129);
    EXPECT_EDGES(feed(brush, PT_UP, 160, 90), 68, 58, 192, 162);
    EXPECT_EQ(brush.GetPointCount(), 3);
    EXPECT_EQ(brush.m_bEditMode, 1);
    EXPECT_EQ(brush.m_bFinished, 1);
    EXPECT_EQ(brush.m_bHideHotShape, 1);
    EXPECT_EDGES(brush.m_rcHot, 68, 58, 192, 162);
    EXPECT_NULL_RECT(feed(brush, PT_MOVE, 300, 200));
    EXPECT_EQ(brush.GetPointCount(), 3);
}

TEST(CInkBrush, emptyStrokePaintsNothingAndSetsNoClip)
{
    CInkBrush brush;
    EXPECT_TRUE(isBlank(drawn(brush)));
    EXPECT_EDGES(clipAfterDraw(brush, QRect(0, 0, 400, 300)), 0, 0, 4, 4);
}

TEST(CInkBrush, strokesWithoutASegmentPaintNothing)
{
    CInkBrush brush;
    brush.SetWidth(20);
    feed(brush, PT_DOWN, 100, 80);
    EXPECT_TRUE(isBlank(drawn(brush)));
    feed(brush, PT_UP, 100, 80);
    EXPECT_TRUE(isBlank(drawn(brush)));
    CInkBrush tap;
    tap.SetWidth(20);
    feed(tap, PT_UP, 100, 80);
    EXPECT_TRUE(isBlank(drawn(tap)));
}

TEST(CInkBrush, drawLeavesTheCallersRectangle)
{
    CInkBrush brush;
    feedZigzag(brush);
    QImage image = blankCanvas();
    QPainter painter(&image);
    QRect rect(1, 2, 3, 4);
    brush.Draw(painter, rect);
    EXPECT_EDGES(rect, 1, 2, 3, 5);
}

TEST(CInkBrush, paintingLogsNothing)
{
    const MessageLog log;
    CInkBrush brush;
    feedZigzag(brush);
    drawn(brush);
    brush.FinishGraph();
    drawn(brush);
    EXPECT_TRUE(log.lines.isEmpty());
}

TEST(CInkBrush, skipSuppressesAllPainting)
{
    CInkBrush brush;
    feedZigzag(brush);
    brush.FinishGraph();
    Layers layers;
    layers.draw(brush, 1);
    EXPECT_TRUE(isBlank(layers.surface));
    EXPECT_TRUE(isBlank(layers.page));
    EXPECT_TRUE(isBlank(layers.ink));
}

TEST(CInkBrush, emptiedListIsSurvived)
{
    CInkBrush brush;
    feedZigzag(brush);
    brush.FinishGraph();
    brush.m_graphData.clear();
    EXPECT_TRUE(isBlank(drawn(brush)));
    EXPECT_NULL_RECT(brush.GetDisIconRect());
}

TEST(CInkBrush, extremeCoordinatesArePaintedWithoutHarm)
{
    for (const int width : {-7, 0, 1, 10}) {
        for (const int far : {INT_MIN, -2'000'000'000, 16'777'217, INT_MAX}) {
            CInkBrush brush;
            brush.SetWidth(width);
            brush.ShowDrawerIcon(1);
            feed(brush, PT_DOWN, far, 80);
            EXPECT_EQ(brush.m_graphData[brush.GetPointCount() - 1].x(), double(float(far)));
            feed(brush, PT_MOVE, 100, far);
            drawn(brush);
            feed(brush, PT_UP, far, far);
            drawn(brush);
            brush.GetDisIconRect();
        }
    }
}

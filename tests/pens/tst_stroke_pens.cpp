// What pencil, brush, flat brush and highlighter share: how they collect a stroke, and what they leave alone. How those
// with a round pen paint it is in tst_round_pens.cpp.

#include "CInkBrush.h"
#include "CInkFlatBrush.h"
#include "CInkHighLightPen.h"
#include "CInkPencil.h"
#include "PenStroke.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

template <typename Pen>
class StrokePen : public ::testing::Test
{
};
using StrokePens = ::testing::Types<CInkPencil, CInkBrush, CInkFlatBrush, CInkHighLightPen>;
TYPED_TEST_SUITE(StrokePen, StrokePens, );

} // namespace

TYPED_TEST(StrokePen, iconSitsAboveTheLastPosition)
{
    TypeParam pen;
    EXPECT_NULL_RECT(pen.GetDisIconRect());
    pen.m_graphData = {QPointF(5, 5), QPointF(100.7, 50.2)};
    EXPECT_EDGES(pen.GetDisIconRect(), 100, 20, 129, 49);
    pen.m_graphData = {QPointF(-3.7, -2.2)};
    EXPECT_EDGES(pen.GetDisIconRect(), -3, -32, 26, -3);
}

TYPED_TEST(StrokePen, iconIsCoveredWhileTheStrokeGrows)
{
    TypeParam pen;
    pen.SetWidth(1);
    pen.ShowDrawerIcon(1);
    feed(pen, PT_DOWN, 100, 100);
    EXPECT_EDGES(feed(pen, PT_MOVE, 150, 130), 80, 80, 179, 150);
    EXPECT_EDGES(pen.m_rcIcon, 150, 100, 179, 129);
    // Frame (68,68) to (182,162); the release still covers the icon of the segment before it.
    EXPECT_EDGES(feed(pen, PT_UP, 150, 130), 68, 68, 182, 162);
    EXPECT_EDGES(pen.GetUpdateRect(), 68, 68, 182, 162);
}

TYPED_TEST(StrokePen, everyCodeAppendsThePosition)
{
    TypeParam pen;
    pen.SetWidth(1);
    int count = 0;
    for (const int code : {99, 0, 3, 4, 5, 1, -1, 1}) {
        SCOPED_TRACE(code);
        pen.m_bSparePoint = 1;
        feed(pen, code, 10 * count, 7);
        EXPECT_EQ(pen.IsSparePoint(), 0);
        ASSERT_EQ(pen.GetPointCount(), ++count);
        EXPECT_EQ(pen.m_nPointCount, count);
        EXPECT_POINT(pen.m_graphData.last(), 10 * (count - 1), 7);
        EXPECT_EQ(pen.m_bFinished, 0);
    }
}

TYPED_TEST(StrokePen, releasePositionIsPartOfTheStroke)
{
    TypeParam pen;
    pen.SetWidth(1);
    EXPECT_FALSE(pen.FinishGraph());
    EXPECT_NULL_RECT(feed(pen, PT_DOWN, 100, 100));
    pen.ShowDrawerIcon(1);
    // Margin 20 around the newest segment, and the icon above its end.
    EXPECT_EDGES(feed(pen, PT_MOVE, 150, 130), 80, 80, 179, 150);
    EXPECT_EDGES(pen.m_rcIcon, 150, 100, 179, 129);
    EXPECT_EDGES(feed(pen, PT_UP, 160, 90), 68, 58, 192, 162);
    EXPECT_EQ(pen.GetPointCount(), 3);
    EXPECT_EQ(pen.m_bEditMode, 1);
    EXPECT_EQ(pen.m_bFinished, 1);
    EXPECT_EQ(pen.m_bHideHotShape, 1);
    EXPECT_EDGES(pen.m_rcHot, 68, 58, 192, 162);
    EXPECT_NULL_RECT(feed(pen, PT_MOVE, 300, 200));
    EXPECT_EQ(pen.GetPointCount(), 3);
}

TYPED_TEST(StrokePen, emptyStrokePaintsNothingAndSetsNoClip)
{
    TypeParam pen;
    EXPECT_TRUE(isBlank(drawn(pen)));
    EXPECT_EDGES(clipAfterDraw(pen, QRect(0, 0, 400, 300)), 0, 0, 4, 4);
}

TYPED_TEST(StrokePen, strokesWithoutASegmentPaintNothing)
{
    TypeParam pen;
    pen.SetWidth(20);
    feed(pen, PT_DOWN, 100, 80);
    EXPECT_TRUE(isBlank(drawn(pen)));
    feed(pen, PT_UP, 100, 80);
    EXPECT_TRUE(isBlank(drawn(pen)));
    TypeParam tap;
    tap.SetWidth(20);
    feed(tap, PT_UP, 100, 80);
    EXPECT_TRUE(isBlank(drawn(tap)));
    TypeParam click;
    click.SetWidth(20);
    drag(click, {100, 80}, {100, 80});
    EXPECT_TRUE(isBlank(drawn(click)));
}

TYPED_TEST(StrokePen, drawLeavesTheCallersRectangle)
{
    TypeParam pen;
    feedZigzag(pen);
    QImage image = blankCanvas();
    QPainter painter(&image);
    QRect rect(1, 2, 3, 4);
    pen.Draw(painter, rect);
    EXPECT_EDGES(rect, 1, 2, 3, 5);
}

TYPED_TEST(StrokePen, paintingLogsNothing)
{
    const MessageLog log;
    TypeParam pen;
    feedZigzag(pen);
    drawn(pen);
    pen.FinishGraph();
    drawn(pen);
    EXPECT_TRUE(log.lines.isEmpty());
}

TYPED_TEST(StrokePen, skipSuppressesAllPainting)
{
    TypeParam pen;
    feedZigzag(pen);
    pen.FinishGraph();
    Layers layers;
    layers.draw(pen, 1);
    EXPECT_TRUE(isBlank(layers.surface));
    EXPECT_TRUE(isBlank(layers.page));
    EXPECT_TRUE(isBlank(layers.ink));
}

TYPED_TEST(StrokePen, emptiedListIsSurvived)
{
    TypeParam pen;
    feedZigzag(pen);
    pen.FinishGraph();
    pen.m_graphData.clear();
    EXPECT_TRUE(isBlank(drawn(pen)));
    EXPECT_NULL_RECT(pen.GetDisIconRect());
    pen.m_graphData = {QPointF(1, 1)};
    EXPECT_TRUE(isBlank(drawn(pen)));
}

TYPED_TEST(StrokePen, extremeCoordinatesArePaintedWithoutHarm)
{
    for (const int width : {-7, 0, 1, 10}) {
        for (const int far : {INT_MIN, -2'000'000'000, 16'777'217, INT_MAX}) {
            TypeParam pen;
            pen.SetWidth(width);
            pen.ShowDrawerIcon(1);
            feed(pen, PT_DOWN, far, 80);
            EXPECT_EQ(pen.m_graphData[pen.GetPointCount() - 1].x(), double(float(far)));
            feed(pen, PT_MOVE, 100, far);
            drawn(pen);
            feed(pen, PT_UP, far, far);
            drawn(pen);
            pen.GetDisIconRect();
        }
    }
}

TYPED_TEST(StrokePen, painterThatIsNotActivePaintsNothing)
{
    const MessageLog log; // of Qt's complaints
    QPainter painter;
    for (const int points : {1, 2, 3, 40}) {
        TypeParam pen;
        for (int i = 0; i < points; ++i)
            feed(pen, PT_MOVE, 10 * i, 20);
        QRect area(0, 0, 400, 300);
        pen.Draw(painter, area);
        EXPECT_EDGES(area, 0, 0, 399, 299);
        EXPECT_FALSE(painter.isActive());
    }
}

// What brush, flat brush and highlighter share: how they collect a stroke, and what they leave alone; and how the two
// with a round pen paint it.

#include "CInkBrush.h"
#include "CInkFlatBrush.h"
#include "CInkHighLightPen.h"
#include "PenStroke.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

template <typename Pen>
class StrokePen : public ::testing::Test
{
};
using StrokePens = ::testing::Types<CInkBrush, CInkFlatBrush, CInkHighLightPen>;
TYPED_TEST_SUITE(StrokePen, StrokePens, );

// Those whose clip outlives them.
template <typename Pen>
class RoundStrokePen : public ::testing::Test
{
};
using RoundStrokePens = ::testing::Types<CInkBrush, CInkHighLightPen>;
TYPED_TEST_SUITE(RoundStrokePen, RoundStrokePens, );

// The pen that they paint a stroke of `color` with.
QPen penOf(const CInkBrush & /*pen*/, const QColor &color, int width)
{
    return roundPen(color, width);
}

QPen penOf(const CInkHighLightPen & /*pen*/, const QColor &color, int width)
{
    return roundPen(QColor(color.red(), color.green(), color.blue(), 100), width);
}

const QColor kTranslucentRed(255, 0, 0, 120);

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

TYPED_TEST(RoundStrokePen, finishedStrokeWiderThanItsFrameIsCutOnlyByTheHost)
{
    TypeParam pen;
    pen.SetColor(Qt::black);
    pen.SetWidth(100);
    drag(pen, {200, 150}, {200, 160});
    EXPECT_NE(drawn(pen).pixel(155, 155), 0u);
    const QImage cut = painted([&](QPainter &painter) {
        QRect none;
        pen.Draw(painter, none);
    });
    EXPECT_NE(cut.pixel(168, 155), 0u);
    EXPECT_EQ(cut.pixel(167, 155), 0u);
}

TYPED_TEST(RoundStrokePen, painterIsGivenBackButForItsClip)
{
    TypeParam pen;
    EXPECT_EDGES(clipAfterDrawWithOddPainter(pen), 0, 0, -1, -1);
    feedZigzag(pen);
    EXPECT_EDGES(clipAfterDrawWithOddPainter(pen), 0, 0, 399, 299);
    pen.FinishGraph();
    EXPECT_EDGES(clipAfterDrawWithOddPainter(pen), 0, 0, 399, 299);
}

TYPED_TEST(RoundStrokePen, strokeIsOnePath)
{
    for (const int width : {0, 1, 2, 9, 25}) {
        SCOPED_TRACE(width);
        TypeParam pen;
        feedZigzag(pen);
        pen.SetWidth(width);
        pen.SetColor(kTranslucentRed); // one path: crossings are no darker
        const QImage expected = smoothStroke(zigzagPath(), penOf(pen, kTranslucentRed, width));
        EXPECT_FALSE(isBlank(expected));
        EXPECT_TRUE(samePixels(drawn(pen), expected));
        pen.FinishGraph();
        EXPECT_TRUE(samePixels(drawn(pen), expected));
        EXPECT_EQ(pen.m_color, QColor(kTranslucentRed));
    }
}

TYPED_TEST(RoundStrokePen, strokeIsPaintedWithTheFinestAntialiasing)
{
    TypeParam pen;
    feedZigzag(pen);
    pen.SetWidth(9);
    const auto calls = paintCalls(pen);
    ASSERT_EQ(calls.size(), 1);
    EXPECT_TRUE(calls[0].isPath);
    EXPECT_TRUE(calls[0].hints.testFlag(QPainter::Antialiasing));
    EXPECT_TRUE(int(calls[0].hints) & 0x08); // high-quality antialiasing, a name that is deprecated
    EXPECT_FALSE(calls[0].hints.testFlag(QPainter::SmoothPixmapTransform));
    EXPECT_TRUE(calls[0].transform.isIdentity());
    EXPECT_EQ(calls[0].pen, penOf(pen, QColor(0, 0, 0), 9));
}

TYPED_TEST(RoundStrokePen, clipHoldsTheHostsRectangleInEveryPhase)
{
    TypeParam pen;
    feedZigzag(pen);
    EXPECT_EDGES(clipAfterDraw(pen, QRect(0, 0, 50, 50)), 0, 0, 140, 170);
    EXPECT_EDGES(clipAfterDraw(pen, QRect()), 90, 40, 140, 170);
    pen.FinishGraph();
    EXPECT_EDGES(clipAfterDraw(pen, QRect(0, 0, 50, 50)), 0, 0, 232, 182);
    EXPECT_EDGES(clipAfterDraw(pen, QRect(0, 0, 400, 300)), 0, 0, 399, 299);
    EXPECT_EDGES(clipAfterDraw(pen, QRect()), 68, 8, 232, 182);
}

TYPED_TEST(RoundStrokePen, painterKeepsItsTransformAndBrush)
{
    TypeParam pen;
    feedZigzag(pen);
    pen.SetColor(kTranslucentRed);
    pen.SetWidth(6);
    pen.m_fRotateAngle = 45;
    const QImage image = painted([&](QPainter &painter) {
        QRect all(0, 0, 400, 300);
        painter.translate(15, 25);
        painter.setBrush(QColor(0, 200, 0, 90));
        pen.Draw(painter, all);
    });
    const QImage expected = painted([&](QPainter &painter) {
        painter.translate(15, 25);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(QColor(0, 200, 0, 90));
        painter.setPen(penOf(pen, kTranslucentRed, 6));
        painter.drawPath(zigzagPath());
    });
    EXPECT_TRUE(samePixels(image, expected));
}

TYPED_TEST(RoundStrokePen, layersFollowTheCommit)
{
    TypeParam pen;
    feedZigzag(pen);
    pen.SetWidth(4);
    pen.SetColor(kTranslucentRed);
    pen.ShowDrawerName(1);
    pen.ShowDrawerIcon(1);
    pen.m_sizeName = QSize(60, 20);
    const QImage expected = smoothStroke(zigzagPath(), penOf(pen, kTranslucentRed, 4));
    Layers growing;
    growing.draw(pen);
    EXPECT_TRUE(samePixels(growing.surface, expected));
    EXPECT_TRUE(isBlank(growing.page));
    EXPECT_TRUE(isBlank(growing.background));
    EXPECT_TRUE(isBlank(growing.ink));
    pen.FinishGraph();
    Layers finished;
    finished.draw(pen);
    EXPECT_TRUE(samePixels(finished.surface, expected));
    EXPECT_TRUE(samePixels(finished.ink, expected));
    EXPECT_TRUE(samePixels(finished.page, expected));
    EXPECT_TRUE(isBlank(finished.background));
}

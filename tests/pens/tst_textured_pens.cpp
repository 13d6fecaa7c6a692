// What the colour brush, the crayon and the water-colour pen share: how they collect a stroke, and their canvas.

#include "CInkColorBrush.h"
#include "CInkCrayon.h"
#include "CInkWaterColorPen.h"
#include "PenStroke.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

void resampleTowards(CInkColorBrush &pen, const QPointF &position, float step)
{
    pen.MakeColorBrushPoint(position, step);
}

void resampleTowards(CInkCrayon &pen, const QPointF &position, float step)
{
    pen.MakecrayonPoint(position, step);
}

void resampleTowards(CInkWaterColorPen &pen, const QPointF &position, float step)
{
    pen.MakeWaterColoePoint(position, step);
}

template <typename Pen>
class TexturedPen : public ::testing::Test
{
protected:
    static constexpr bool kHalfSteps = std::is_same_v<Pen, CInkWaterColorPen>; // half the width, not a quarter

    TexturedPen() { m_pen.SetWidth(20); }

    void expectPoints(std::initializer_list<QPointF> points)
    {
        ASSERT_EQ(m_pen.m_graphData.size(), int(points.size()));
        int i = 0;
        for (const QPointF &point : points) {
            SCOPED_TRACE(i);
            EXPECT_POINT(m_pen.m_graphData[i], point.x(), point.y());
            ++i;
        }
    }

    Pen m_pen{QSize(400, 300)};
};

using Pens = ::testing::Types<CInkColorBrush, CInkCrayon, CInkWaterColorPen>;

} // namespace

TYPED_TEST_SUITE(TexturedPen, Pens);

TYPED_TEST(TexturedPen, newPenHasItsCanvasAndNoImage)
{
    TypeParam &pen = this->m_pen;
    EXPECT_EDGES(pen.m_rcCanvas, 0, 0, 399, 299);
    EXPECT_POINT(pen.m_ptPrevPoint, 0, 0);
    EXPECT_EQ(pen.m_pImage, nullptr);
    EXPECT_EQ(pen.m_nDrawnCount, 0);
    EXPECT_EQ(pen.GetPointCount(), 0);
    EXPECT_GE(pen.m_graphData.capacity(), 10);
    EXPECT_FALSE(pen.FinishGraph());
    EXPECT_EQ(pen.m_bFinished, 0);
}

TYPED_TEST(TexturedPen, canvasHasTheLastPixelAsItsEdge)
{
    TypeParam &pen = this->m_pen;
    pen.SetCanvasSize(QSize(7, 1));
    EXPECT_EDGES(pen.m_rcCanvas, 0, 0, 6, 0);
    pen.SetCanvasSize(QSize(0, 0));
    EXPECT_EDGES(pen.m_rcCanvas, 0, 0, -1, -1);
    pen.SetCanvasSize(QSize());
    EXPECT_EDGES(pen.m_rcCanvas, 0, 0, -2, -2);
    pen.SetCanvasSize(QSize(INT_MIN, INT_MAX));
    EXPECT_EQ(pen.m_rcCanvas.bottom(), INT_MAX - 1);
    EXPECT_EDGES(TypeParam(QSize(-4, 12)).m_rcCanvas, 0, 0, -5, 11);
}

TYPED_TEST(TexturedPen, iconSitsAboveTheLastPosition)
{
    TypeParam &pen = this->m_pen;
    EXPECT_NULL_RECT(pen.GetDisIconRect());
    pen.m_graphData = {QPointF(5, 5), QPointF(100.7, 50.2)};
    EXPECT_EDGES(pen.GetDisIconRect(), 100, 20, 129, 49);
    pen.m_graphData = {QPointF(-3.7, -2.2)};
    EXPECT_EDGES(pen.GetDisIconRect(), -3, -32, 26, -3);
}

TYPED_TEST(TexturedPen, onlyAPressBeginsAStroke)
{
    TypeParam &pen = this->m_pen;
    for (const int code : {0, 3, 4, 5, 99, -1}) {
        SCOPED_TRACE(code);
        EXPECT_NULL_RECT(feed(pen, code, 50, 60));
        EXPECT_EQ(pen.GetPointCount(), 0);
    }
    EXPECT_NULL_RECT(feed(pen, PT_DOWN, 100, 90));
    this->expectPoints({QPointF(100, 90)});
    EXPECT_POINT(pen.m_ptPrevPoint, 100, 90);
    EXPECT_EQ(pen.m_nPointCount, 0);
    EXPECT_EQ(pen.m_bFinished, 0);
}

TYPED_TEST(TexturedPen, everyOtherCodeIsAMove)
{
    for (const int code : {1, 0, 3, 4, 5, 99, -1}) {
        SCOPED_TRACE(code);
        TypeParam pen(QSize(400, 300));
        pen.SetWidth(20);
        feed(pen, PT_DOWN, 100, 100);
        pen.m_bSparePoint = 1;
        feed(pen, code, 105, 100);
        ASSERT_EQ(pen.GetPointCount(), 2);
        EXPECT_POINT(pen.m_graphData[1], 105, 100);
        EXPECT_EQ(pen.m_nPointCount, 0);
        EXPECT_EQ(pen.m_bSparePoint, 1); // never touched
        EXPECT_EQ(pen.m_bFinished, 0);
    }
}

TYPED_TEST(TexturedPen, moveBelowAQuarterOfTheWidthIsDropped)
{
    TypeParam &pen = this->m_pen;
    feed(pen, PT_DOWN, 100, 100);
    feed(pen, PT_MOVE, 104, 100);
    feed(pen, PT_MOVE, 103, 103); // 4.24
    feed(pen, PT_MOVE, 102, 104); // 4.47
    feed(pen, PT_MOVE, 100, 100);
    this->expectPoints({QPointF(100, 100)});
    feed(pen, PT_MOVE, 104, 103); // exactly 5
    this->expectPoints({QPointF(100, 100), QPointF(104, 103)});
    // 4.9 away from a point between two pixels.
    pen.m_graphData = {QPointF(100.1, 50)};
    feed(pen, PT_MOVE, 105, 50);
    EXPECT_EQ(pen.GetPointCount(), 1);
    pen.m_graphData = {QPointF(100, 50)};
    feed(pen, PT_MOVE, 95, 50);
    EXPECT_EQ(pen.GetPointCount(), 2);
    EXPECT_POINT(pen.m_graphData.last(), 95, 50);
}

TYPED_TEST(TexturedPen, gapIsMeasuredFromTheLastCollectedPoint)
{
    TypeParam &pen = this->m_pen;
    feed(pen, PT_DOWN, 100, 100);
    pen.m_ptLast = QPointF(300, 250);
    pen.m_ptPrevPoint = QPointF(300, 250);
    feed(pen, PT_MOVE, 104, 100);
    EXPECT_EQ(pen.GetPointCount(), 1);
    EXPECT_POINT(pen.m_ptPrevPoint, 100, 100); // refreshed by a dropped move, too
    EXPECT_POINT(pen.m_ptLast, 300, 250);
    pen.m_ptLast = QPointF(105, 100);
    feed(pen, PT_MOVE, 105, 100);
    EXPECT_EQ(pen.GetPointCount(), 2);
    EXPECT_POINT(pen.m_ptPrevPoint, 100, 100);
}

TYPED_TEST(TexturedPen, remainderIsLeftToTheNextMove)
{
    TypeParam &pen = this->m_pen;
    feed(pen, PT_DOWN, 100, 100);
    feed(pen, PT_MOVE, 112, 100);
    if (this->kHalfSteps)
        this->expectPoints({QPointF(100, 100), QPointF(110, 100)});
    else
        this->expectPoints({QPointF(100, 100), QPointF(105, 100), QPointF(110, 100)});
    feed(pen, PT_MOVE, 114, 100);
    EXPECT_POINT(pen.m_graphData.last(), 110, 100);
    EXPECT_POINT(pen.m_ptPrevPoint, 110, 100);
    feed(pen, PT_MOVE, 116, 100);
    if (this->kHalfSteps)
        this->expectPoints({QPointF(100, 100), QPointF(110, 100), QPointF(116, 100)});
    else
        this->expectPoints({QPointF(100, 100), QPointF(105, 100), QPointF(110, 100), QPointF(115, 100)});
}

TYPED_TEST(TexturedPen, moveOfWholeStepsReachesThePosition)
{
    TypeParam &pen = this->m_pen;
    feed(pen, PT_DOWN, 100, 100);
    feed(pen, PT_MOVE, 112, 116); // 20 away
    if (this->kHalfSteps)
        this->expectPoints({QPointF(100, 100), QPointF(106, 108), QPointF(112, 116)});
    else
        this->expectPoints(
            {QPointF(100, 100), QPointF(103, 104), QPointF(106, 108), QPointF(109, 112), QPointF(112, 116)});
}

TYPED_TEST(TexturedPen, gapBetweenThresholdAndStepIsOneStep)
{
    TypeParam &pen = this->m_pen;
    feed(pen, PT_DOWN, 100, 100);
    feed(pen, PT_MOVE, 107, 100);
    EXPECT_EQ(pen.GetPointCount(), 2);
    EXPECT_POINT(pen.m_graphData[1], (this->kHalfSteps ? 107 : 105), 100);
}

TYPED_TEST(TexturedPen, pointsAreSpacedInSinglePrecision)
{
    TypeParam &pen = this->m_pen;
    feed(pen, PT_DOWN, 100, 100);
    feed(pen, PT_MOVE, 117, 131);
    feed(pen, PT_MOVE, 90, 127);
    if (this->kHalfSteps)
        this->expectPoints({{100.0, 100.0},
                            {104.80832624435425, 108.76812362670898},
                            {109.6166524887085, 117.53624725341797},
                            {114.42497825622559, 126.30437088012695},
                            {104.42903232574463, 126.58905777335167},
                            {94.43308639526367, 126.87374466657639}});
    else
        this->expectPoints({{100.0, 100.0},
                            {102.40416312217712, 104.38406181335449},
                            {104.80832624435425, 108.76812362670898},
                            {107.2124891281128, 113.15218544006348},
                            {109.6166524887085, 117.53624725341797},
                            {112.0208158493042, 121.92030906677246},
                            {114.42497825622559, 126.30437088012695},
                            {116.82914161682129, 130.68843269348145},
                            {111.87573289871216, 130.00744503736496},
                            {106.92232418060303, 129.32645738124847},
                            {101.96891593933105, 128.64546966552734},
                            {97.01550674438477, 127.9644820690155},
                            {92.06209754943848, 127.28349447250366}});
}

TYPED_TEST(TexturedPen, stepOfAnOddWidthIsAFraction)
{
    TypeParam &pen = this->m_pen;
    pen.SetWidth(7); // a quarter is 1.75
    feed(pen, PT_DOWN, 100, 100);
    feed(pen, PT_MOVE, 101, 101);
    EXPECT_EQ(pen.GetPointCount(), 1);
    feed(pen, PT_MOVE, 104, 107);
    feed(pen, PT_MOVE, 97, 106);
    if (this->kHalfSteps)
        this->expectPoints({{100.0, 100.0},
                            {101.73648619651794, 103.03885078430176},
                            {103.47297239303589, 106.07770156860352},
                            {99.97322463989258, 106.03569059073925}});
    else
        this->expectPoints({{100.0, 100.0},
                            {100.86824309825897, 101.51942539215088},
                            {101.73648619651794, 103.03885078430176},
                            {102.60472917556763, 104.55827617645264},
                            {103.47297239303589, 106.07770156860352},
                            {101.72309851646423, 106.05669607967138},
                            {99.97322463989258, 106.03569059073925},
                            {98.2233510017395, 106.01468510180712}});
}

TYPED_TEST(TexturedPen, resamplingTakesAnyStep)
{
    TypeParam &pen = this->m_pen;
    pen.SetWidth(1000); // only the threshold of a move looks at the width
    resampleTowards(pen, {5, 5}, 1.0f);
    EXPECT_EQ(pen.GetPointCount(), 0); // nothing to begin from
    pen.m_graphData = {QPointF(0, 0)};
    resampleTowards(pen, {10, 0}, 4.0f);
    this->expectPoints({QPointF(0, 0), QPointF(4, 0), QPointF(8, 0)});
    resampleTowards(pen, {8, 3}, 3.0f); // one step: the position itself
    EXPECT_POINT(pen.m_graphData.last(), 8, 3);
    resampleTowards(pen, {8.5, 3.25}, 99.0f);
    EXPECT_POINT(pen.m_graphData.last(), 8.5, 3.25);
    resampleTowards(pen, {8.5, 3.25}, 1.0f); // no distance at all
    EXPECT_EQ(pen.GetPointCount(), 6);
    EXPECT_POINT(pen.m_ptPrevPoint, 0, 0);

    // A gap of exactly one step ends in the position, not a rounded step away from the last point.
    pen.m_graphData = {QPointF(0.1, 0)};
    resampleTowards(pen, {5, 0}, pen.CalcGapOfpoints(QPointF(0.1, 0), QPointF(5, 0)));
    this->expectPoints({QPointF(0.1, 0), QPointF(5, 0)});
}

TYPED_TEST(TexturedPen, widthOfZeroCollectsEveryPosition)
{
    TypeParam &pen = this->m_pen;
    pen.SetWidth(0);
    feed(pen, PT_DOWN, 100, 100);
    feed(pen, PT_MOVE, 100, 100);
    feed(pen, PT_MOVE, 150, 130);
    feed(pen, PT_MOVE, 151, 130);
    this->expectPoints({QPointF(100, 100), QPointF(100, 100), QPointF(150, 130), QPointF(151, 130)});
}

TYPED_TEST(TexturedPen, negativeWidthCollectsNothing)
{
    TypeParam &pen = this->m_pen;
    pen.SetWidth(-8);
    feed(pen, PT_DOWN, 100, 100);
    feed(pen, PT_MOVE, 150, 130);
    feed(pen, PT_MOVE, 100, 100);
    this->expectPoints({QPointF(100, 100)});
}

TYPED_TEST(TexturedPen, positionsPassThroughSinglePrecision)
{
    TypeParam &pen = this->m_pen;
    feed(pen, PT_DOWN, 16'777'217, -16'777'217);
    this->expectPoints({QPointF(16'777'216, -16'777'216)});
}

TYPED_TEST(TexturedPen, newestSegmentIsReported)
{
    TypeParam &pen = this->m_pen;
    feed(pen, PT_DOWN, 100, 100);
    // From (95 or 100,100) to (105,100): as high as the pen and with a margin of 40.
    EXPECT_EDGES(feed(pen, PT_MOVE, 105, 100), 60, 60, 165, 160);
    EXPECT_EDGES(feed(pen, PT_MOVE, 106, 100), 60, 60, 165, 160); // dropped: the segment before it again
    QRect update(0, 0, 2, 2);
    pen.AddPoint(PT_MOVE, QPoint(110, 100), update);
    EXPECT_EDGES(update, 0, 0, 170, 160);
    // Name label at the segment's start, with its far edges counted twice, and icon above its end.
    pen.ShowDrawerName(1);
    pen.ShowDrawerIcon(1);
    pen.m_sizeName = QSize(30, 10);
    EXPECT_EDGES(pen.GetUpdateRect(), 65, 60, 239, 209);
    EXPECT_EDGES(pen.m_rcName, 105, 100, 239, 209);
    EXPECT_EDGES(pen.m_rcIcon, 110, 70, 139, 99);
}

TYPED_TEST(TexturedPen, releasePositionIsNotCollected)
{
    TypeParam &pen = this->m_pen;
    feed(pen, PT_DOWN, 100, 100);
    feed(pen, PT_MOVE, 105, 100);
    feed(pen, PT_MOVE, 110, 100);
    pen.m_bSparePoint = 1;
    const QRect update = feed(pen, PT_UP, 200, 200);
    EXPECT_EQ(pen.GetPointCount(), 3);
    EXPECT_EQ(pen.m_bFinished, 1);
    EXPECT_EQ(pen.m_bHideHotShape, 1);
    EXPECT_EQ(pen.m_bEditMode, 0);
    EXPECT_EQ(pen.m_bSparePoint, 1);
    EXPECT_EQ(pen.m_nPointCount, 0);
    EXPECT_EDGES(pen.m_rcHot, 68, 68, 142, 132);
    EXPECT_EDGES(update, 65, 60, 170, 160);
    EXPECT_EDGES(pen.GetUpdateRect(), 68, 68, 142, 132);
    EXPECT_POINT(pen.m_hotPts[8], 105, 38);

    EXPECT_NULL_RECT(feed(pen, PT_MOVE, 300, 200));
    EXPECT_NULL_RECT(feed(pen, PT_UP, 300, 200));
    EXPECT_EQ(pen.GetPointCount(), 3);
}

TYPED_TEST(TexturedPen, frameOfAReleaseNeedsThreePoints)
{
    TypeParam &pen = this->m_pen;
    feed(pen, PT_DOWN, 100, 100);
    feed(pen, PT_MOVE, 105, 100);
    feed(pen, PT_UP, 105, 100);
    EXPECT_EQ(pen.m_bFinished, 1);
    EXPECT_NULL_RECT(pen.m_rcHot);
    EXPECT_NULL_RECT(pen.GetUpdateRect());

    TypeParam lone(QSize(400, 300));
    EXPECT_NULL_RECT(feed(lone, PT_UP, 105, 100));
    EXPECT_EQ(lone.GetPointCount(), 0);
    EXPECT_EQ(lone.m_bFinished, 1);
    EXPECT_EQ(lone.m_bHideHotShape, 1);
    EXPECT_EQ(lone.m_bEditMode, 0);
    feed(lone, PT_DOWN, 1, 1);
    EXPECT_EQ(lone.GetPointCount(), 0);
}

TYPED_TEST(TexturedPen, finishingAnyStrokeFramesIt)
{
    TypeParam &pen = this->m_pen;
    feed(pen, PT_DOWN, 100, 100);
    EXPECT_TRUE(pen.FinishGraph());
    EXPECT_EQ(pen.m_bFinished, 1);
    EXPECT_EQ(pen.m_bHideHotShape, 1);
    EXPECT_EQ(pen.m_bEditMode, 1);
    EXPECT_EDGES(pen.m_rcHot, 68, 68, 132, 132);
}

TYPED_TEST(TexturedPen, strokeOfOnePointPaintsNothingAndHoldsNoImage)
{
    TypeParam &pen = this->m_pen;
    const QColor color = pen.m_color;
    EXPECT_TRUE(isBlank(drawn(pen)));
    EXPECT_EDGES(clipAfterDraw(pen, QRect(0, 0, 400, 300)), 0, 0, 4, 4);
    feed(pen, PT_DOWN, 100, 100);
    EXPECT_TRUE(isBlank(drawn(pen)));
    EXPECT_EDGES(clipAfterDraw(pen, QRect(0, 0, 400, 300)), 0, 0, 4, 4);
    pen.FinishGraph();
    EXPECT_TRUE(isBlank(drawn(pen)));
    Layers layers;
    layers.draw(pen);
    EXPECT_TRUE(isBlank(layers.surface));
    EXPECT_EQ(pen.m_pImage, nullptr);
    EXPECT_EQ(pen.m_nDrawnCount, 0);
    EXPECT_EQ(pen.m_color, color);
}

TYPED_TEST(TexturedPen, strokeThatWasNeverPaintedHoldsNoImage)
{
    TypeParam &pen = this->m_pen;
    feed(pen, PT_DOWN, 100, 100);
    feed(pen, PT_MOVE, 200, 100);
    feed(pen, PT_UP, 200, 100);
    EXPECT_EQ(pen.m_pImage, nullptr);
    Layers layers;
    layers.draw(pen, 1);
    EXPECT_EQ(pen.m_pImage, nullptr);
}

TYPED_TEST(TexturedPen, firstDrawMakesAnImageOfTheCanvasSizeForGood)
{
    TypeParam &pen = this->m_pen;
    pen.SetCanvasSize(QSize(350, 120));
    feed(pen, PT_DOWN, 300, 100);
    feed(pen, PT_MOVE, 305, 100);
    drawn(pen);
    ASSERT_NE(pen.m_pImage, nullptr);
    const QImage *image = pen.m_pImage;
    EXPECT_EQ(image->size(), QSize(350, 120));
    EXPECT_EQ(image->format(), QImage::Format_ARGB32);
    EXPECT_EQ(image->pixel(0, 0), 0u);
    EXPECT_EQ(image->pixel(349, 119), 0u);
    pen.SetCanvasSize(QSize(10, 10));
    drawn(pen);
    pen.FinishGraph();
    drawn(pen);
    EXPECT_EQ(pen.m_pImage, image);
    EXPECT_EQ(pen.m_pImage->size(), QSize(350, 120));
}

TYPED_TEST(TexturedPen, canvasOfNoOrOfAnImpossibleSizePaintsNothing)
{
    for (const QSize &size : {QSize(), QSize(0, 0), QSize(0, 300), QSize(400, 0), QSize(-400, -300),
                              QSize(INT_MAX, INT_MAX), QSize(INT_MIN, INT_MIN)}) {
        TypeParam pen(size);
        pen.SetWidth(20);
        feed(pen, PT_DOWN, 100, 100);
        feed(pen, PT_MOVE, 150, 100);
        EXPECT_TRUE(isBlank(drawn(pen)));
        feed(pen, PT_UP, 150, 100);
        EXPECT_TRUE(isBlank(drawn(pen)));
        EXPECT_TRUE(!pen.m_pImage || pen.m_pImage->isNull());
    }
}

TYPED_TEST(TexturedPen, emptiedListIsSurvived)
{
    TypeParam &pen = this->m_pen;
    feed(pen, PT_DOWN, 100, 100);
    feed(pen, PT_MOVE, 150, 100);
    drawn(pen);
    pen.m_graphData.clear();
    EXPECT_TRUE(isBlank(drawn(pen)));
    feed(pen, PT_MOVE, 10, 10);
    EXPECT_EQ(pen.GetPointCount(), 0);
    pen.m_graphData = {QPointF(1, 1), QPointF(30, 30)};
    drawn(pen); // fewer than have been rendered
    pen.m_nDrawnCount = -5;
    drawn(pen);
}

TYPED_TEST(TexturedPen, hostileValuesAreSurvived)
{
    for (const int width : {INT_MIN, -7, 0, 1'000'000, INT_MAX}) {
        for (const int far : {INT_MIN, 16'777'217, INT_MAX}) {
            const MessageLog log; // Qt remarks on some widths
            TypeParam pen(QSize(40, 30));
            pen.SetWidth(width);
            pen.ShowDrawerIcon(1);
            feed(pen, PT_DOWN, far, 80);
            feed(pen, PT_MOVE, 10, far);
            drawn(pen);
            feed(pen, PT_UP, far, far);
            drawn(pen);
        }
    }
}

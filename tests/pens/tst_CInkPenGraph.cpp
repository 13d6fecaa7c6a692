// The base of the freehand pens: how a stroke grows, how it ends and what it covers.

#include "CInkPenGraph.h"
#include "CInkPencil.h"
#include "Canvas.h"
#include "Exact.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

namespace {

const int kGrowingCodes[] = {PT_DOWN, PT_MOVE, 0, 3, PT_DBLCLK, 6, 99, -1, INT_MIN, INT_MAX};

// A pen with an icon of its own; writes down which slots are asked.
class PlainPen : public CInkPenGraph
{
public:
    QRect GetDisIconRect() override
    {
        calls += "icon ";
        return icon;
    }

    QRect icon{300, 200, 30, 30};
    std::string calls;
};

// Two positions and no margins but the pen's.
QRect coveredBetween(const QPointF &from, const QPointF &to, int width)
{
    PlainPen pen;
    pen.SetWidth(width);
    pen.m_graphData = {from, to};
    return pen.GetUpdateRect();
}

void expectCommitted(const CInkPenGraph &pen)
{
    EXPECT_EQ(pen.m_bEditMode, 1);
    EXPECT_EQ(pen.m_bFinished, 1);
    EXPECT_EQ(pen.m_bHideHotShape, 1);
}

void expectUncommitted(const CInkPenGraph &pen)
{
    EXPECT_EQ(pen.m_bEditMode, 0);
    EXPECT_EQ(pen.m_bFinished, 0);
    EXPECT_EQ(pen.m_bHideHotShape, 0);
}

} // namespace

TEST(CInkPenGraph, newPenIsEmpty)
{
    PlainPen pen;
    EXPECT_EQ(pen.m_nWidth, 1);
    EXPECT_EQ(pen.m_color, QColor(0, 0, 0, 255));
    EXPECT_TRUE(pen.m_graphData.isEmpty());
    EXPECT_EQ(pen.GetPointCount(), 0);
    EXPECT_EQ(pen.m_nPointCount, 0);
    EXPECT_NULL_RECT(pen.GetUpdateRect());
    EXPECT_NULL_RECT(pen.m_rcHot);
    expectUncommitted(pen);
}

TEST(CInkPenGraph, everyCodeButTheReleaseAppendsOnly)
{
    for (const int code : kGrowingCodes) {
        SCOPED_TRACE(code);
        PlainPen pen;
        pen.m_bSparePoint = 1;
        feed(pen, code, 100, 80);
        ASSERT_EQ(pen.m_graphData.size(), 1);
        EXPECT_EQ(pen.m_nPointCount, 1);
        EXPECT_EQ(pen.IsSparePoint(), 0);
        feed(pen, code, 110, 70);
        ASSERT_EQ(pen.m_graphData.size(), 2);
        EXPECT_POINT(pen.m_graphData[0], 100.0, 80.0);
        EXPECT_POINT(pen.m_graphData[1], 110.0, 70.0);
        EXPECT_EQ(pen.m_nPointCount, 2);
        EXPECT_EQ(pen.GetPointCount(), 2);
        EXPECT_EQ(pen.IsSparePoint(), 0);
        EXPECT_NULL_RECT(pen.m_rcHot);
        expectUncommitted(pen);
    }
}

TEST(CInkPenGraph, pressInMidStrokeAppendsToo)
{
    PlainPen pen;
    feed(pen, PT_DOWN, 100, 80);
    feed(pen, PT_MOVE, 110, 90);
    feed(pen, PT_DOWN, 120, 100);
    ASSERT_EQ(pen.m_graphData.size(), 3);
    EXPECT_POINT(pen.m_graphData[0], 100.0, 80.0);
    EXPECT_POINT(pen.m_graphData[2], 120.0, 100.0);
}

TEST(CInkPenGraph, releaseIsPartOfTheStrokeAndEndsIt)
{
    PlainPen pen;
    feed(pen, PT_DOWN, 100, 80);
    feed(pen, PT_MOVE, 150, 60);
    feed(pen, PT_UP, 170, 130);
    ASSERT_EQ(pen.m_graphData.size(), 3);
    EXPECT_POINT(pen.m_graphData[2], 170.0, 130.0);
    EXPECT_EQ(pen.m_nPointCount, 3);
    EXPECT_EQ(pen.IsSparePoint(), 0);
    EXPECT_EDGES(pen.m_rcHot, 68, 28, 202, 162);
    EXPECT_POINT(pen.m_ptCenter, 135.0, 95.0);
    EXPECT_POINT(pen.m_hotPts[4], 68.0, 28.0);
    EXPECT_POINT(pen.m_hotPts[7], 202.0, 162.0);
    EXPECT_POINT(pen.m_hotPts[8], 135.0, -2.0);
    expectCommitted(pen);
}

TEST(CInkPenGraph, releaseAloneIsAStrokeOfOnePoint)
{
    PlainPen pen;
    EXPECT_EDGES(feed(pen, PT_UP, 100, 80), 68, 48, 132, 112);
    EXPECT_EQ(pen.m_graphData.size(), 1);
    expectCommitted(pen);
}

TEST(CInkPenGraph, coordinatesPassThroughSinglePrecision)
{
    PlainPen pen;
    feed(pen, PT_DOWN, 16'777'217, -16'777'217);
    feed(pen, PT_MOVE, 16'777'219, 33'554'435);
    EXPECT_POINT(pen.m_graphData[0], 16'777'216.0, -16'777'216.0);
    EXPECT_POINT(pen.m_graphData[1], 16'777'220.0, 33'554'436.0);
}

TEST(CInkPenGraph, finishOfAnEmptyStrokeDoesNothing)
{
    PlainPen pen;
    EXPECT_EQ(pen.FinishGraph(), 0);
    EXPECT_NULL_RECT(pen.m_rcHot);
    expectUncommitted(pen);
}

TEST(CInkPenGraph, finishCommitsFromOnePointOn)
{
    PlainPen pen;
    feed(pen, PT_DOWN, 100, 80);
    EXPECT_EQ(pen.FinishGraph(), 1);
    EXPECT_EDGES(pen.m_rcHot, 68, 48, 132, 112);
    EXPECT_POINT(pen.m_ptCenter, 100.0, 80.0);
    EXPECT_EQ(pen.m_graphData.size(), 1);
    expectCommitted(pen);
    EXPECT_EQ(pen.FinishGraph(), 1);
}

TEST(CInkPenGraph, finishLooksAtTheListNotAtTheCount)
{
    PlainPen counted;
    counted.m_nPointCount = 3;
    EXPECT_EQ(counted.FinishGraph(), 0);
    expectUncommitted(counted);

    PlainPen uncounted;
    uncounted.m_graphData = {QPointF(5.9, -5.9)};
    EXPECT_EQ(uncounted.FinishGraph(), 1);
    EXPECT_EDGES(uncounted.m_rcHot, -27, -37, 37, 27);
}

TEST(CInkPenGraph, committedStrokeIgnoresEveryEvent)
{
    for (const int code : {1, 2, 5, 0, 3, 4, 99, -1}) {
        SCOPED_TRACE(code);
        PlainPen pen;
        drag(pen, {100, 80}, {150, 60});
        pen.m_bSparePoint = 1;
        QRect update(1, 2, 3, 4);
        pen.AddPoint(code, QPoint(300, 200), update);
        EXPECT_EDGES(update, 1, 2, 3, 5);
        EXPECT_EQ(pen.m_graphData.size(), 3);
        EXPECT_EQ(pen.m_nPointCount, 3);
        EXPECT_EQ(pen.IsSparePoint(), 1);
        EXPECT_EDGES(pen.m_rcHot, 68, 28, 182, 112);
    }
}

TEST(CInkPenGraph, eachEventReportsTheNewestTwoSegments)
{
    PlainPen pen;
    EXPECT_NULL_RECT(feed(pen, PT_DOWN, 100, 100));
    EXPECT_EDGES(feed(pen, PT_MOVE, 150, 130), 80, 80, 170, 150);
    EXPECT_EDGES(feed(pen, PT_MOVE, 160, 20), 80, 0, 180, 150);
    EXPECT_EDGES(pen.GetUpdateRect(), 130, 0, 180, 150);
    EXPECT_EDGES(feed(pen, PT_MOVE, 300, 30), 130, 0, 320, 150);
    EXPECT_EDGES(pen.GetUpdateRect(), 140, 0, 320, 50);
    // The release reports the whole stroke: frame (100,20) to (310,130) with 32 around.
    EXPECT_EDGES(feed(pen, PT_UP, 310, 25), 68, -12, 342, 162);
    EXPECT_EDGES(pen.GetUpdateRect(), 68, -12, 342, 162);
}

TEST(CInkPenGraph, updateIsUnitedAndNeverCleared)
{
    PlainPen pen;
    QRect update(QPoint(500, 400), QPoint(510, 410));
    pen.AddPoint(PT_DOWN, QPoint(100, 100), update);
    EXPECT_EDGES(update, 500, 400, 510, 410);
    pen.AddPoint(PT_MOVE, QPoint(150, 130), update);
    EXPECT_EDGES(update, 80, 80, 510, 410);
    pen.AddPoint(PT_MOVE, QPoint(150, 131), update);
    EXPECT_EDGES(update, 80, 80, 510, 410);
    pen.AddPoint(PT_UP, QPoint(150, 132), update);
    EXPECT_EDGES(update, 68, 68, 510, 410);
}

TEST(CInkPenGraph, formingReturnsTheUpdate)
{
    PlainPen pen;
    QRect update(QPoint(500, 400), QPoint(510, 410));
    EXPECT_EDGES(pen.FormGraphData(PT_DOWN, QPoint(100, 100), update), 500, 400, 510, 410);
    EXPECT_EDGES(pen.FormGraphData(PT_MOVE, QPoint(150, 130), update), 80, 80, 510, 410);
    EXPECT_EDGES(update, 80, 80, 510, 410);
}

TEST(CInkPenGraph, segmentOfOnePixelIsCoveredByFortyOne)
{
    const QRect covered = coveredBetween({100, 80}, {100, 80}, 1);
    EXPECT_EDGES(covered, 80, 60, 120, 100);
    EXPECT_EQ(covered.width(), 41);
    EXPECT_EQ(covered.height(), 41);
}

TEST(CInkPenGraph, marginIsTwiceTheWidthButAtLeastTwenty)
{
    EXPECT_EDGES(coveredBetween({100, 100}, {150, 130}, -5), 80, 80, 170, 150);
    EXPECT_EDGES(coveredBetween({100, 100}, {150, 130}, 0), 80, 80, 170, 150);
    EXPECT_EDGES(coveredBetween({100, 100}, {150, 130}, 1), 80, 80, 170, 150);
    EXPECT_EDGES(coveredBetween({100, 100}, {150, 130}, 9), 80, 80, 170, 150);
    EXPECT_EDGES(coveredBetween({100, 100}, {150, 130}, 10), 80, 80, 170, 150);
    EXPECT_EDGES(coveredBetween({100, 100}, {150, 130}, 11), 78, 78, 172, 152);
    EXPECT_EDGES(coveredBetween({100, 100}, {150, 130}, 15), 70, 70, 180, 160);
}

TEST(CInkPenGraph, segmentNarrowerThanThePenGrowsToTheRightAndDown)
{
    EXPECT_EDGES(coveredBetween({100, 80}, {100, 80}, 2), 80, 60, 122, 102);
    // 10 x 5 pixels: as wide as the first pen, narrower than the second.
    EXPECT_EDGES(coveredBetween({100, 100}, {109, 104}, 10), 80, 80, 129, 134);
    EXPECT_EDGES(coveredBetween({100, 100}, {109, 104}, 11), 78, 78, 142, 137);
    EXPECT_EDGES(coveredBetween({109, 104}, {100, 100}, 11), 78, 78, 142, 137);
}

TEST(CInkPenGraph, reversedSegmentCoversTheSame)
{
    EXPECT_EDGES(coveredBetween({150, 130}, {100, 100}, 1), 80, 80, 170, 150);
    EXPECT_EDGES(coveredBetween({100, 130}, {150, 100}, 1), 80, 80, 170, 150);
}

TEST(CInkPenGraph, segmentOnePixelToTheLeftIsNotNormalised)
{
    // From 100 to 99 it is 0 pixels wide, which is narrower than the pen.
    EXPECT_EDGES(coveredBetween({100, 100}, {99, 130}, 1), 80, 80, 120, 150);
    EXPECT_EDGES(coveredBetween({100, 100}, {99, 130}, 0), 80, 80, 119, 150);
    EXPECT_EDGES(coveredBetween({100, 100}, {98, 130}, 1), 78, 80, 120, 150);
}

TEST(CInkPenGraph, coveredRectangleTruncatesTowardZero)
{
    EXPECT_EDGES(coveredBetween({-10.7, -0.9}, {20.9, 30.2}, 1), -30, -20, 40, 50);
}

TEST(CInkPenGraph, onlyTheLastTwoPointsAreCovered)
{
    PlainPen pen;
    pen.m_graphData = {QPointF(0, 0), QPointF(900, 900), QPointF(100, 100), QPointF(150, 130)};
    EXPECT_EDGES(pen.GetUpdateRect(), 80, 80, 170, 150);
}

TEST(CInkPenGraph, strokeOfOnePointCoversNothing)
{
    PlainPen pen;
    pen.ShowDrawerName(1);
    pen.ShowDrawerIcon(1);
    pen.m_sizeName = QSize(60, 10);
    feed(pen, PT_DOWN, 100, 80);
    EXPECT_NULL_RECT(pen.GetUpdateRect());
    EXPECT_NULL_RECT(pen.m_rcName);
    EXPECT_NULL_RECT(pen.m_rcIcon);
}

TEST(CInkPenGraph, nameLabelCountsTheLastButOnePointTwice)
{
    PlainPen pen;
    pen.ShowDrawerName(1);
    pen.m_sizeName = QSize(60, 10);
    feed(pen, PT_DOWN, 100, 100);
    EXPECT_EDGES(feed(pen, PT_MOVE, 150, 130), 80, 80, 259, 209);
    EXPECT_EDGES(pen.m_rcName, 100, 100, 259, 209);
    EXPECT_NULL_RECT(pen.m_rcIcon);

    pen.ShowDrawerName(0);
    EXPECT_EDGES(pen.GetUpdateRect(), 80, 80, 170, 150);
    EXPECT_NULL_RECT(pen.m_rcName);
}

TEST(CInkPenGraph, nameLabelWithoutSizeIsAsLargeAsItsCorner)
{
    PlainPen pen;
    pen.ShowDrawerName(1);
    pen.m_graphData = {QPointF(100.9, 100.9), QPointF(150, 130)};
    EXPECT_EDGES(pen.GetUpdateRect(), 80, 80, 199, 199);
    EXPECT_EDGES(pen.m_rcName, 100, 100, 199, 199);
}

TEST(CInkPenGraph, nameLabelAtANegativeCornerIsReversed)
{
    PlainPen pen;
    pen.ShowDrawerName(1);
    pen.m_sizeName = QSize(60, 10);
    pen.m_graphData = {QPointF(-100, -50), QPointF(-80, -30)};
    EXPECT_EDGES(pen.GetUpdateRect(), -141, -91, -60, -10);
    EXPECT_EDGES(pen.m_rcName, -100, -50, -141, -91);
}

TEST(CInkPenGraph, iconOfTheSubclassIsUnited)
{
    PlainPen pen;
    pen.m_graphData = {QPointF(100, 100), QPointF(150, 130)};
    EXPECT_EDGES(pen.GetUpdateRect(), 80, 80, 170, 150);
    EXPECT_EQ(pen.calls, "");

    pen.ShowDrawerIcon(1);
    EXPECT_EDGES(pen.GetUpdateRect(), 80, 80, 329, 229);
    EXPECT_EDGES(pen.m_rcIcon, 300, 200, 329, 229);
    EXPECT_EQ(pen.calls, "icon ");

    pen.ShowDrawerIcon(0);
    EXPECT_EDGES(pen.GetUpdateRect(), 80, 80, 170, 150);
    EXPECT_NULL_RECT(pen.m_rcIcon);
}

TEST(CInkPenGraph, nameAndIconAreBothUnited)
{
    PlainPen pen;
    pen.ShowDrawerName(1);
    pen.ShowDrawerIcon(1);
    pen.icon = QRect(10, 20, 5, 5);
    pen.m_sizeName = QSize(60, 10);
    pen.m_graphData = {QPointF(100, 100), QPointF(150, 130)};
    EXPECT_EDGES(pen.GetUpdateRect(), 10, 20, 259, 209);
}

TEST(CInkPenGraph, committedStrokeCoversItsFrameAndName)
{
    PlainPen pen;
    pen.m_sizeName = QSize(60, 10);
    feed(pen, PT_DOWN, 100, 80);
    pen.FinishGraph();
    EXPECT_EDGES(pen.GetUpdateRect(), 68, 48, 132, 112);
    EXPECT_NULL_RECT(pen.m_rcName);

    pen.ShowDrawerName(1);
    EXPECT_EDGES(pen.GetUpdateRect(), 68, 48, 195, 112);
    EXPECT_EDGES(pen.m_rcName, 68, 48, 195, 105);

    pen.ShowDrawerName(0);
    EXPECT_EDGES(pen.GetUpdateRect(), 68, 48, 132, 112);
    EXPECT_NULL_RECT(pen.m_rcName);
}

TEST(CInkPenGraph, committedStrokeIgnoresTheIcon)
{
    PlainPen pen;
    pen.ShowDrawerIcon(1);
    feed(pen, PT_DOWN, 100, 80);
    feed(pen, PT_MOVE, 110, 80);
    EXPECT_EDGES(pen.GetUpdateRect(), 80, 60, 329, 229);
    pen.FinishGraph();
    pen.calls.clear();
    EXPECT_EDGES(pen.GetUpdateRect(), 68, 48, 142, 112);
    EXPECT_EQ(pen.calls, "");
}

TEST(CInkPenGraph, committedStrokeCoversItsFrameWhateverThePen)
{
    PlainPen pen;
    pen.SetWidth(200);
    drag(pen, {100, 80}, {150, 60});
    EXPECT_EDGES(pen.GetUpdateRect(), 68, 28, 182, 112);
}

TEST(CInkPenGraph, everyStepGoesThroughItsVirtualSlot)
{
    class Watched : public PlainPen
    {
    public:
        bool FinishGraph() override
        {
            calls += "finish ";
            return PlainPen::FinishGraph();
        }
        QRect GetUpdateRect() override
        {
            calls += "update ";
            return PlainPen::GetUpdateRect();
        }
        QRect FormGraphData(int code, QPoint pt, QRect &update) override
        {
            calls += "form ";
            return PlainPen::FormGraphData(code, pt, update);
        }
        void SetHotData(int mx, int my) override
        {
            calls += "hot ";
            margins = QSize(mx, my);
            // The flags around it.
            EXPECT_EQ(m_bEditMode, 1);
            EXPECT_EQ(m_bFinished, 0);
            EXPECT_EQ(m_bHideHotShape, 0);
            PlainPen::SetHotData(mx, my);
        }
        QSize margins;
    };
    Watched pen;
    feed(pen, PT_DOWN, 100, 80);
    EXPECT_EQ(pen.calls, "form update update ");
    pen.calls.clear();
    feed(pen, PT_UP, 110, 80);
    EXPECT_EQ(pen.calls, "form update hot update "); // and not through FinishGraph
    EXPECT_EQ(pen.margins, QSize(32, 32));

    Watched finished;
    feed(finished, PT_DOWN, 100, 80);
    finished.calls.clear();
    finished.FinishGraph();
    EXPECT_EQ(finished.calls, "finish hot ");
    EXPECT_EQ(finished.margins, QSize(32, 32));
}

TEST(CInkPenGraph, releaseEndsTheStrokeWhateverFinishGraphSays)
{
    class Unfinished : public PlainPen
    {
    public:
        bool FinishGraph() override { return false; }
    };
    Unfinished pen;
    feed(pen, PT_DOWN, 100, 80);
    feed(pen, PT_UP, 110, 80);
    expectCommitted(pen);
}

TEST(CInkPenGraph, overriddenUpdateRectangleIsReported)
{
    class Fixed : public PlainPen
    {
    public:
        QRect GetUpdateRect() override { return QRect(m_graphData.size() * 10, 5, 10, 10); }
    };
    Fixed pen;
    EXPECT_EDGES(feed(pen, PT_DOWN, 100, 80), 0, 5, 19, 14);
    EXPECT_EDGES(feed(pen, PT_MOVE, 100, 80), 10, 5, 29, 14);
}

TEST(CInkPenGraph, hoverFindsTheFrameOfACommittedStroke)
{
    PlainPen pen;
    feed(pen, PT_DOWN, 100, 80);
    EXPECT_EQ(pen.AroundHotPts(QPoint(100, 80)), 1);
    feed(pen, PT_UP, 200, 180);
    EXPECT_EQ(pen.AroundHotPts(QPoint(150, 130)), 10);
    EXPECT_EQ(pen.AroundHotPts(QPoint(68, 48)), 2);
}

TEST(CInkPenGraph, penPaintsNothingItself)
{
    PlainPen pen;
    pen.SetWidth(10);
    drag(pen, {100, 80}, {200, 140});
    Layers layers;
    layers.draw(pen);
    EXPECT_TRUE(isBlank(layers.surface));
    EXPECT_TRUE(isBlank(layers.page));
    EXPECT_TRUE(isBlank(layers.background));
    EXPECT_TRUE(isBlank(layers.ink));
}

TEST(CInkPenGraph, emptiedListIsSurvived)
{
    for (const int size : {0, 1}) {
        PlainPen pen;
        drag(pen, {100, 80}, {200, 140});
        pen.m_graphData.resize(size);
        EXPECT_EDGES(pen.GetUpdateRect(), 68, 48, 232, 172);
        pen.m_bFinished = 0;
        EXPECT_NULL_RECT(pen.GetUpdateRect());
        EXPECT_EQ(pen.FinishGraph(), size);
        pen.m_bFinished = 0;
        feed(pen, PT_UP, 100, 80);
        expectCommitted(pen);
    }
}

TEST(CInkPenGraph, extremeCoordinatesAndWidthsAreSurvived)
{
    const int extremes[] = {INT_MIN, -2'000'000'000, 0, 2'000'000'000, INT_MAX};
    for (const int from : extremes) {
        for (const int to : extremes) {
            for (const int width : {INT_MIN, -1, 0, 10, INT_MAX}) {
                PlainPen pen;
                pen.SetWidth(width);
                pen.ShowDrawerName(1);
                pen.ShowDrawerIcon(1);
                pen.m_sizeName = QSize(INT_MAX, INT_MIN);
                feed(pen, PT_DOWN, from, to);
                feed(pen, PT_MOVE, to, from);
                feed(pen, PT_MOVE, to, to);
                feed(pen, PT_UP, from, from);
                pen.GetUpdateRect();
                pen.AroundHotPts(QPoint(to, from));
                expectCommitted(pen);
            }
        }
    }
}

TEST(CInkPenGraph, counterStopsAtTheLargestInt)
{
    CInkPencil pencil;
    pencil.m_nPointCount = INT_MAX;
    feed(pencil, PT_DOWN, 10, 10);
    EXPECT_EQ(pencil.m_nPointCount, 2147483647);
}

// The rectangle: its constructors, the events that form the box, the commit and the width.

#include "CInkRectangle.h"
#include "Canvas.h"
#include "Exact.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

const int kMoveCodes[] = {PT_MOVE, 0, 3, PT_DBLCLK, 6, 99, -1, INT_MIN, INT_MAX};
const int kAllCodes[] = {PT_DOWN, PT_UP, PT_MOVE, 0, 3, PT_DBLCLK, 6, 99, -1, INT_MIN, INT_MAX};

void expectAbandoned(const CInkRectangle &box)
{
    EXPECT_EQ(box.m_bFinished, 1);
    EXPECT_EQ(box.m_bHideHotShape, 1);
    EXPECT_EQ(box.m_bEditMode, 0);
    EXPECT_EQ(box.m_bSparePoint, 0);
    EXPECT_NULL_RECT(box.m_rcHot);
}

void expectSelected(const CInkRectangle &box)
{
    EXPECT_EQ(box.m_bFinished, 0);
    EXPECT_EQ(box.m_bHideHotShape, 0);
    EXPECT_EQ(box.m_bEditMode, 1);
    EXPECT_EQ(box.m_bSparePoint, 0);
}

void expectUncommitted(const CInkRectangle &box)
{
    EXPECT_EQ(box.m_bFinished, 0);
    EXPECT_EQ(box.m_bHideHotShape, 0);
    EXPECT_EQ(box.m_bEditMode, 0);
}

// A box dragged from (100,80) whose first corner is then put at `x`, released at (106,80).
void releaseBoxFrom(CInkRectangle &box, double x)
{
    feed(box, PT_DOWN, 100, 80);
    box.m_graphData[0] = QPointF(x, 80);
    feed(box, PT_UP, 106, 80);
}

} // namespace

TEST(CInkRectangle, defaultConstructorGivesWidthFourAndTwoPoints)
{
    CInkRectangle box;
    EXPECT_EQ(box.m_nWidth, 4);
    EXPECT_EQ(box.m_penStyle, Qt::SolidLine);
    ASSERT_EQ(box.m_graphData.size(), 2);
    EXPECT_POINT(box.m_graphData[0], 0.0, 0.0);
    EXPECT_POINT(box.m_graphData[1], 0.0, 0.0);
    EXPECT_EQ(box.GetPointCount(), 0);
    EXPECT_EQ(box.m_modifyType, 1);
    EXPECT_NULL_RECT(box.m_rcHot);
    expectUncommitted(box);
}

TEST(CInkRectangle, penStyleConstructorGivesWidthOneAndNoPoints)
{
    CInkRectangle box(Qt::DashDotLine);
    EXPECT_EQ(box.m_nWidth, 1);
    EXPECT_EQ(box.m_penStyle, Qt::DashDotLine);
    EXPECT_EQ(box.m_graphData.size(), 0);
    EXPECT_EQ(box.GetPointCount(), 0);
    expectUncommitted(box);
}

TEST(CInkRectangle, penStyleBoxGetsItsPointsAtThePress)
{
    CInkRectangle box(Qt::DashLine);
    for (const int code : kAllCodes) {
        if (code == PT_DOWN)
            continue;
        EXPECT_EDGES(feed(box, code, 100, 80), -2, -2, 1, 1);
        EXPECT_EQ(box.m_graphData.size(), 0);
        EXPECT_EQ(box.GetPointCount(), 0);
    }
    EXPECT_EQ(box.FinishGraph(), 0);

    feed(box, PT_DOWN, 100, 80);
    ASSERT_EQ(box.m_graphData.size(), 2);
    EXPECT_POINT(box.m_graphData[0], 100.0, 80.0);
    EXPECT_POINT(box.m_graphData[1], 100.0, 80.0);
    feed(box, PT_UP, 150, 130);
    EXPECT_EQ(box.m_nWidth, 1);
    EXPECT_EQ(box.GetPointCount(), 2);
    expectSelected(box);
    EXPECT_EDGES(box.m_rcHot, 90, 70, 160, 140);
}

TEST(CInkRectangle, pressPutsBothCornersAtThePointer)
{
    CInkRectangle box;
    feed(box, PT_DOWN, 100, 80);
    ASSERT_EQ(box.m_graphData.size(), 2);
    EXPECT_POINT(box.m_graphData[0], 100.0, 80.0);
    EXPECT_POINT(box.m_graphData[1], 100.0, 80.0);
    EXPECT_EQ(box.GetPointCount(), 1);
    EXPECT_EQ(box.IsSparePoint(), 0);
    expectUncommitted(box);
}

TEST(CInkRectangle, everyCodeButPressAndReleaseIsAMove)
{
    for (const int code : kMoveCodes) {
        SCOPED_TRACE(code);
        CInkRectangle box;
        feed(box, PT_DOWN, 100, 80);
        feed(box, code, 150, 130);
        EXPECT_POINT(box.m_graphData[0], 100.0, 80.0);
        EXPECT_POINT(box.m_graphData[1], 150.0, 130.0);
        EXPECT_EQ(box.GetPointCount(), 2);
        EXPECT_EQ(box.IsSparePoint(), 1);
        expectUncommitted(box);
    }
}

TEST(CInkRectangle, eventsBeforeThePressOnlyReportTheFreshRectangle)
{
    for (const int code : kAllCodes) {
        if (code == PT_DOWN)
            continue;
        SCOPED_TRACE(code);
        CInkRectangle box;
        box.m_bSparePoint = 1;
        EXPECT_EDGES(feed(box, code, 150, 130), -8, -8, 7, 7);
        EXPECT_POINT(box.m_graphData[0], 0.0, 0.0);
        EXPECT_POINT(box.m_graphData[1], 0.0, 0.0);
        EXPECT_EQ(box.GetPointCount(), 0);
        EXPECT_EQ(box.IsSparePoint(), 0);
        expectUncommitted(box);
    }
}

TEST(CInkRectangle, secondPressStartsAnew)
{
    CInkRectangle box;
    feed(box, PT_DOWN, 100, 80);
    feed(box, PT_MOVE, 150, 130);
    feed(box, PT_DOWN, 30, 40);
    EXPECT_POINT(box.m_graphData[0], 30.0, 40.0);
    EXPECT_POINT(box.m_graphData[1], 30.0, 40.0);
    EXPECT_EQ(box.GetPointCount(), 1);
    EXPECT_EQ(box.IsSparePoint(), 0);
}

TEST(CInkRectangle, sparePointFollowsTheEvents)
{
    CInkRectangle box;
    feed(box, PT_DOWN, 100, 80);
    EXPECT_EQ(box.IsSparePoint(), 0);
    feed(box, PT_MOVE, 150, 130);
    EXPECT_EQ(box.IsSparePoint(), 1);
    feed(box, PT_UP, 160, 140);
    EXPECT_EQ(box.IsSparePoint(), 0);
    feed(box, PT_DOWN, 130, 110);
    EXPECT_EQ(box.IsSparePoint(), 0);
    feed(box, PT_MOVE, 131, 110);
    EXPECT_EQ(box.IsSparePoint(), 1);
    feed(box, 99, 131, 110);
    EXPECT_EQ(box.IsSparePoint(), 0);
    feed(box, PT_MOVE, 132, 110);
    EXPECT_EQ(box.IsSparePoint(), 1);
    feed(box, PT_UP, 133, 110);
    EXPECT_EQ(box.IsSparePoint(), 0);
}

TEST(CInkRectangle, releaseSelectsTheBoxWithItsHandles)
{
    CInkRectangle box;
    drag(box, {100, 80}, {150, 130});
    expectSelected(box);
    EXPECT_EQ(box.GetPointCount(), 2);
    EXPECT_EQ(box.m_modifyType, 1);
    EXPECT_EDGES(box.m_rcHot, 90, 70, 160, 140);
    EXPECT_POINT(box.m_ptCenter, 125.0, 105.0);
    EXPECT_POINT(box.m_hotPts[0], 125.0, 70.0);
    EXPECT_POINT(box.m_hotPts[1], 125.0, 140.0);
    EXPECT_POINT(box.m_hotPts[2], 90.0, 105.0);
    EXPECT_POINT(box.m_hotPts[3], 160.0, 105.0);
    EXPECT_POINT(box.m_hotPts[4], 90.0, 70.0);
    EXPECT_POINT(box.m_hotPts[5], 90.0, 140.0);
    EXPECT_POINT(box.m_hotPts[6], 160.0, 70.0);
    EXPECT_POINT(box.m_hotPts[7], 160.0, 140.0);
    EXPECT_POINT(box.m_hotPts[8], 125.0, 40.0);
}

TEST(CInkRectangle, everyDirectionGivesTheSameFrame)
{
    for (const auto &[from, to] :
         {std::pair(QPoint(150, 130), QPoint(100, 80)), std::pair(QPoint(100, 130), QPoint(150, 80)),
          std::pair(QPoint(150, 80), QPoint(100, 130))}) {
        CInkRectangle box;
        drag(box, from, to);
        expectSelected(box);
        EXPECT_EDGES(box.m_rcHot, 90, 70, 160, 140);
        EXPECT_POINT(box.m_ptCenter, 125.0, 105.0);
    }
}

TEST(CInkRectangle, clickIsAbandoned)
{
    CInkRectangle box;
    feed(box, PT_DOWN, 100, 80);
    feed(box, PT_UP, 100, 80);
    expectAbandoned(box);
    EXPECT_EQ(box.GetPointCount(), 2);
}

TEST(CInkRectangle, releaseSixPixelsAwayIsAbandoned)
{
    for (const QPoint &corner : {QPoint(106, 80), QPoint(94, 80), QPoint(100, 86), QPoint(100, 74), QPoint(104, 84)}) {
        CInkRectangle box;
        drag(box, {100, 80}, corner);
        expectAbandoned(box);
    }
}

TEST(CInkRectangle, releaseFartherAwayIsKept)
{
    // 7, 7, 7, 7 and 6.4 pixels.
    for (const QPoint &corner : {QPoint(107, 80), QPoint(93, 80), QPoint(100, 87), QPoint(100, 73), QPoint(104, 85)}) {
        CInkRectangle box;
        drag(box, {100, 80}, corner);
        expectSelected(box);
    }
}

TEST(CInkRectangle, distanceOfTheCornersIsMeasuredInSinglePrecision)
{
    CInkRectangle abandoned; // 6.00000001 is 6 in single precision
    releaseBoxFrom(abandoned, 99.99999999);
    expectAbandoned(abandoned);

    CInkRectangle kept; // 6.000001 is more
    releaseBoxFrom(kept, 99.999999);
    expectSelected(kept);
}

TEST(CInkRectangle, onlyTheReleaseMeasuresTheDistance)
{
    CInkRectangle box;
    feed(box, PT_DOWN, 100, 80);
    feed(box, PT_MOVE, 102, 80);
    expectUncommitted(box);
    feed(box, PT_MOVE, 150, 130);
    feed(box, PT_UP, 101, 81);
    expectAbandoned(box);
}

TEST(CInkRectangle, coordinatesPassThroughSinglePrecision)
{
    CInkRectangle box;
    feed(box, PT_DOWN, 16'777'217, -16'777'217);
    EXPECT_POINT(box.m_graphData[0], 16'777'216.0, -16'777'216.0);
    EXPECT_POINT(box.m_graphData[1], 16'777'216.0, -16'777'216.0);
    feed(box, PT_MOVE, 16'777'219, 33'554'435);
    EXPECT_POINT(box.m_graphData[1], 16'777'220.0, 33'554'436.0);
}

TEST(CInkRectangle, committedBoxIgnoresEveryEvent)
{
    for (const int code : kAllCodes) {
        SCOPED_TRACE(code);
        CInkRectangle box;
        drag(box, {100, 80}, {104, 80});
        box.m_bSparePoint = 1;
        box.m_modifyType = 9;
        box.m_ptLast = QPointF(7, 8);
        QRect update(1, 2, 3, 4);
        box.AddPoint(code, QPoint(200, 200), update);
        EXPECT_EDGES(update, 1, 2, 3, 5);
        EXPECT_POINT(box.m_graphData[0], 100.0, 80.0);
        EXPECT_POINT(box.m_graphData[1], 104.0, 80.0);
        EXPECT_POINT(box.m_ptLast, 7.0, 8.0);
        EXPECT_EQ(box.GetPointCount(), 2);
        EXPECT_EQ(box.IsSparePoint(), 1);
        EXPECT_EQ(box.m_modifyType, 9);
        EXPECT_EQ(box.m_bEditMode, 0);
    }
}

TEST(CInkRectangle, formingGoesThroughTheVirtualSlot)
{
    class Former : public CInkRectangle
    {
    public:
        QRect FormGraphData(int code, QPoint pt, QRect &update) override
        {
            codes.append(code);
            return CInkRectangle::FormGraphData(code, pt, update);
        }
        QVector<int> codes;
    };
    Former box;
    drag(box, {100, 80}, {150, 130});
    EXPECT_EQ(box.codes, (QVector<int>{1, 5, 2}));
    drag(box, {125, 105}, {126, 105});
    EXPECT_EQ(box.codes.size(), 3);
}

TEST(CInkRectangle, formingReturnsTheUpdate)
{
    CInkRectangle box;
    QRect update(QPoint(300, 300), QPoint(310, 310));
    EXPECT_EDGES(box.FormGraphData(PT_DOWN, QPoint(100, 80), update), -8, -8, 310, 310);
    EXPECT_EDGES(update, -8, -8, 310, 310);
}

TEST(CInkRectangle, finishBeforeThePressDoesNothing)
{
    CInkRectangle box;
    EXPECT_EQ(box.FinishGraph(), 0);
    expectUncommitted(box);
    EXPECT_NULL_RECT(box.m_rcHot);
}

TEST(CInkRectangle, finishAfterThePressEndsABoxWithoutSize)
{
    CInkRectangle box;
    feed(box, PT_DOWN, 100, 80);
    EXPECT_EQ(box.FinishGraph(), 1);
    EXPECT_EQ(box.m_bFinished, 1);
    EXPECT_EQ(box.m_bHideHotShape, 1);
    EXPECT_EQ(box.m_bEditMode, 0);
    EXPECT_EQ(box.GetPointCount(), 1);
    EXPECT_EDGES(box.m_rcHot, 90, 70, 110, 90);
    EXPECT_POINT(box.m_ptCenter, 100.0, 80.0);
    EXPECT_POINT(box.m_hotPts[8], 100.0, 40.0);
}

TEST(CInkRectangle, finishWhileDraggedKeepsTheSparePoint)
{
    CInkRectangle box;
    feed(box, PT_DOWN, 100, 80);
    feed(box, PT_MOVE, 150, 130);
    EXPECT_EQ(box.FinishGraph(), 1);
    EXPECT_EQ(box.m_bFinished, 1);
    EXPECT_EQ(box.m_bHideHotShape, 1);
    EXPECT_EQ(box.m_bEditMode, 0);
    EXPECT_EQ(box.IsSparePoint(), 1);
    EXPECT_EDGES(box.m_rcHot, 90, 70, 160, 140);
}

TEST(CInkRectangle, finishWhileEditedLaysTheFrameOutAnew)
{
    CInkRectangle box;
    drag(box, {100, 100}, {200, 150});
    drag(box, {210, 160}, {330, 230}); // twice as wide and high about (90,90)
    EXPECT_EDGES(box.m_rcHot, 90, 90, 330, 230);
    EXPECT_POINT(box.m_ptCenter, 150.0, 125.0);
    EXPECT_EQ(box.FinishGraph(), 1);
    EXPECT_EQ(box.m_bFinished, 1);
    EXPECT_EQ(box.m_bHideHotShape, 1);
    EXPECT_EQ(box.m_bEditMode, 1);
    EXPECT_EQ(box.m_modifyType, 9);
    EXPECT_POINT(box.m_graphData[0], 110.0, 110.0);
    EXPECT_POINT(box.m_graphData[1], 310.0, 210.0);
    EXPECT_EDGES(box.m_rcHot, 100, 100, 320, 220);
    EXPECT_POINT(box.m_ptCenter, 210.0, 160.0);
    EXPECT_EQ(box.FinishGraph(), 1);
}

TEST(CInkRectangle, finishKeepsTheAngle)
{
    CInkRectangle box;
    drag(box, {100, 100}, {200, 150});
    drag(box, {150, 60}, {250, 125});
    EXPECT_EQ(box.FinishGraph(), 1);
    EXPECT_EQ(box.GetRotateAngle(), 90.0f);
}

TEST(CInkRectangle, widthIsStored)
{
    CInkRectangle box;
    for (const int width : {1, 4, 10, 20, 0, -3}) {
        box.SetWidth(width);
        EXPECT_EQ(box.m_nWidth, width);
    }
}

TEST(CInkRectangle, shortenedListIsSurvivedInEachPhase)
{
    for (const int size : {0, 1}) {
        for (const int edit : {0, 1}) {
            for (const int code : kAllCodes) {
                CInkRectangle box;
                drag(box, {100, 80}, {200, 140});
                box.m_bEditMode = edit;
                box.m_modifyType = 9;
                box.m_graphData.resize(size);
                feed(box, code, 150, 110);
                box.m_graphData.resize(size);
                box.GetUpdateRect();
                box.m_nPointCount = 1;
                box.GetUpdateRect();
                box.SetWidth(3);
                box.AroundHotPts(QPoint(150, 110));
                box.ModifyGraph(QPoint(10, 10), MT_MOVE);
                box.ModifyGraph(QPoint(10, 10), MT_TOP);
                drawn(box);
                box.FinishGraph();
                drawn(box);
            }
        }
    }
}

TEST(CInkRectangle, pressAfterTheListWasEmptiedRestoresBothPoints)
{
    CInkRectangle box;
    box.m_graphData.clear();
    feed(box, PT_DOWN, 100, 80);
    ASSERT_EQ(box.m_graphData.size(), 2);
    EXPECT_POINT(box.m_graphData[0], 100.0, 80.0);
    EXPECT_POINT(box.m_graphData[1], 100.0, 80.0);
}

TEST(CInkRectangle, extremeCoordinatesAndWidthsAreSurvived)
{
    const int extremes[] = {INT_MIN, INT_MIN + 1, -2'000'000'000, 0, 2'000'000'000, INT_MAX - 1, INT_MAX};
    for (const int from : extremes) {
        for (const int to : extremes) {
            for (const int width : {INT_MIN, -1, 0, 1, 10, INT_MAX}) {
                CInkRectangle box;
                box.SetWidth(width);
                box.ShowDrawerName(1);
                box.ShowDrawerIcon(1);
                box.m_sizeName = QSize(INT_MAX, INT_MAX);
                drag(box, {from, to}, {to, from});
                box.AroundHotPts(QPoint(to, to));
                drag(box, {from, to}, {to, 0});
                drag(box, {0, 0}, {to, from});
                for (const int type : {2, 3, 4, 5, 6, 7, 8, 9, 11}) {
                    box.m_modifyType = type;
                    box.m_bFinished = 0;
                    feed(box, PT_MOVE, from, to);
                    feed(box, PT_UP, to, from);
                }
                box.AdjustGraph(0);
                box.FinishGraph();
                box.GetUpdateRect();
            }
        }
    }
}

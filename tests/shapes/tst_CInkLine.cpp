// The straight line: its constructor, the events of the drawing phase, the commit and the width.

#include "CInkLine.h"
#include "Canvas.h"
#include "Exact.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

// Every code but press and release moves the second endpoint.
const int kMoveCodes[] = {PT_MOVE, 0, 3, PT_DBLCLK, 6, 99, -1, INT_MIN, INT_MAX};
const int kAllCodes[] = {PT_DOWN, PT_UP, PT_MOVE, 0, 3, PT_DBLCLK, 6, 99, -1, INT_MIN, INT_MAX};

void expectCommitted(const CInkLine &line)
{
    EXPECT_EQ(line.m_bFinished, 1);
    EXPECT_EQ(line.m_bHideHotShape, 1);
}

void expectUncommitted(const CInkLine &line)
{
    EXPECT_EQ(line.m_bFinished, 0);
    EXPECT_EQ(line.m_bHideHotShape, 0);
}

} // namespace

TEST(CInkLine, newLineHasWidthTenAndHandlesOfRadiusThree)
{
    CInkLine line;
    EXPECT_EQ(line.m_nWidth, 10);
    EXPECT_EQ(line.m_nHotRadius, 3);
    EXPECT_EQ(line.m_nPenStyle, 1);
    EXPECT_EQ(line.m_nCapStyle, 32);
    EXPECT_NULL_RECT(line.m_rcRegion);
    EXPECT_EQ(line.m_color, QColor(0, 0, 0, 255));
    EXPECT_EQ(line.m_bEditMode, 0);
    EXPECT_EQ(line.m_modifyType, 1);
    expectUncommitted(line);
}

TEST(CInkLine, newLineHoldsTwoPointsAndCountsNone)
{
    CInkLine line;
    ASSERT_EQ(line.m_graphData.size(), 2);
    EXPECT_POINT(line.m_graphData[0], 0.0, 0.0);
    EXPECT_POINT(line.m_graphData[1], 0.0, 0.0);
    EXPECT_EQ(line.GetPointCount(), 0);
}

TEST(CInkLine, pressPutsBothEndpointsAtThePointer)
{
    CInkLine line;
    feed(line, PT_DOWN, 100, 80);
    ASSERT_EQ(line.m_graphData.size(), 2);
    EXPECT_POINT(line.m_graphData[0], 100.0, 80.0);
    EXPECT_POINT(line.m_graphData[1], 100.0, 80.0);
    EXPECT_EQ(line.GetPointCount(), 1);
    EXPECT_EQ(line.IsSparePoint(), 0);
    EXPECT_EQ(line.m_bEditMode, 0);
    expectUncommitted(line);
}

TEST(CInkLine, moveMovesTheSecondEndpoint)
{
    CInkLine line;
    feed(line, PT_DOWN, 100, 80);
    feed(line, PT_MOVE, 150, 120);
    EXPECT_POINT(line.m_graphData[0], 100.0, 80.0);
    EXPECT_POINT(line.m_graphData[1], 150.0, 120.0);
    EXPECT_EQ(line.GetPointCount(), 2);
    EXPECT_EQ(line.IsSparePoint(), 1);

    feed(line, PT_MOVE, 110, 90);
    EXPECT_POINT(line.m_graphData[0], 100.0, 80.0);
    EXPECT_POINT(line.m_graphData[1], 110.0, 90.0);
    EXPECT_EQ(line.GetPointCount(), 2);
    EXPECT_EQ(line.IsSparePoint(), 1);
}

TEST(CInkLine, everyCodeButPressAndReleaseIsAMove)
{
    for (const int code : kMoveCodes) {
        SCOPED_TRACE(code);
        CInkLine line;
        feed(line, PT_DOWN, 100, 80);
        feed(line, code, 150, 120);
        EXPECT_POINT(line.m_graphData[0], 100.0, 80.0);
        EXPECT_POINT(line.m_graphData[1], 150.0, 120.0);
        EXPECT_EQ(line.GetPointCount(), 2);
        EXPECT_EQ(line.IsSparePoint(), 1);
        EXPECT_EQ(line.m_bEditMode, 0);
        expectUncommitted(line);
    }
}

TEST(CInkLine, secondPressStartsAnew)
{
    CInkLine line;
    feed(line, PT_DOWN, 100, 80);
    feed(line, PT_MOVE, 150, 120);
    feed(line, PT_DOWN, 30, 40);
    EXPECT_POINT(line.m_graphData[0], 30.0, 40.0);
    EXPECT_POINT(line.m_graphData[1], 30.0, 40.0);
    EXPECT_EQ(line.GetPointCount(), 1);
    EXPECT_EQ(line.IsSparePoint(), 0);
}

TEST(CInkLine, eventsBeforeThePressOnlyReportTheFreshRectangle)
{
    for (const int code : kAllCodes) {
        if (code == PT_DOWN)
            continue;
        SCOPED_TRACE(code);
        CInkLine line;
        line.m_bSparePoint = 1;
        EXPECT_EDGES(feed(line, code, 150, 120), -60, -60, 60, 60);
        EXPECT_POINT(line.m_graphData[0], 0.0, 0.0);
        EXPECT_POINT(line.m_graphData[1], 0.0, 0.0);
        EXPECT_EQ(line.GetPointCount(), 0);
        EXPECT_EQ(line.IsSparePoint(), 0);
        EXPECT_EQ(line.m_bEditMode, 0);
        EXPECT_NULL_RECT(line.m_rcRegion);
        expectUncommitted(line);
    }
}

TEST(CInkLine, releaseEntersEditingWithItsRegion)
{
    CInkLine line;
    feed(line, PT_DOWN, 100, 80);
    EXPECT_NULL_RECT(line.m_rcRegion);
    feed(line, PT_MOVE, 150, 120);
    EXPECT_NULL_RECT(line.m_rcRegion);
    feed(line, PT_UP, 130, 100);
    EXPECT_POINT(line.m_graphData[0], 100.0, 80.0);
    EXPECT_POINT(line.m_graphData[1], 130.0, 100.0);
    EXPECT_EQ(line.GetPointCount(), 2);
    EXPECT_EQ(line.m_bEditMode, 1);
    EXPECT_EQ(line.IsSparePoint(), 0);
    EXPECT_EQ(line.m_modifyType, 1);
    EXPECT_EDGES(line.m_rcRegion, 90, 70, 140, 110);
    expectUncommitted(line);
}

TEST(CInkLine, releaseNeedsNoMoveBeforeIt)
{
    CInkLine line;
    feed(line, PT_DOWN, 100, 80);
    feed(line, PT_UP, 100, 140);
    EXPECT_EQ(line.m_bEditMode, 1);
    EXPECT_EQ(line.GetPointCount(), 2);
    EXPECT_POINT(line.m_graphData[1], 100.0, 140.0);
}

TEST(CInkLine, clickIsCommittedAtTheRelease)
{
    CInkLine line;
    feed(line, PT_DOWN, 100, 80);
    feed(line, PT_UP, 100, 80);
    EXPECT_EQ(line.GetPointCount(), 2);
    EXPECT_EQ(line.m_bEditMode, 0);
    EXPECT_EQ(line.IsSparePoint(), 0);
    EXPECT_NULL_RECT(line.m_rcRegion);
    expectCommitted(line);
}

TEST(CInkLine, releaseOnePixelAwayIsCommitted)
{
    for (const QPoint &release : {QPoint(101, 80), QPoint(99, 80), QPoint(100, 81), QPoint(100, 79)}) {
        CInkLine line;
        feed(line, PT_DOWN, 100, 80);
        feed(line, PT_MOVE, 300, 200);
        feed(line, PT_UP, release.x(), release.y());
        EXPECT_EQ(line.m_bEditMode, 0);
        EXPECT_EQ(line.IsSparePoint(), 0);
        expectCommitted(line);
    }
}

TEST(CInkLine, releaseOneDiagonalPixelAwayEntersEditing)
{
    CInkLine line;
    feed(line, PT_DOWN, 100, 80);
    feed(line, PT_UP, 101, 81); // 1.41
    EXPECT_EQ(line.m_bEditMode, 1);
    expectUncommitted(line);
}

TEST(CInkLine, releaseOneAndAHalfPixelsAwayEntersEditing)
{
    CInkLine line;
    feed(line, PT_DOWN, 100, 80);
    line.m_graphData[0] = QPointF(98.5, 80);
    feed(line, PT_UP, 100, 80);
    EXPECT_EQ(line.m_bEditMode, 1);
    expectUncommitted(line);
}

TEST(CInkLine, lengthIsMeasuredInSinglePrecision)
{
    CInkLine line;
    feed(line, PT_DOWN, 100, 80);
    line.m_graphData[0] = QPointF(98.99999999, 80); // 1.00000001, which is 1 in single precision
    feed(line, PT_UP, 100, 80);
    expectCommitted(line);

    CInkLine longer;
    feed(longer, PT_DOWN, 100, 80);
    longer.m_graphData[0] = QPointF(98.9999998, 80); // 1.0000002, which single precision tells from 1
    feed(longer, PT_UP, 100, 80);
    expectUncommitted(longer);
    EXPECT_EQ(longer.m_bEditMode, 1);
}

TEST(CInkLine, committedLineIgnoresEveryEvent)
{
    for (const int code : kAllCodes) {
        SCOPED_TRACE(code);
        CInkLine line;
        feed(line, PT_DOWN, 100, 80);
        feed(line, PT_UP, 100, 80);
        line.m_bSparePoint = 1;
        line.m_modifyType = 9;
        line.m_ptLast = QPointF(7, 8);

        QRect update(1, 2, 3, 4);
        line.AddPoint(code, QPoint(200, 200), update);
        EXPECT_EDGES(update, 1, 2, 3, 5);
        EXPECT_POINT(line.m_graphData[0], 100.0, 80.0);
        EXPECT_POINT(line.m_graphData[1], 100.0, 80.0);
        EXPECT_POINT(line.m_ptLast, 7.0, 8.0);
        EXPECT_EQ(line.GetPointCount(), 2);
        EXPECT_EQ(line.IsSparePoint(), 1);
        EXPECT_EQ(line.m_modifyType, 9);
        EXPECT_EQ(line.m_bEditMode, 0);
        expectCommitted(line);
    }
}

TEST(CInkLine, coordinatesPassThroughSinglePrecision)
{
    CInkLine line;
    feed(line, PT_DOWN, 16'777'217, -16'777'217);
    EXPECT_POINT(line.m_graphData[0], 16'777'216.0, -16'777'216.0);
    EXPECT_POINT(line.m_graphData[1], 16'777'216.0, -16'777'216.0);
    feed(line, PT_MOVE, 16'777'219, 33'554'435);
    EXPECT_POINT(line.m_graphData[1], 16'777'220.0, 33'554'436.0);
}

TEST(CInkLine, finishBeforeThePressDoesNothing)
{
    CInkLine line;
    EXPECT_FALSE(line.FinishGraph());
    EXPECT_EQ(line.m_bEditMode, 0);
    expectUncommitted(line);
}

TEST(CInkLine, finishCommitsFromEachPhase)
{
    CInkLine pressed;
    feed(pressed, PT_DOWN, 100, 80);
    EXPECT_TRUE(pressed.FinishGraph());
    expectCommitted(pressed);
    EXPECT_EQ(pressed.m_bEditMode, 0);
    EXPECT_EQ(pressed.GetPointCount(), 1);

    CInkLine dragged;
    feed(dragged, PT_DOWN, 100, 80);
    feed(dragged, PT_MOVE, 150, 120);
    EXPECT_TRUE(dragged.FinishGraph());
    expectCommitted(dragged);
    EXPECT_EQ(dragged.m_bEditMode, 0);
    EXPECT_EQ(dragged.IsSparePoint(), 1);
    EXPECT_NULL_RECT(dragged.m_rcRegion);
    EXPECT_POINT(dragged.m_graphData[1], 150.0, 120.0);

    CInkLine edited;
    drag(edited, {100, 80}, {200, 140});
    feed(edited, PT_DOWN, 200, 140);
    EXPECT_TRUE(edited.FinishGraph());
    expectCommitted(edited);
    EXPECT_EQ(edited.m_bEditMode, 1);
    EXPECT_EQ(edited.m_modifyType, 9);

    EXPECT_TRUE(edited.FinishGraph());
    expectCommitted(edited);
}

TEST(CInkLine, widthDecidesTheRadiusOfTheHandles)
{
    const int radii[][2] = {{-3, 5}, {0, 5}, {1, 5}, {4, 5}, {5, 5}, {6, 6}, {7, 7}, {8, 7}, {9, 7}, {11, 7}, {20, 7}};
    for (const auto &[width, radius] : radii) {
        SCOPED_TRACE(width);
        CInkLine line;
        line.SetWidth(width);
        EXPECT_EQ(line.m_nWidth, width);
        EXPECT_EQ(line.m_nHotRadius, radius);
        EXPECT_NULL_RECT(line.m_rcRegion);
    }
}

TEST(CInkLine, sameWidthKeepsTheRadius)
{
    CInkLine line;
    line.SetWidth(10);
    EXPECT_EQ(line.m_nWidth, 10);
    EXPECT_EQ(line.m_nHotRadius, 3);

    line.SetWidth(20);
    line.SetWidth(10);
    EXPECT_EQ(line.m_nHotRadius, 7);
}

TEST(CInkLine, widthWhileEditingLaysTheRegionOutAnew)
{
    CInkLine line;
    drag(line, {100, 80}, {130, 100});
    line.SetWidth(20);
    EXPECT_EDGES(line.m_rcRegion, 80, 60, 150, 120);
    line.SetWidth(6);
    EXPECT_EDGES(line.m_rcRegion, 94, 74, 136, 106);
    line.SetWidth(5);
    EXPECT_EDGES(line.m_rcRegion, 95, 75, 135, 105);
    line.SetWidth(4);
    EXPECT_EDGES(line.m_rcRegion, 95, 75, 135, 105);
    line.SetWidth(-8);
    EXPECT_EDGES(line.m_rcRegion, 95, 75, 135, 105);
}

TEST(CInkLine, sameWidthWhileEditingKeepsTheRegion)
{
    CInkLine line;
    drag(line, {100, 80}, {130, 100});
    line.m_graphData[1] = QPointF(300, 200);
    line.SetWidth(10);
    EXPECT_EDGES(line.m_rcRegion, 90, 70, 140, 110);
}

TEST(CInkLine, widthWhileDrawingLeavesTheRegionNull)
{
    CInkLine line;
    feed(line, PT_DOWN, 100, 80);
    feed(line, PT_MOVE, 130, 100);
    line.SetWidth(20);
    EXPECT_NULL_RECT(line.m_rcRegion);
}

TEST(CInkLine, shortenedListIsSurvivedInEachPhase)
{
    for (const int size : {0, 1}) {
        for (const int edit : {0, 1}) {
            for (const int code : kAllCodes) {
                CInkLine line;
                drag(line, {100, 80}, {200, 140});
                line.m_bEditMode = edit;
                line.m_modifyType = 2;
                line.m_graphData.resize(size);
                feed(line, code, 150, 110);
                line.m_graphData.resize(size);
                line.SetWidth(3);
                line.SetRegion();
                line.AroundHotPts(QPoint(150, 110));
                line.IsPtInModifyZone(QPoint(150, 110));
                line.ModifyGraph(QPoint(10, 10), MT_MOVE);
                line.ModifyGraph(QPoint(10, 10), MT_TOP);
                drawn(line);
                EXPECT_TRUE(line.FinishGraph());
                drawn(line);
            }
        }
    }
}

TEST(CInkLine, pressAfterTheListWasEmptiedRestoresBothPoints)
{
    CInkLine line;
    line.m_graphData.clear();
    feed(line, PT_DOWN, 100, 80);
    ASSERT_EQ(line.m_graphData.size(), 2);
    EXPECT_POINT(line.m_graphData[0], 100.0, 80.0);
    EXPECT_POINT(line.m_graphData[1], 100.0, 80.0);
}

TEST(CInkLine, extremeCoordinatesAndWidthsAreSurvived)
{
    const int extremes[] = {INT_MIN, INT_MIN + 1, -2'000'000'000, 0, 2'000'000'000, INT_MAX - 1, INT_MAX};
    for (const int from : extremes) {
        for (const int to : extremes) {
            for (const int width : {INT_MIN, -1, 0, 1, 10, INT_MAX}) {
                CInkLine line;
                line.SetWidth(width);
                line.ShowDrawerName(1);
                line.ShowDrawerIcon(1);
                line.m_sizeName = QSize(INT_MAX, INT_MAX);
                drag(line, {from, to}, {to, from});
                line.AroundHotPts(QPoint(to, to));
                drag(line, {from, to}, {to, 0});
                drag(line, {0, 0}, {to, from});
                line.DecideModiFyType(QPoint(from, from));
                line.FinishGraph();
                line.GetUpdateRect();
            }
        }
    }
}

// The cubic curve in three drags: its events, and what it covers. What it shares with the polygon is in
// tst_GestureShapes.cpp.

#include "GestureShape.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

using EditedCurve = DraggedCurve::Edited;

const int kMoveCodes[] = {0, 3, PT_DBLCLK, PT_MOVE, 6, 99, -1, INT_MIN, INT_MAX};

} // namespace

TEST(CInkBeZier, newCurveHasFourPointsAndItsStyles)
{
    CInkBeZier curve(Qt::RoundCap, Qt::SquareCap, Qt::DotLine);
    EXPECT_EQ(curve.m_capStyleBegin, Qt::RoundCap);
    EXPECT_EQ(curve.m_capStyleEnd, Qt::SquareCap);
    EXPECT_EQ(curve.m_penStyle, Qt::DotLine);
    EXPECT_EQ(curve.m_nWidth, 4);
    EXPECT_EQ(curve.GetPointCount(), 0);
    expectPoints(curve, {{0, 0}, {0, 0}, {0, 0}, {0, 0}});
    EXPECT_EDGES(curve.GetUpdateRect(), -16, -16, 15, 15);
}

TEST(CInkBeZier, pressSetsAllFourPoints)
{
    Curve curve;
    curve.m_bSparePoint = 1;
    feed(curve, PT_DOWN, 100, 80);
    expectPoints(curve, {{100, 80}, {100, 80}, {100, 80}, {100, 80}});
    EXPECT_EQ(curve.GetPointCount(), 1);
    EXPECT_EQ(curve.IsSparePoint(), 0);
}

TEST(CInkBeZier, firstDragDrawsAStraightSegment)
{
    for (const int code : kMoveCodes) {
        SCOPED_TRACE(code);
        Curve curve;
        feed(curve, PT_DOWN, 100, 80);
        feed(curve, code, 150, 130);
        expectPoints(curve, {{100, 80}, {100, 80}, {150, 130}, {150, 130}});
        EXPECT_EQ(curve.GetPointCount(), 1);
        EXPECT_EQ(curve.IsSparePoint(), 1);
        feed(curve, PT_UP, 160, 140);
        expectPoints(curve, {{100, 80}, {100, 80}, {160, 140}, {160, 140}});
        EXPECT_EQ(curve.GetPointCount(), 2);
        EXPECT_EQ(curve.IsSparePoint(), 0);
        EXPECT_EQ(curve.m_bEditMode, 0);
        EXPECT_EQ(curve.m_bFinished, 0);
    }
}

TEST(CInkBeZier, secondDragPlacesTheFirstControlPoint)
{
    for (const int code : kMoveCodes) {
        SCOPED_TRACE(code);
        StraightCurve curve;
        feed(curve, PT_DOWN, 10, 20);
        feed(curve, code, 30, 40);
        expectPoints(curve, {{100, 100}, {30, 40}, {200, 150}, {200, 150}});
        EXPECT_EQ(curve.GetPointCount(), 2);
        EXPECT_EQ(curve.IsSparePoint(), 1);
        feed(curve, PT_UP, 130, 150);
        expectPoints(curve, {{100, 100}, {130, 150}, {200, 150}, {200, 150}});
        EXPECT_EQ(curve.GetPointCount(), 3);
        EXPECT_EQ(curve.IsSparePoint(), 0);
        EXPECT_EQ(curve.m_bEditMode, 0);
    }
}

TEST(CInkBeZier, thirdDragPlacesTheSecondControlPointAndCompletes)
{
    for (const int code : kMoveCodes) {
        SCOPED_TRACE(code);
        StraightCurve curve;
        drag(curve, {10, 20}, {130, 150});
        feed(curve, PT_DOWN, 10, 20);
        feed(curve, code, 30, 40);
        expectPoints(curve, {{100, 100}, {130, 150}, {30, 40}, {200, 150}});
        EXPECT_EQ(curve.GetPointCount(), 3);
        EXPECT_EQ(curve.IsSparePoint(), 1);
        EXPECT_EQ(curve.m_bEditMode, 0);
        EXPECT_NULL_RECT(curve.m_rcHot);
        feed(curve, PT_UP, 170, 100);
        expectPoints(curve, {{100, 100}, {130, 150}, {170, 100}, {200, 150}});
        EXPECT_EQ(curve.GetPointCount(), 4);
        EXPECT_EQ(curve.IsSparePoint(), 0);
        EXPECT_EQ(curve.m_bEditMode, 1);
        EXPECT_EQ(curve.m_bFinished, 0);
        EXPECT_EDGES(curve.m_rcHot, 90, 90, 210, 160);
        EXPECT_POINT(curve.m_ptCenter, 150.0, 125.0);
        EXPECT_POINT(curve.m_hotPts[8], 150.0, 60.0);
    }
}

TEST(CInkBeZier, laterPressesMoveNoPoint)
{
    StraightCurve curve;
    curve.m_bSparePoint = 1;
    feed(curve, PT_DOWN, 10, 20);
    expectPoints(curve, {{100, 100}, {100, 100}, {200, 150}, {200, 150}});
    EXPECT_EQ(curve.GetPointCount(), 2);
    EXPECT_EQ(curve.IsSparePoint(), 0);
    feed(curve, PT_UP, 130, 150);
    feed(curve, PT_DOWN, 10, 20);
    expectPoints(curve, {{100, 100}, {130, 150}, {200, 150}, {200, 150}});
    EXPECT_EQ(curve.GetPointCount(), 3);

    Curve pressedTwice;
    feed(pressedTwice, PT_DOWN, 100, 80);
    feed(pressedTwice, PT_DOWN, 10, 20);
    expectPoints(pressedTwice, {{100, 80}, {100, 80}, {100, 80}, {100, 80}});
    EXPECT_EQ(pressedTwice.GetPointCount(), 1);
}

TEST(CInkBeZier, laterPressesNeedNotCome)
{
    Curve curve;
    feed(curve, PT_DOWN, 100, 100);
    feed(curve, PT_UP, 200, 150);
    feed(curve, PT_MOVE, 10, 20);
    feed(curve, PT_UP, 130, 150);
    feed(curve, PT_UP, 170, 100);
    expectPoints(curve, {{100, 100}, {130, 150}, {170, 100}, {200, 150}});
    EXPECT_EQ(curve.m_bEditMode, 1);
}

TEST(CInkBeZier, anyCodeBeforeThePressOnlySetsTheSparePoint)
{
    for (const int code : kMoveCodes) {
        SCOPED_TRACE(code);
        Curve curve;
        EXPECT_EDGES(feed(curve, code, 100, 80), -16, -16, 15, 15);
        expectPoints(curve, {{0, 0}, {0, 0}, {0, 0}, {0, 0}});
        EXPECT_EQ(curve.GetPointCount(), 0);
        EXPECT_EQ(curve.IsSparePoint(), 1);
        EXPECT_EQ(curve.m_bFinished, 0);
        feed(curve, PT_DOWN, 100, 80);
        EXPECT_EQ(curve.GetPointCount(), 1);
    }
}

TEST(CInkBeZier, releaseBeforeThePressAbandons)
{
    Curve curve;
    feed(curve, PT_MOVE, 50, 60);
    EXPECT_EDGES(feed(curve, PT_UP, 100, 80), -16, -16, 15, 15);
    EXPECT_EQ(curve.m_bFinished, 1);
    EXPECT_EQ(curve.m_bHideHotShape, 1);
    EXPECT_EQ(curve.m_bEditMode, 0);
    EXPECT_EQ(curve.IsSparePoint(), 0);
    EXPECT_EQ(curve.GetPointCount(), 0);
    EXPECT_NULL_RECT(feed(curve, PT_DOWN, 100, 80));
    EXPECT_EQ(curve.GetPointCount(), 0);
}

TEST(CInkBeZier, releaseOnePixelAwayIsAbandoned)
{
    for (const Spot &at : {Spot{100, 80}, Spot{101, 80}, Spot{100, 79}, Spot{99, 80}, Spot{100, 81}}) {
        SCOPED_TRACE(::testing::Message() << at.x << ',' << at.y);
        Curve curve;
        feed(curve, PT_DOWN, 100, 80);
        feed(curve, PT_MOVE, 150, 130);
        feed(curve, PT_UP, at.x, at.y);
        EXPECT_EQ(curve.m_bFinished, 1);
        EXPECT_EQ(curve.m_bHideHotShape, 1);
        EXPECT_EQ(curve.m_bEditMode, 0);
        EXPECT_EQ(curve.IsSparePoint(), 0);
        EXPECT_EQ(curve.GetPointCount(), 1);
        EXPECT_NULL_RECT(curve.m_rcHot);
        expectPoints(curve, {{100, 80}, {100, 80}, at, at});
    }
    for (const Spot &at : {Spot{101, 81}, Spot{99, 79}, Spot{102, 80}, Spot{100, 78}}) {
        SCOPED_TRACE(::testing::Message() << at.x << ',' << at.y);
        Curve curve;
        drag(curve, {100, 80}, {at.x, at.y});
        EXPECT_EQ(curve.m_bFinished, 0);
        EXPECT_EQ(curve.GetPointCount(), 2);
    }
}

TEST(CInkBeZier, everyReleaseMeasuresStartAndEnd)
{
    for (const double reach : {0.0, 0.5, 1.0, 1.015625}) {
        SCOPED_TRACE(reach);
        StraightCurve second;
        second.m_graphData[3] = QPointF(100 - reach, 100);
        feed(second, PT_UP, 130, 150);
        EXPECT_POINT(second.m_graphData[1], 130.0, 150.0);
        EXPECT_EQ(second.m_bFinished, reach <= 1 ? 1 : 0);
        EXPECT_EQ(second.m_bHideHotShape, reach <= 1 ? 1 : 0);
        EXPECT_EQ(second.GetPointCount(), reach <= 1 ? 2 : 3);

        StraightCurve third;
        feed(third, PT_UP, 130, 150);
        third.m_graphData[3] = QPointF(100, 100 + reach);
        feed(third, PT_UP, 170, 100);
        EXPECT_POINT(third.m_graphData[2], 170.0, 100.0);
        EXPECT_EQ(third.m_bFinished, reach <= 1 ? 1 : 0);
        EXPECT_EQ(third.m_bEditMode, reach <= 1 ? 0 : 1);
        EXPECT_EQ(third.GetPointCount(), reach <= 1 ? 3 : 4);
    }
}

TEST(CInkBeZier, controlPointsDoNotAbandon)
{
    StraightCurve curve;
    drag(curve, {100, 100}, {100, 100});
    drag(curve, {100, 100}, {100, 100});
    EXPECT_EQ(curve.m_bEditMode, 1);
    EXPECT_EQ(curve.m_bFinished, 0);
    expectPoints(curve, {{100, 100}, {100, 100}, {100, 100}, {200, 150}});
}

TEST(CInkBeZier, coordinatesPassThroughSinglePrecision)
{
    Curve curve;
    feed(curve, PT_DOWN, 16'777'217, 80);
    feed(curve, PT_UP, 16'777'219, -16'777'217); // 16777220
    feed(curve, PT_UP, 3, 16'777'217);
    feed(curve, PT_UP, 16'777'217, 7);
    expectPoints(curve, {{16'777'216, 80}, {3, 16'777'216}, {16'777'216, 7}, {16'777'220, -16'777'216}});

    Curve tooShort;
    drag(tooShort, {16'777'216, 80}, {16'777'217, 81});
    EXPECT_EQ(tooShort.m_bFinished, 1);
}

TEST(CInkBeZier, finishAfterTheFirstDragKeepsAStraightCurve)
{
    StraightCurve curve;
    EXPECT_EQ(curve.AroundHotPts(QPoint(150, 60)), MT_NONE);
    EXPECT_EQ(curve.FinishGraph(), 1);
    EXPECT_EDGES(curve.m_rcHot, 90, 90, 210, 160);
    EXPECT_EQ(curve.m_bEditMode, 0);
    EXPECT_EQ(curve.m_bFinished, 1);
    EXPECT_EQ(curve.m_bHideHotShape, 1);
    EXPECT_NULL_RECT(feed(curve, PT_MOVE, 10, 10));
    EXPECT_EQ(curve.IsSparePoint(), 0);
    expectPoints(curve, {{100, 100}, {100, 100}, {200, 150}, {200, 150}});
}

TEST(CInkBeZier, eachEventReportsWhatWasAndIsCovered)
{
    Curve curve;
    EXPECT_EDGES(feed(curve, PT_DOWN, 100, 80), -16, -16, 115, 95);
    EXPECT_EDGES(curve.GetUpdateRect(), 84, 64, 115, 95);
    EXPECT_EDGES(feed(curve, PT_MOVE, 150, 130), 84, 64, 165, 145);
    EXPECT_EDGES(feed(curve, PT_UP, 120, 90), 84, 64, 165, 145);
    EXPECT_EDGES(curve.GetUpdateRect(), 84, 64, 135, 105);
    EXPECT_EDGES(feed(curve, PT_DOWN, 20, 20), 84, 64, 135, 105);
    EXPECT_EDGES(feed(curve, PT_MOVE, 50, 100), 34, 64, 135, 115);
    EXPECT_EDGES(feed(curve, PT_UP, 100, 80), 34, 64, 135, 115);
    EXPECT_EDGES(feed(curve, PT_MOVE, 200, 80), 84, 64, 215, 105);
    // Frame (90,70) to (130,100).
    EXPECT_EDGES(feed(curve, PT_UP, 120, 80), 39, 14, 215, 152);
    EXPECT_EDGES(curve.GetUpdateRect(), 39, 14, 177, 152);
}

TEST(CInkBeZier, updateIsUnitedNeverClearedAndReturned)
{
    Curve curve;
    QRect update(QPoint(500, 400), QPoint(510, 410));
    EXPECT_EDGES(curve.FormGraphData(PT_DOWN, QPoint(100, 80), update), -16, -16, 510, 410);
    EXPECT_EDGES(update, -16, -16, 510, 410);
    curve.AddPoint(PT_MOVE, QPoint(-100, 80), update);
    EXPECT_EDGES(update, -116, -16, 510, 410);
    EXPECT_EDGES(curve.FormGraphData(PT_UP, QPoint(99, 80), update), -116, -16, 510, 410);
}

TEST(CInkBeZier, formingClearsTheSparePointOfItself)
{
    StraightCurve curve;
    QRect update;
    curve.m_bSparePoint = 1;
    curve.FormGraphData(PT_DOWN, QPoint(10, 20), update);
    EXPECT_EQ(curve.IsSparePoint(), 0);
}

TEST(CInkBeZier, coveredRectangleHoldsAllPointsAtAnyWidth)
{
    Curve curve;
    curve.m_graphData = {QPointF(20.9, 9.9), QPointF(-10.7, 30.2), QPointF(5, -0.9), QPointF(40, 7)};
    for (const int width : {-5, 0, 1, 4, 40, INT_MAX}) {
        curve.SetWidth(width);
        EXPECT_EDGES(curve.GetUpdateRect(), -26, -16, 55, 45);
    }
}

TEST(CInkBeZier, nameAndIconSitAtTheCurrentPoint)
{
    // Start (100.9,-0.9), first control (110,90), second control (-20.9,130), end (150,40.9).
    const int stages[][3] = {{0, 100, 0}, {1, 150, 40}, {2, 110, 90}, {3, -20, 130}, {4, 100, 0}, {-1, 100, 0}};
    for (const auto &[count, x, y] : stages) {
        SCOPED_TRACE(count);
        Curve curve;
        curve.m_graphData = {QPointF(100.9, -0.9), QPointF(110, 90), QPointF(-20.9, 130), QPointF(150, 40.9)};
        curve.m_nPointCount = count;
        curve.m_sizeName = QSize(60, 10);
        curve.m_rcName = curve.m_rcIcon = QRect(1, 2, 3, 4);
        EXPECT_EDGES(curve.GetUpdateRect(), -36, -16, 165, 145);
        EXPECT_NULL_RECT(curve.m_rcName);
        EXPECT_NULL_RECT(curve.m_rcIcon);
        curve.ShowDrawerName(1);
        curve.GetUpdateRect();
        EXPECT_EDGES(curve.m_rcName, x, y, x + 59, y + 9);
        EXPECT_NULL_RECT(curve.m_rcIcon);
        curve.ShowDrawerName(0);
        curve.ShowDrawerIcon(1);
        curve.GetUpdateRect();
        EXPECT_EDGES(curve.m_rcIcon, x - 15, y - 15, x + 14, y + 14);
        EXPECT_NULL_RECT(curve.m_rcName);
    }
}

TEST(CInkBeZier, nameAndIconAreCovered)
{
    StraightCurve curve;
    curve.m_sizeName = QSize(60, 150);
    curve.ShowDrawerName(1);
    feed(curve, PT_MOVE, 200, 150);
    EXPECT_EDGES(curve.GetUpdateRect(), 84, 84, 259, 299);
    curve.m_sizeName = QSize(2, 2);
    curve.ShowDrawerIcon(1);
    EXPECT_EDGES(curve.GetUpdateRect(), 84, 84, 215, 165);
    EXPECT_EDGES(curve.m_rcIcon, 185, 135, 214, 164); // never outside the margin
}

TEST(CInkBeZier, nameIsShownBeforeThePress)
{
    Curve curve;
    curve.ShowDrawerName(1);
    curve.ShowDrawerIcon(1);
    curve.m_sizeName = QSize(60, 20);
    EXPECT_EDGES(curve.GetUpdateRect(), -16, -16, 59, 19);
    EXPECT_EDGES(curve.m_rcName, 0, 0, 59, 19);
    EXPECT_EDGES(curve.m_rcIcon, -15, -15, 14, 14);
}

TEST(CInkBeZier, shortenedListIsEndured)
{
    for (const int size : {0, 1, 3}) {
        for (const int count : {0, 1, 2, 3, 4}) {
            for (const int edited : {0, 1}) {
                EditedCurve curve;
                curve.m_bEditMode = edited;
                curve.m_nPointCount = count;
                curve.m_graphData.resize(size);
                curve.ShowDrawerName(1);
                curve.ShowDrawerIcon(1);
                drawn(curve);
                curve.GetUpdateRect();
                for (const int code : {int(PT_MOVE), int(PT_DOWN), 99, int(PT_UP)})
                    feed(curve, code, 120, 110);
                drawn(curve);
                curve.FinishGraph();
                drawn(curve);
            }
        }
    }
}

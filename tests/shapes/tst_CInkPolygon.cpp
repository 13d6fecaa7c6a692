// The polygon: set vertex by vertex, closed near its start or completed by a double click. What it shares with the
// curve is in tst_GestureShapes.cpp.

#include "GestureShape.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

using EditedPolygon = ClosedPolygon::Edited;

const int kIgnoredCodes[] = {0, 3, 6, 99, -1, INT_MIN, INT_MAX};

} // namespace

TEST(CInkPolygon, newPolygonHasNoPoints)
{
    CInkPolygon polygon;
    EXPECT_TRUE(polygon.m_graphData.isEmpty());
    EXPECT_GE(polygon.m_graphData.capacity(), 10);
    EXPECT_EQ(polygon.m_nWidth, 4);
    EXPECT_EQ(polygon.m_penStyle, Qt::SolidLine);
    EXPECT_EQ(polygon.m_bFinishOnRelease, 0);
    EXPECT_EQ(polygon.GetPointCount(), 0);
    EXPECT_NULL_RECT(polygon.GetUpdateRect());
}

TEST(CInkPolygon, roomForTenPointsIsKeptAsTheListGrows)
{
    CInkPolygon polygon;
    drag(polygon, {100, 80}, {150, 130});
    EXPECT_GE(polygon.m_graphData.capacity(), 10);
    for (int x = 200; x < 400; x += 10)
        feed(polygon, PT_UP, x, 50);
    EXPECT_EQ(polygon.GetPointCount(), 22);
    EXPECT_EQ(polygon.m_graphData.size(), 23);
}

TEST(CInkPolygon, firstPressSetsVertexAndRubberBand)
{
    CInkPolygon polygon;
    polygon.m_bSparePoint = 1;
    feed(polygon, PT_DOWN, 100, 80);
    expectPoints(polygon, {{100, 80}, {100, 80}});
    EXPECT_EQ(polygon.GetPointCount(), 1);
    EXPECT_EQ(polygon.IsSparePoint(), 0);
    EXPECT_EQ(polygon.m_bEditMode, 0);
}

TEST(CInkPolygon, eventsBeforeTheFirstPressAreIgnored)
{
    for (const int code : {0, int(PT_UP), 3, int(PT_DBLCLK), int(PT_MOVE), 6, 99, -1, INT_MIN, INT_MAX}) {
        SCOPED_TRACE(code);
        CInkPolygon polygon;
        polygon.m_bSparePoint = 1;
        EXPECT_NULL_RECT(feed(polygon, code, 100, 80));
        expectPoints(polygon, {});
        EXPECT_EQ(polygon.GetPointCount(), 0);
        EXPECT_EQ(polygon.IsSparePoint(), 0);
        EXPECT_EQ(polygon.m_bFinished, 0);
        EXPECT_EQ(polygon.m_bFinishOnRelease, 0);
    }
}

TEST(CInkPolygon, doubleClickBeforeTheFirstVertexCompletesNothing)
{
    CInkPolygon polygon;
    feed(polygon, PT_DBLCLK, 100, 80);
    drag(polygon, {100, 80}, {150, 130});
    EXPECT_EQ(polygon.m_bEditMode, 0);
    EXPECT_EQ(polygon.GetPointCount(), 2);
}

TEST(CInkPolygon, moveDrawsTheRubberBand)
{
    CInkPolygon polygon;
    feed(polygon, PT_DOWN, 100, 80);
    feed(polygon, PT_MOVE, 150, 130);
    expectPoints(polygon, {{100, 80}, {150, 130}});
    EXPECT_EQ(polygon.GetPointCount(), 1);
    EXPECT_EQ(polygon.IsSparePoint(), 1);
    feed(polygon, PT_UP, 150, 130);
    feed(polygon, PT_MOVE, 160, 140);
    expectPoints(polygon, {{100, 80}, {150, 130}, {160, 140}});
    EXPECT_EQ(polygon.GetPointCount(), 2);
    EXPECT_EQ(polygon.IsSparePoint(), 1);
}

TEST(CInkPolygon, releaseSetsAVertexAndANewRubberBand)
{
    CInkPolygon polygon;
    feed(polygon, PT_DOWN, 100, 80);
    feed(polygon, PT_MOVE, 140, 120);
    feed(polygon, PT_UP, 150, 130);
    expectPoints(polygon, {{100, 80}, {150, 130}, {150, 130}});
    EXPECT_EQ(polygon.GetPointCount(), 2);
    EXPECT_EQ(polygon.IsSparePoint(), 0);
    feed(polygon, PT_UP, 20, 30);
    expectPoints(polygon, {{100, 80}, {150, 130}, {20, 30}, {20, 30}});
    EXPECT_EQ(polygon.GetPointCount(), 3);
    EXPECT_EQ(polygon.m_bEditMode, 0);
    EXPECT_EQ(polygon.m_bFinished, 0);
    EXPECT_NULL_RECT(polygon.m_rcHot);
}

TEST(CInkPolygon, laterPressMovesTheRubberBand)
{
    CInkPolygon polygon;
    feed(polygon, PT_DOWN, 100, 80);
    feed(polygon, PT_DOWN, 110, 90);
    expectPoints(polygon, {{100, 80}, {110, 90}});
    EXPECT_EQ(polygon.GetPointCount(), 1);
    feed(polygon, PT_UP, 150, 130);
    polygon.m_bSparePoint = 1;
    feed(polygon, PT_DOWN, 160, 20);
    expectPoints(polygon, {{100, 80}, {150, 130}, {160, 20}});
    EXPECT_EQ(polygon.GetPointCount(), 2);
    EXPECT_EQ(polygon.IsSparePoint(), 0);
}

TEST(CInkPolygon, otherCodesDoNothing)
{
    for (const int code : kIgnoredCodes) {
        SCOPED_TRACE(code);
        GrowingPolygon polygon;
        EXPECT_EDGES(feed(polygon, code, 300, 250), 88, 88, 211, 161);
        expectPoints(polygon, {{100, 100}, {200, 110}, {150, 150}});
        EXPECT_EQ(polygon.GetPointCount(), 2);
        EXPECT_EQ(polygon.IsSparePoint(), 0);
        EXPECT_EQ(polygon.m_bFinishOnRelease, 0);
    }
}

TEST(CInkPolygon, formingClearsTheSparePointOfItself)
{
    for (const int code : {int(PT_DOWN), int(PT_UP), int(PT_DBLCLK), 99}) {
        SCOPED_TRACE(code);
        GrowingPolygon polygon;
        QRect update;
        polygon.FormGraphData(code, QPoint(300, 250), update);
        EXPECT_EQ(polygon.IsSparePoint(), 0);
    }
}

TEST(CInkPolygon, firstReleaseWithinTwoPixelsAbandons)
{
    for (const Spot &at : {Spot{100, 80}, Spot{102, 80}, Spot{100, 78}, Spot{101, 79}, Spot{99, 81}}) {
        SCOPED_TRACE(::testing::Message() << at.x << ',' << at.y);
        CInkPolygon polygon;
        feed(polygon, PT_DOWN, 100, 80);
        feed(polygon, PT_MOVE, 140, 120);
        feed(polygon, PT_UP, at.x, at.y);
        EXPECT_EQ(polygon.m_bFinished, 1);
        EXPECT_EQ(polygon.m_bHideHotShape, 1);
        EXPECT_EQ(polygon.m_bEditMode, 0);
        EXPECT_EQ(polygon.IsSparePoint(), 0);
        EXPECT_NULL_RECT(polygon.m_rcHot);
        // The release itself is not stored.
        EXPECT_EQ(polygon.GetPointCount(), 1);
        expectPoints(polygon, {{100, 80}, {140, 120}});
    }
}

TEST(CInkPolygon, firstReleaseFartherThanTwoPixelsSetsTheSecondVertex)
{
    for (const Spot &at : {Spot{103, 80}, Spot{101, 82}, Spot{98, 79}, Spot{104, 80}, Spot{103, 84}, Spot{100, 86}}) {
        SCOPED_TRACE(::testing::Message() << at.x << ',' << at.y);
        CInkPolygon polygon;
        feed(polygon, PT_DOWN, 100, 80);
        feed(polygon, PT_UP, at.x, at.y);
        EXPECT_EQ(polygon.m_bFinished, 0);
        EXPECT_EQ(polygon.m_bEditMode, 0);
        EXPECT_EQ(polygon.GetPointCount(), 2);
        expectPoints(polygon, {{100, 80}, at, at});
    }
}

TEST(CInkPolygon, releaseWithinFivePixelsOfTheStartCloses)
{
    for (const Spot &at :
         {Spot{103, 104}, Spot{105, 100}, Spot{100, 95}, Spot{97, 96}, Spot{101, 101}, Spot{100, 100}}) {
        SCOPED_TRACE(::testing::Message() << at.x << ',' << at.y);
        GrowingPolygon polygon;
        feed(polygon, PT_UP, 150, 150);
        EXPECT_EQ(polygon.GetPointCount(), 3);
        feed(polygon, PT_MOVE, 120, 120);
        feed(polygon, PT_UP, at.x, at.y);
        expectPoints(polygon, {{100, 100}, {200, 110}, {150, 150}, {100, 100}});
        EXPECT_EQ(polygon.GetPointCount(), 4);
        EXPECT_EQ(polygon.m_bEditMode, 1);
        EXPECT_EQ(polygon.m_bFinished, 0);
        EXPECT_EQ(polygon.IsSparePoint(), 0);
        EXPECT_EDGES(polygon.m_rcHot, 90, 90, 210, 160);
        EXPECT_POINT(polygon.m_ptCenter, 150.0, 125.0);
        EXPECT_POINT(polygon.m_hotPts[8], 150.0, 60.0);
    }
}

TEST(CInkPolygon, releaseFartherThanFivePixelsFromTheStartSetsAVertex)
{
    for (const Spot &at : {Spot{106, 100}, Spot{105, 101}, Spot{96, 104}, Spot{100, 94}}) {
        SCOPED_TRACE(::testing::Message() << at.x << ',' << at.y);
        GrowingPolygon polygon;
        feed(polygon, PT_UP, at.x, at.y);
        expectPoints(polygon, {{100, 100}, {200, 110}, at, at});
        EXPECT_EQ(polygon.GetPointCount(), 3);
        EXPECT_EQ(polygon.m_bEditMode, 0);
    }
}

TEST(CInkPolygon, twoVerticesAreEnoughToClose)
{
    GrowingPolygon polygon;
    feed(polygon, PT_UP, 101, 100);
    expectPoints(polygon, {{100, 100}, {200, 110}, {100, 100}});
    EXPECT_EQ(polygon.GetPointCount(), 3);
    EXPECT_EQ(polygon.m_bEditMode, 1);
    EXPECT_EQ(polygon.m_bFinished, 0);
    EXPECT_EDGES(polygon.m_rcHot, 90, 90, 210, 120);
}

TEST(CInkPolygon, doubleClickOnlyMarksTheNextRelease)
{
    GrowingPolygon polygon;
    EXPECT_EQ(polygon.IsSparePoint(), 1);
    feed(polygon, PT_DBLCLK, 300, 250);
    EXPECT_EQ(polygon.m_bFinishOnRelease, 1);
    EXPECT_EQ(polygon.IsSparePoint(), 0);
    EXPECT_EQ(polygon.m_bEditMode, 0);
    EXPECT_EQ(polygon.GetPointCount(), 2);
    expectPoints(polygon, {{100, 100}, {200, 110}, {150, 150}});
}

TEST(CInkPolygon, releaseAfterADoubleClickKeepsTheRubberBand)
{
    GrowingPolygon polygon;
    feed(polygon, PT_DBLCLK, 150, 150);
    feed(polygon, PT_UP, 300, 250); // its own position does not count
    expectPoints(polygon, {{100, 100}, {200, 110}, {150, 150}});
    EXPECT_EQ(polygon.GetPointCount(), 2);
    EXPECT_EQ(polygon.m_bEditMode, 1);
    EXPECT_EQ(polygon.m_bFinished, 0);
    EXPECT_EQ(polygon.m_bFinishOnRelease, 1);
    EXPECT_EDGES(polygon.m_rcHot, 90, 90, 210, 160);
}

TEST(CInkPolygon, rubberBandFollowsBetweenDoubleClickAndRelease)
{
    GrowingPolygon polygon;
    feed(polygon, PT_DBLCLK, 150, 150);
    feed(polygon, PT_DOWN, 160, 140);
    expectPoints(polygon, {{100, 100}, {200, 110}, {160, 140}});
    feed(polygon, PT_MOVE, 170, 145);
    EXPECT_EQ(polygon.IsSparePoint(), 1);
    feed(polygon, PT_UP, 0, 0);
    expectPoints(polygon, {{100, 100}, {200, 110}, {170, 145}});
    EXPECT_EQ(polygon.m_bEditMode, 1);
}

TEST(CInkPolygon, doubleClickWinsOverClosingAndAbandoning)
{
    GrowingPolygon closing;
    feed(closing, PT_DBLCLK, 100, 100);
    feed(closing, PT_UP, 100, 100);
    expectPoints(closing, {{100, 100}, {200, 110}, {150, 150}});
    EXPECT_EQ(closing.GetPointCount(), 2);
    EXPECT_EQ(closing.m_bEditMode, 1);

    CInkPolygon abandoning;
    feed(abandoning, PT_DOWN, 100, 80);
    feed(abandoning, PT_DBLCLK, 100, 80);
    feed(abandoning, PT_UP, 100, 80);
    expectPoints(abandoning, {{100, 80}, {100, 80}});
    EXPECT_EQ(abandoning.GetPointCount(), 1);
    EXPECT_EQ(abandoning.m_bEditMode, 1);
    EXPECT_EQ(abandoning.m_bFinished, 0);
    EXPECT_EDGES(abandoning.m_rcHot, 90, 70, 110, 90);
}

TEST(CInkPolygon, coordinatesPassThroughSinglePrecision)
{
    CInkPolygon polygon;
    feed(polygon, PT_DOWN, 16'777'217, 80);
    feed(polygon, PT_MOVE, 80, -16'777'217);
    expectPoints(polygon, {{16'777'216, 80}, {80, -16'777'216}});
    feed(polygon, PT_UP, 16'777'219, 80); // stored as 16777220
    expectPoints(polygon, {{16'777'216, 80}, {16'777'220, 80}, {16'777'220, 80}});
    feed(polygon, PT_UP, 16'777'222, 80); // six from the stored start
    EXPECT_EQ(polygon.m_bEditMode, 0);
    EXPECT_EQ(polygon.GetPointCount(), 3);
    feed(polygon, PT_DOWN, 3, 16'777'217);
    EXPECT_POINT(polygon.m_graphData[3], 3.0, 16'777'216.0);
}

TEST(CInkPolygon, doubleClickWhileEditedDoesNothing)
{
    EditedPolygon polygon;
    EXPECT_EDGES(feed(polygon, PT_DBLCLK, 150, 125), 59, 34, 237, 212);
    EXPECT_EQ(polygon.m_bFinishOnRelease, 0);
    EXPECT_EQ(polygon.m_modifyType, MT_NONE);
    EXPECT_EQ(polygon.GetPointCount(), 4);
}

TEST(CInkPolygon, emptiedListIsEndured)
{
    for (const int edited : {0, 1}) {
        GrowingPolygon polygon;
        polygon.m_bEditMode = edited;
        polygon.m_graphData.clear();
        polygon.ShowDrawerName(1);
        EXPECT_NULL_RECT(polygon.GetUpdateRect());
        EXPECT_NULL_RECT(polygon.m_rcName);
        for (const int code : {int(PT_MOVE), int(PT_DOWN), int(PT_DBLCLK), int(PT_UP), 99})
            feed(polygon, code, 120, 110);
        EXPECT_TRUE(isBlank(drawn(polygon)));
        polygon.FinishGraph();
        EXPECT_TRUE(isBlank(drawn(polygon)));
    }
}

TEST(CInkPolygon, counterPastTheListIsEndured)
{
    for (const int count : {-1, 3, 7, INT_MAX}) {
        GrowingPolygon polygon;
        polygon.m_nPointCount = count;
        for (const int code : {int(PT_MOVE), int(PT_DOWN), int(PT_UP), 99})
            feed(polygon, code, 120, 110);
        drawn(polygon);
        EXPECT_EQ(polygon.m_graphData.size(), 3);
    }
}

// The straight line while it is edited: what a pointer hits, and what a drag of it does.

#include "CInkLine.h"
#include "Canvas.h"
#include "Exact.h"

#include <gtest/gtest.h>

namespace {

// From (100,80) to (200,140), width 10 and handles of radius 3, region (90,70) to (210,150), covers (40,20) to
// (260,200).
class EditedLine : public CInkLine
{
public:
    EditedLine() { drag(*this, {100, 80}, {200, 140}); }
};

// What both hit tests say of a position.
void expectHit(CInkLine &line, const QPoint &pt, int type)
{
    SCOPED_TRACE(::testing::Message() << "at " << pt.x() << ',' << pt.y());
    EXPECT_EQ(line.DecideModiFyType(pt), type);
    EXPECT_EQ(line.IsPtInModifyZone(pt), type != 1);
}

} // namespace

TEST(CInkLine, pointerExactlyTheRadiusAwayHitsAnEndpoint)
{
    EditedLine line;
    expectHit(line, {100, 80}, 2);
    expectHit(line, {103, 80}, 2);
    expectHit(line, {97, 80}, 2);
    expectHit(line, {100, 83}, 2);
    expectHit(line, {100, 77}, 2);
    expectHit(line, {102, 82}, 2); // 2.83
    expectHit(line, {200, 140}, 9);
    expectHit(line, {203, 140}, 9);
    expectHit(line, {200, 137}, 9);
}

TEST(CInkLine, pointerBeyondTheRadiusGrabsTheWholeLine)
{
    EditedLine line;
    expectHit(line, {104, 80}, 10);
    expectHit(line, {96, 80}, 10);
    expectHit(line, {100, 84}, 10);
    expectHit(line, {103, 81}, 10); // 3.16
    expectHit(line, {204, 140}, 10);
    expectHit(line, {200, 136}, 10);
}

TEST(CInkLine, radiusFollowsTheWidth)
{
    const int radii[][2] = {{4, 5}, {5, 5}, {6, 6}, {7, 7}, {20, 7}};
    for (const auto &[width, radius] : radii) {
        SCOPED_TRACE(width);
        EditedLine line;
        line.SetWidth(width);
        line.m_rcRegion = QRect();
        expectHit(line, {100 + radius, 80}, 2);
        expectHit(line, {101 + radius, 80}, 1);
        expectHit(line, {200, 140 + radius}, 9);
        expectHit(line, {200, 141 + radius}, 1);
    }
}

TEST(CInkLine, firstEndpointWinsWhereBothAreWithinReach)
{
    CInkLine line;
    drag(line, {100, 80}, {102, 80});
    expectHit(line, {102, 80}, 2);
    expectHit(line, {103, 80}, 2);
    expectHit(line, {104, 80}, 9);
}

TEST(CInkLine, regionIncludesItsEdges)
{
    EditedLine line;
    EXPECT_EDGES(line.m_rcRegion, 90, 70, 210, 150);
    expectHit(line, {90, 70}, 10);
    expectHit(line, {210, 150}, 10);
    expectHit(line, {210, 70}, 10);
    expectHit(line, {90, 150}, 10);
    expectHit(line, {89, 110}, 1);
    expectHit(line, {211, 110}, 1);
    expectHit(line, {150, 69}, 1);
    expectHit(line, {150, 151}, 1);
}

TEST(CInkLine, regionIsTheBoundingBoxNotABand)
{
    EditedLine line;
    expectHit(line, {205, 75}, 10);
    expectHit(line, {95, 145}, 10);
}

TEST(CInkLine, thinLineIsGrabbedFivePixelsAround)
{
    CInkLine line;
    line.SetWidth(2);
    drag(line, {100, 100}, {200, 150});
    EXPECT_EDGES(line.m_rcRegion, 95, 95, 205, 155);
    expectHit(line, {95, 95}, 10);
    expectHit(line, {205, 155}, 10);
    expectHit(line, {94, 95}, 1);
    expectHit(line, {206, 155}, 1);
}

TEST(CInkLine, lineDrawnFromRightToLeftIsGrabbedBetweenItsEnds)
{
    CInkLine line;
    line.SetWidth(2);
    drag(line, {200, 100}, {100, 150});
    EXPECT_EDGES(line.m_rcRegion, 195, 95, 105, 155);
    expectHit(line, {104, 120}, 1);
    expectHit(line, {105, 120}, 10);
    expectHit(line, {195, 120}, 10);
    expectHit(line, {196, 120}, 1);
    expectHit(line, {150, 95}, 10);
    expectHit(line, {150, 155}, 10);
    expectHit(line, {150, 94}, 1);
    expectHit(line, {150, 156}, 1);
}

TEST(CInkLine, lineDrawnUpwardsIsGrabbedBetweenItsEnds)
{
    CInkLine line;
    line.SetWidth(20);
    drag(line, {100, 200}, {150, 100});
    EXPECT_EDGES(line.m_rcRegion, 80, 180, 170, 120);
    expectHit(line, {125, 120}, 10);
    expectHit(line, {125, 180}, 10);
    expectHit(line, {125, 119}, 1);
    expectHit(line, {125, 181}, 1);
    expectHit(line, {80, 150}, 10);
    expectHit(line, {79, 150}, 1);
}

TEST(CInkLine, reversedEdgesMeetWhereTheLineIsTwiceTheMarginWide)
{
    CInkLine line;
    line.SetWidth(2);
    drag(line, {200, 100}, {190, 150});
    EXPECT_EDGES(line.m_rcRegion, 195, 95, 195, 155);
    expectHit(line, {194, 125}, 1);
    expectHit(line, {195, 125}, 10);
    expectHit(line, {196, 125}, 1);

    // A right edge one less than the left is an empty rectangle, not a reversed one.
    CInkLine wider;
    wider.SetWidth(2);
    drag(wider, {200, 100}, {189, 150});
    EXPECT_EDGES(wider.m_rcRegion, 195, 95, 194, 155);
    expectHit(wider, {194, 125}, 1);
    expectHit(wider, {195, 125}, 1);

    CInkLine widest;
    widest.SetWidth(2);
    drag(widest, {200, 100}, {188, 150});
    EXPECT_EDGES(widest.m_rcRegion, 195, 95, 193, 155);
    expectHit(widest, {192, 125}, 1);
    expectHit(widest, {193, 125}, 10);
    expectHit(widest, {195, 125}, 10);
    expectHit(widest, {196, 125}, 1);
}

TEST(CInkLine, regionTruncatesTowardZero)
{
    CInkLine line;
    line.m_graphData = {QPointF(-20.9, -0.7), QPointF(30.9, 40.2)};
    line.SetRegion();
    EXPECT_EDGES(line.m_rcRegion, -30, -10, 40, 50);
}

TEST(CInkLine, hitTestStoresNothing)
{
    EditedLine line;
    line.m_ptLast = QPointF(7, 8);
    EXPECT_EQ(line.DecideModiFyType(QPoint(150, 110)), 10);
    EXPECT_EQ(line.AroundHotPts(QPoint(150, 110)), 10);
    EXPECT_POINT(line.m_ptLast, 7.0, 8.0);
    EXPECT_EQ(line.m_modifyType, 1);
}

TEST(CInkLine, modifyTypeReportsEndpointsAsTop)
{
    CInkLine line;
    const int reported[][2] = {{1, 1}, {2, 3}, {3, 3}, {4, 4},   {5, 5},  {6, 6},
                               {7, 7}, {8, 8}, {9, 3}, {10, 10}, {11, 11}};
    for (const auto &[type, told] : reported) {
        line.m_modifyType = type;
        EXPECT_EQ(line.GetModifyType(), told);
    }
}

TEST(CInkLine, hoverReportsEndpointsAsTop)
{
    EditedLine line;
    EXPECT_EQ(line.AroundHotPts(QPoint(100, 80)), 3);
    EXPECT_EQ(line.AroundHotPts(QPoint(200, 140)), 3);
    EXPECT_EQ(line.AroundHotPts(QPoint(150, 110)), 10);
    EXPECT_EQ(line.AroundHotPts(QPoint(300, 110)), 1);
}

TEST(CInkLine, hoverBeforeEditingFindsNothing)
{
    CInkLine line;
    EXPECT_EQ(line.AroundHotPts(QPoint(0, 0)), 1);
    feed(line, PT_DOWN, 100, 80);
    feed(line, PT_MOVE, 200, 140);
    EXPECT_EQ(line.AroundHotPts(QPoint(100, 80)), 1);
    EXPECT_EQ(line.AroundHotPts(QPoint(150, 110)), 1);
}

TEST(CInkLine, hoverAsksTheOverriddenHitTest)
{
    class Stubborn : public CInkLine
    {
    public:
        ModifyType DecideModiFyType(QPoint) override { return answer; }
        ModifyType answer = MT_RIGHT_BOTTOM;
    };
    Stubborn line;
    EXPECT_EQ(line.AroundHotPts(QPoint(0, 0)), 1);
    line.m_bEditMode = 1;
    EXPECT_EQ(line.AroundHotPts(QPoint(0, 0)), 3);
    line.answer = MT_ROTATE;
    EXPECT_EQ(line.AroundHotPts(QPoint(0, 0)), 11);
}

TEST(CInkLine, firstEndpointIsDragged)
{
    EditedLine line;
    EXPECT_EDGES(feed(line, PT_DOWN, 101, 81), 40, 20, 260, 200);
    EXPECT_EQ(line.m_modifyType, 2);
    EXPECT_EQ(line.GetModifyType(), 3);
    EXPECT_EQ(line.IsSparePoint(), 0);
    EXPECT_POINT(line.m_graphData[0], 100.0, 80.0);

    EXPECT_EDGES(feed(line, PT_MOVE, 60, 50), 0, -10, 260, 200);
    EXPECT_EQ(line.IsSparePoint(), 1);
    EXPECT_POINT(line.m_graphData[0], 60.0, 50.0);
    EXPECT_POINT(line.m_graphData[1], 200.0, 140.0);
    EXPECT_EDGES(line.m_rcRegion, 90, 70, 210, 150); // until the release

    EXPECT_EDGES(feed(line, PT_UP, 50, 90), -10, -10, 260, 200);
    EXPECT_EQ(line.IsSparePoint(), 0);
    EXPECT_POINT(line.m_graphData[0], 50.0, 90.0);
    EXPECT_POINT(line.m_graphData[1], 200.0, 140.0);
    EXPECT_EDGES(line.m_rcRegion, 40, 80, 210, 150);
    EXPECT_EQ(line.m_bFinished, 0);
    EXPECT_EQ(line.m_bEditMode, 1);
}

TEST(CInkLine, secondEndpointIsDraggedPastTheFirst)
{
    EditedLine line;
    feed(line, PT_DOWN, 200, 140);
    EXPECT_EQ(line.m_modifyType, 9);
    EXPECT_EQ(line.GetModifyType(), 3);
    feed(line, PT_MOVE, 150, 120);
    EXPECT_POINT(line.m_graphData[1], 150.0, 120.0);
    feed(line, PT_UP, 20, 140);
    EXPECT_POINT(line.m_graphData[0], 100.0, 80.0);
    EXPECT_POINT(line.m_graphData[1], 20.0, 140.0);
    EXPECT_EDGES(line.m_rcRegion, 90, 70, 30, 150);
}

TEST(CInkLine, lineDraggedToAPointStaysEditable)
{
    EditedLine line;
    feed(line, PT_DOWN, 200, 140);
    feed(line, PT_UP, 100, 80);
    EXPECT_EQ(line.m_bFinished, 0);
    EXPECT_EQ(line.m_bEditMode, 1);
    EXPECT_POINT(line.m_graphData[1], 100.0, 80.0);
    EXPECT_EDGES(line.m_rcRegion, 90, 70, 110, 90);
}

TEST(CInkLine, wholeLineIsMoved)
{
    EditedLine line;
    feed(line, PT_DOWN, 150, 110);
    EXPECT_EQ(line.m_modifyType, 10);
    EXPECT_EQ(line.GetModifyType(), 10);
    EXPECT_POINT(line.m_ptLast, 150.0, 110.0);

    EXPECT_EDGES(feed(line, PT_MOVE, 155, 112), 40, 20, 265, 202);
    EXPECT_EQ(line.IsSparePoint(), 1);
    EXPECT_POINT(line.m_graphData[0], 105.0, 82.0);
    EXPECT_POINT(line.m_graphData[1], 205.0, 142.0);
    EXPECT_POINT(line.m_ptLast, 155.0, 112.0);
    EXPECT_EDGES(line.m_rcRegion, 90, 70, 210, 150);

    feed(line, PT_UP, 140, 120);
    EXPECT_EQ(line.IsSparePoint(), 0);
    EXPECT_POINT(line.m_graphData[0], 90.0, 90.0);
    EXPECT_POINT(line.m_graphData[1], 190.0, 150.0);
    EXPECT_POINT(line.m_ptLast, 140.0, 120.0);
    EXPECT_EDGES(line.m_rcRegion, 80, 80, 200, 160);
}

TEST(CInkLine, moveLeavesTheFrameOfTheBaseAlone)
{
    EditedLine line;
    drag(line, {150, 110}, {170, 130});
    for (const QPointF &handle : line.m_hotPts)
        EXPECT_POINT(handle, 0.0, 0.0);
    EXPECT_NULL_RECT(line.m_rcHot);
    EXPECT_POINT(line.m_ptCenter, 0.0, 0.0);
    EXPECT_EQ(line.GetRotateAngle(), 0.0f);
}

TEST(CInkLine, moveStartsFromTheTruncatedLastPosition)
{
    EditedLine line;
    line.m_ptLast = QPointF(150.9, -0.9);
    line.ModifyGraph(QPoint(155, 2), MT_MOVE);
    EXPECT_POINT(line.m_graphData[0], 105.0, 82.0);
    EXPECT_POINT(line.m_graphData[1], 205.0, 142.0);
    EXPECT_POINT(line.m_ptLast, 155.0, 2.0);
}

TEST(CInkLine, moveMeasuresItsStepInSinglePrecision)
{
    EditedLine line;
    line.m_ptLast = QPointF(0, 0);
    line.ModifyGraph(QPoint(16'777'217, 1), MT_MOVE);
    EXPECT_POINT(line.m_graphData[0], 16'777'316.0, 81.0);
    EXPECT_POINT(line.m_ptLast, 16'777'216.0, 1.0);
}

TEST(CInkLine, pressOnAnEndpointLeavesTheLastPosition)
{
    EditedLine line;
    line.m_ptLast = QPointF(7, 8);
    feed(line, PT_DOWN, 100, 80);
    EXPECT_POINT(line.m_ptLast, 7.0, 8.0);
    feed(line, PT_MOVE, 90, 70);
    EXPECT_POINT(line.m_ptLast, 7.0, 8.0);
}

TEST(CInkLine, releaseWithoutAPressRefreshesTheRegion)
{
    EditedLine line;
    line.m_graphData[1] = QPointF(300, 200);
    line.m_bSparePoint = 1;
    EXPECT_EDGES(feed(line, PT_UP, 10, 10), 40, 20, 360, 260);
    EXPECT_EQ(line.IsSparePoint(), 0);
    EXPECT_POINT(line.m_graphData[0], 100.0, 80.0);
    EXPECT_POINT(line.m_graphData[1], 300.0, 200.0);
    EXPECT_EDGES(line.m_rcRegion, 90, 70, 310, 210);
}

TEST(CInkLine, moveAfterTheReleaseGoesOnDragging)
{
    EditedLine line;
    drag(line, {100, 80}, {60, 50});
    feed(line, PT_MOVE, 70, 55);
    EXPECT_POINT(line.m_graphData[0], 70.0, 55.0);
}

TEST(CInkLine, pressElsewhereCommits)
{
    EditedLine line;
    drag(line, {100, 80}, {100, 90});
    line.m_bSparePoint = 1;
    line.m_ptLast = QPointF(7, 8);
    EXPECT_EDGES(feed(line, PT_DOWN, 300, 250), 40, 30, 260, 200);
    EXPECT_EQ(line.m_bFinished, 1);
    EXPECT_EQ(line.m_bHideHotShape, 1);
    EXPECT_EQ(line.m_modifyType, 1);
    EXPECT_EQ(line.m_bEditMode, 1);
    EXPECT_EQ(line.IsSparePoint(), 0);
    EXPECT_POINT(line.m_ptLast, 7.0, 8.0);
    EXPECT_POINT(line.m_graphData[0], 100.0, 90.0);

    QRect update;
    line.AddPoint(PT_UP, QPoint(300, 250), update);
    EXPECT_NULL_RECT(update);
}

TEST(CInkLine, stretchMovesTheEndpointThatTheModifyTypeNames)
{
    for (int type = 1; type <= 11; ++type) {
        SCOPED_TRACE(type);
        EditedLine line;
        line.m_modifyType = type;
        line.StretchGraph(QPoint(30, 40));
        EXPECT_POINT(line.m_graphData[0], type == 2 ? 30.0 : 100.0, type == 2 ? 40.0 : 80.0);
        EXPECT_POINT(line.m_graphData[1], type == 9 ? 30.0 : 200.0, type == 9 ? 40.0 : 140.0);
    }
}

TEST(CInkLine, modifyStretchesByTheStoredTypeNotTheGivenOne)
{
    EditedLine line;
    line.m_modifyType = 9;
    line.ModifyGraph(QPoint(30, 40), MT_LEFT_TOP);
    EXPECT_POINT(line.m_graphData[0], 100.0, 80.0);
    EXPECT_POINT(line.m_graphData[1], 30.0, 40.0);

    line.m_modifyType = 2;
    line.ModifyGraph(QPoint(50, 60), MT_ROTATE);
    EXPECT_POINT(line.m_graphData[0], 50.0, 60.0);
    EXPECT_EQ(line.GetRotateAngle(), 0.0f);

    line.ModifyGraph(QPoint(1, 2), MT_NONE);
    EXPECT_POINT(line.m_graphData[0], 50.0, 60.0);
    EXPECT_POINT(line.m_graphData[1], 30.0, 40.0);
}

TEST(CInkLine, draggedEndpointPassesThroughSinglePrecision)
{
    EditedLine line;
    line.m_modifyType = 2;
    line.StretchGraph(QPoint(16'777'217, -16'777'217));
    EXPECT_POINT(line.m_graphData[0], 16'777'216.0, -16'777'216.0);
}

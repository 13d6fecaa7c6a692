// Moving and turning, and which operation answers for which part of a drag.

#include "Exact.h"
#include "PlainGraph.h"

#include <string>
#include <vector>

namespace {

// Framed by (100,100)-(200,150).
class FramedGraph : public PlainGraph
{
public:
    FramedGraph()
        : PlainGraph{{100, 100}, {200, 150}}
    {
        SetHotData(0, 0);
    }
};

// Notes on the calls that reach its slots, with their arguments.
class LoggingGraph : public FramedGraph
{
public:
    ModifyType DecideModiFyType(QPoint pt) override
    {
        note("decide", {pt});
        return MT_BOTTOM;
    }
    void StretchGraph(QPoint pt) override { note("stretch", {pt}); }
    void MoveGraph(float dx, float dy) override
    {
        note("move by", {QPointF(double(dx), double(dy))});
        if (m_moveByIsReal)
            CInkGraph::MoveGraph(dx, dy);
    }
    void MoveGraph(QPoint to, QPoint from) override
    {
        note("move to", {to, from});
        m_lastWhenMoved = m_ptLast;
        m_frameWhenMoved = m_rcHot;
        if (m_moveToIsReal)
            CInkGraph::MoveGraph(to, from);
    }
    float CalcRotateAngle(QPoint pt, QPointF center) override
    {
        note("turn", {pt, center});
        return 12.5f;
    }

    std::vector<std::string> m_calls;
    bool m_moveByIsReal = false;
    bool m_moveToIsReal = false;
    QPointF m_lastWhenMoved;
    QRect m_frameWhenMoved;

private:
    void note(std::string call, std::initializer_list<QPointF> arguments)
    {
        for (const QPointF &argument : arguments)
            call += QStringLiteral(" (%1,%2)").arg(argument.x()).arg(argument.y()).toStdString();
        m_calls.push_back(call);
    }
};

using Calls = std::vector<std::string>;

} // namespace

TEST(CInkGraphModify, hoveringAsksTheSlotOnlyWhileEditing)
{
    LoggingGraph graph;
    EXPECT_EQ(graph.AroundHotPts({3, 4}), MT_NONE);
    EXPECT_EQ(graph.m_calls, Calls());
    graph.m_bEditMode = 1;
    EXPECT_EQ(graph.AroundHotPts({3, 4}), MT_BOTTOM);
    EXPECT_EQ(graph.m_calls, Calls{"decide (3,4)"});
}

TEST(CInkGraphModify, moveGoesThroughThePointSlot)
{
    LoggingGraph graph;
    graph.m_ptLast = {10.9, -3.9};
    graph.ModifyGraph({15, 12}, MT_MOVE);
    EXPECT_EQ(graph.m_calls, Calls{"move to (15,12) (10,-3)"});
    EXPECT_POINT(graph.m_lastWhenMoved, 10.9, -3.9);
    EXPECT_EDGES(graph.m_frameWhenMoved, 100, 100, 200, 150);
    EXPECT_POINT(graph.m_ptLast, 15, 12);
    EXPECT_EDGES(graph.m_rcHot, 105, 115, 205, 165);
    EXPECT_POINT(graph.m_graphData[0], 100, 100);
}

TEST(CInkGraphModify, pointMoveGoesThroughTheStepSlot)
{
    LoggingGraph graph;
    graph.m_moveToIsReal = true;
    graph.MoveGraph(QPoint(15, 12), QPoint(10, -3));
    EXPECT_EQ(graph.m_calls, (Calls{"move to (15,12) (10,-3)", "move by (5,15)"}));
    EXPECT_POINT(graph.m_graphData[0], 100, 100);
}

TEST(CInkGraphModify, turnGoesThroughTheSlot)
{
    LoggingGraph graph;
    graph.ModifyGraph({15, 12}, MT_ROTATE);
    EXPECT_EQ(graph.m_calls, Calls{"turn (15,12) (150,125)"});
    EXPECT_EQ(graph.m_fRotateAngle, 12.5f);
}

TEST(CInkGraphModify, handlesGoThroughTheStretchSlot)
{
    for (int type = MT_LEFT_TOP; type <= MT_RIGHT_BOTTOM; ++type) {
        LoggingGraph graph;
        graph.ModifyGraph({15, 12}, ModifyType(type));
        EXPECT_EQ(graph.m_calls, Calls{"stretch (15,12)"}) << type;
        EXPECT_EQ(graph.m_modifyType, MT_NONE) << "the given type is not stored";
    }
}

TEST(CInkGraphModify, noneDoesNothing)
{
    LoggingGraph graph;
    graph.m_modifyType = MT_MOVE;
    graph.m_ptLast = {1, 2};
    graph.ModifyGraph({15, 12}, MT_NONE);
    EXPECT_EQ(graph.m_calls, Calls());
    EXPECT_POINT(graph.m_ptLast, 1, 2);
    EXPECT_EQ(graph.m_fRotateAngle, 0.0f);
    EXPECT_EDGES(graph.m_rcHot, 100, 100, 200, 150);
}

TEST(CInkGraphModify, settlingMovesThroughTheStepSlot)
{
    LoggingGraph graph;
    graph.m_fRotateAngle = 90;
    graph.m_rcHot = QRect(QPoint(100, 100), QPoint(300, 200));
    graph.AdjustGraph(0);
    EXPECT_EQ(graph.m_calls, Calls{"move by (-25,-75)"});
    EXPECT_POINT(graph.m_graphData[0], 100, 100);
    EXPECT_EDGES(graph.m_rcHot, 75, 25, 275, 125);
}

TEST(CInkGraphModify, moveDragShiftsPointsAndHandlesTogether)
{
    FramedGraph graph;
    graph.m_ptLast = {10, 10};
    graph.ModifyGraph({15, 12}, MT_MOVE);
    EXPECT_POINT(graph.m_graphData[0], 105, 102);
    EXPECT_POINT(graph.m_graphData[1], 205, 152);
    EXPECT_EDGES(graph.m_rcHot, 105, 102, 205, 152);
    EXPECT_POINT(graph.m_ptCenter, 155, 127);
    expectHandles(
        graph,
        {{155, 102}, {155, 152}, {105, 127}, {205, 127}, {105, 102}, {105, 152}, {205, 102}, {205, 152}, {155, 72}});
    EXPECT_POINT(graph.m_ptLast, 15, 12);

    graph.ModifyGraph({14, 12}, MT_MOVE);
    graph.ModifyGraph({14, -20}, MT_MOVE);
    EXPECT_POINT(graph.m_graphData[0], 104, 70);
    EXPECT_EDGES(graph.m_rcHot, 104, 70, 204, 120);
    EXPECT_POINT(graph.m_ptLast, 14, -20);
}

TEST(CInkGraphModify, moveOfATurnedObjectIsNotTurned)
{
    FramedGraph graph;
    graph.m_fRotateAngle = 90;
    graph.m_ptLast = {10, 10};
    graph.ModifyGraph({30, 15}, MT_MOVE);
    EXPECT_POINT(graph.m_graphData[0], 120, 105);
    EXPECT_EDGES(graph.m_rcHot, 120, 105, 220, 155);
    EXPECT_EQ(graph.m_fRotateAngle, 90.0f);
}

TEST(CInkGraphModify, stepKeepsTheFractionOfAPoint)
{
    PlainGraph graph{{0.25, -0.75}, {1e9, 0.5}};
    graph.MoveGraph(2.5f, -1.5f);
    EXPECT_POINT(graph.m_graphData[0], 2.75, -2.25);
    EXPECT_POINT(graph.m_graphData[1], 1000000002.5, -1);
}

TEST(CInkGraphModify, stepIsWidenedFromSinglePrecision)
{
    PlainGraph graph{{1, 1}};
    graph.MoveGraph(0.1f, 0.7f);
    EXPECT_POINT(graph.m_graphData[0], 1.1000000014901161, 1.6999999880790710);
}

TEST(CInkGraphModify, stepLeavesFrameAndHandles)
{
    FramedGraph graph;
    graph.m_ptLast = {1, 2};
    graph.MoveGraph(7, 8);
    EXPECT_EDGES(graph.m_rcHot, 100, 100, 200, 150);
    EXPECT_POINT(graph.m_ptCenter, 150, 125);
    EXPECT_POINT(graph.m_hotPts[4], 100, 100);
    EXPECT_POINT(graph.m_ptLast, 1, 2);
}

TEST(CInkGraphModify, pointMoveConvertsBeforeItSubtracts)
{
    PlainGraph graph{{0, 0}};
    graph.MoveGraph(QPoint(16777217, 16777219), QPoint(16777216, 16777217));
    EXPECT_POINT(graph.m_graphData[0], 0, 4);
}

TEST(CInkGraphModify, pointsSharedWithTheHostAreNotMoved)
{
    PlainGraph graph{{1, 2}, {3, 4}};
    const QVector<QPointF> shared = graph.m_graphData;
    graph.MoveGraph(10, 10);
    EXPECT_POINT(shared[0], 1, 2);
    EXPECT_POINT(shared[1], 3, 4);
}

TEST(CInkGraphModify, objectWithoutPointsIsMovedByItsFrame)
{
    FramedGraph graph;
    graph.m_graphData.clear();
    graph.m_ptLast = {10, 10};
    graph.ModifyGraph({15, 12}, MT_MOVE);
    EXPECT_TRUE(graph.m_graphData.isEmpty());
    EXPECT_EDGES(graph.m_rcHot, 105, 102, 205, 152);
}

TEST(CInkGraphModify, turnDragChangesTheAngleOnly)
{
    FramedGraph graph;
    graph.m_ptLast = {1, 2};
    graph.ModifyGraph({160, 115}, MT_ROTATE);
    EXPECT_EQ(graph.m_fRotateAngle, 45.0f);
    EXPECT_EQ(graph.GetRotateAngle(), 45.0f);
    graph.ModifyGraph({140, 125}, MT_ROTATE);
    EXPECT_EQ(graph.m_fRotateAngle, 270.0f) << "the new bearing, not added to the old angle";
    EXPECT_POINT(graph.m_graphData[0], 100, 100);
    EXPECT_EDGES(graph.m_rcHot, 100, 100, 200, 150);
    EXPECT_POINT(graph.m_hotPts[8], 150, 70);
    EXPECT_POINT(graph.m_ptLast, 1, 2);
}

TEST(CInkGraphModify, bearingsOfTheEightDirections)
{
    PlainGraph graph;
    const QPointF center(100, 200);
    EXPECT_EQ(graph.CalcRotateAngle({100, 190}, center), 0.0f);
    EXPECT_EQ(graph.CalcRotateAngle({110, 190}, center), 45.0f);
    EXPECT_EQ(graph.CalcRotateAngle({110, 200}, center), 90.0f);
    EXPECT_EQ(graph.CalcRotateAngle({110, 210}, center), 135.0f);
    EXPECT_EQ(graph.CalcRotateAngle({100, 210}, center), 180.0f);
    EXPECT_EQ(graph.CalcRotateAngle({90, 210}, center), 225.0f);
    EXPECT_EQ(graph.CalcRotateAngle({90, 200}, center), 270.0f);
    EXPECT_EQ(graph.CalcRotateAngle({90, 190}, center), 315.0f);
    EXPECT_EQ(graph.CalcRotateAngle({100, 200}, center), 270.0f) << "on the centre";
}

TEST(CInkGraphModify, bearingIsTruncatedToWholeDegreesInEveryQuadrant)
{
    // atan(3 / 17) is 10.008 degrees, atan(176 / 1000) 9.982.
    PlainGraph graph;
    EXPECT_EQ(graph.CalcRotateAngle({3, -17}, {}), 10.0f);
    EXPECT_EQ(graph.CalcRotateAngle({176, -1000}, {}), 9.0f);
    EXPECT_EQ(graph.CalcRotateAngle({17, 3}, {}), 100.0f);
    EXPECT_EQ(graph.CalcRotateAngle({1000, 176}, {}), 99.0f);
    EXPECT_EQ(graph.CalcRotateAngle({-3, 17}, {}), 190.0f);
    EXPECT_EQ(graph.CalcRotateAngle({-176, 1000}, {}), 189.0f);
    EXPECT_EQ(graph.CalcRotateAngle({-17, -3}, {}), 280.0f);
    EXPECT_EQ(graph.CalcRotateAngle({-1000, -176}, {}), 279.0f);
}

TEST(CInkGraphModify, bearingsCloseToTheAxes)
{
    PlainGraph graph;
    EXPECT_EQ(graph.CalcRotateAngle({1, -1000}, {}), 0.0f);
    EXPECT_EQ(graph.CalcRotateAngle({1000, -1}, {}), 89.0f);
    EXPECT_EQ(graph.CalcRotateAngle({1000, 1}, {}), 90.0f);
    EXPECT_EQ(graph.CalcRotateAngle({1, 1000}, {}), 179.0f);
    EXPECT_EQ(graph.CalcRotateAngle({-1, 1000}, {}), 180.0f);
    EXPECT_EQ(graph.CalcRotateAngle({-1000, 1}, {}), 269.0f);
    EXPECT_EQ(graph.CalcRotateAngle({-1000, -1}, {}), 270.0f);
    EXPECT_EQ(graph.CalcRotateAngle({-1, -1000}, {}), 359.0f);
}

TEST(CInkGraphModify, bearingReachesThreeHundredAndSixtyFarOut)
{
    // A right angle is 90.000007 degrees here, so the last degree ends before the axis.
    PlainGraph graph;
    EXPECT_EQ(graph.CalcRotateAngle({-1, -8200000}, {}), 360.0f);
    EXPECT_EQ(graph.CalcRotateAngle({-1, -8000000}, {}), 359.0f);
    EXPECT_EQ(graph.CalcRotateAngle({1, 8200000}, {}), 180.0f);
    EXPECT_EQ(graph.CalcRotateAngle({1, 8000000}, {}), 179.0f);
}

TEST(CInkGraphModify, bearingAroundAFractionalCenter)
{
    PlainGraph graph;
    EXPECT_EQ(graph.CalcRotateAngle({3, -17}, {0.5, 0.5}), 8.0f) << "2.5 right and 17.5 up: 8.13 degrees";
    EXPECT_EQ(graph.CalcRotateAngle({0, 0}, {0.5, 0.5}), 315.0f);
    EXPECT_EQ(graph.CalcRotateAngle({-3, 0}, {-3.25, 0}), 90.0f);
}

TEST(CInkGraphModify, bearingTakesItsOwnDegreesPerRadian)
{
    // 89.000005 degrees where a radian has 57.295784 of them, 88.999998 where it has 180 / pi.
    PlainGraph graph;
    EXPECT_EQ(graph.CalcRotateAngle({69, 3953}, {}), 179.0f);
}

TEST(CInkGraphModify, bearingDividesInSinglePrecision)
{
    // 83.9999999 degrees; a double-precision quotient gives 84.0000001.
    PlainGraph graph;
    EXPECT_EQ(graph.CalcRotateAngle({418, 3977}, {}), 173.0f);
}

TEST(CInkGraphModify, bearingMultipliesInDoublePrecision)
{
    // 86.999998 and 88.999998 degrees; single-precision products round both up.
    PlainGraph graph;
    EXPECT_EQ(graph.CalcRotateAngle({37, 706}, {}), 176.0f);
    EXPECT_EQ(graph.CalcRotateAngle({38, 2177}, {}), 178.0f);
}

TEST(CInkGraphModify, bearingSubtractsInDoublePrecision)
{
    PlainGraph graph;
    EXPECT_EQ(graph.CalcRotateAngle({16777217, 0}, {16777216, 1}), 45.0f);
    EXPECT_EQ(graph.CalcRotateAngle({16777219, 1}, {16777220, 0}), 225.0f);
}

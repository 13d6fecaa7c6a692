// Where the handles lie and what a pointer hits.

#include "Exact.h"
#include "PlainGraph.h"

namespace {

constexpr ModifyType kUntouched = ModifyType(99);

// Framed by (100,100)-(200,150): 100 wide and 50 high from edge to edge, centre (150,125).
class FramedGraph : public PlainGraph
{
public:
    FramedGraph()
        : PlainGraph{{100, 100}, {200, 150}}
    {
        SetHotData(0, 0);
        m_modifyType = kUntouched;
        m_ptLast = {-1, -2};
    }
};

// All nine handles far away from the canvas, for the tests of the frame alone.
void hideHandles(CInkGraph &graph)
{
    for (QPointF &handle : graph.m_hotPts)
        handle = {-5000, -5000};
}

} // namespace

TEST(CInkGraphHotData, handlesStandAroundTheWidenedPoints)
{
    PlainGraph graph{{10, 20}, {110, 70}};
    graph.SetHotData(10, 10);
    EXPECT_EDGES(graph.m_rcHot, 0, 10, 120, 80);
    EXPECT_POINT(graph.m_ptCenter, 60, 45);
    expectHandles(graph, {{60, 10}, {60, 80}, {0, 45}, {120, 45}, {0, 10}, {0, 80}, {120, 10}, {120, 80}, {60, -20}});
}

TEST(CInkGraphHotData, marginsOfBothAxesAreIndependent)
{
    PlainGraph graph{{10, 20}, {110, 70}};
    graph.SetHotData(32, 5);
    EXPECT_EDGES(graph.m_rcHot, -22, 15, 142, 75);
    graph.SetHotData(0, 40);
    EXPECT_EDGES(graph.m_rcHot, 10, -20, 110, 110);
}

TEST(CInkGraphHotData, evenNumberOfPixelsHasItsCenterBetweenTwo)
{
    PlainGraph graph{{0, 0}, {99, 49}};
    graph.SetHotData(0, 0);
    EXPECT_POINT(graph.m_ptCenter, 49.5, 24.5);
    expectHandles(graph,
                  {{49.5, 0}, {49.5, 49}, {0, 24.5}, {99, 24.5}, {0, 0}, {0, 49}, {99, 0}, {99, 49}, {49.5, -30}});
}

TEST(CInkGraphHotData, negativeFrameKeepsItsHalfPixels)
{
    PlainGraph graph{{-99, -50}, {-20, -7}};
    graph.SetHotData(0, 0);
    EXPECT_POINT(graph.m_ptCenter, -59.5, -28.5);
    EXPECT_POINT(graph.m_hotPts[8], -59.5, -80);
}

TEST(CInkGraphHotData, boundsTakeEveryPointTruncatedTowardZero)
{
    PlainGraph graph{{5.9, 5.9}, {-3.9, 12.99}, {8.999, -0.9}, {7, 7}};
    graph.SetHotData(0, 0);
    EXPECT_EDGES(graph.m_rcHot, -3, 0, 8, 12);
    EXPECT_POINT(graph.m_ptCenter, 2.5, 6);
}

TEST(CInkGraphHotData, firstPointMayBeTheFarthest)
{
    PlainGraph graph{{50, 60}, {40, 20}, {45, 30}};
    graph.SetHotData(0, 0);
    EXPECT_EDGES(graph.m_rcHot, 40, 20, 50, 60);
}

TEST(CInkGraphHotData, singlePointWithoutMarginsIsAFrameOfOnePixel)
{
    PlainGraph graph{{40, 70}};
    graph.SetHotData(0, 0);
    EXPECT_EDGES(graph.m_rcHot, 40, 70, 40, 70);
    expectHandles(graph, {{40, 70}, {40, 70}, {40, 70}, {40, 70}, {40, 70}, {40, 70}, {40, 70}, {40, 70}, {40, 40}});
    EXPECT_EQ(graph.DecideModiFyType({40, 70}), MT_LEFT_TOP);
    EXPECT_EQ(graph.DecideModiFyType({40, 40}), MT_ROTATE);
}

TEST(CInkGraphHotData, negativeMarginsMayTurnTheFrameInsideOut)
{
    PlainGraph graph{{10, 10}};
    graph.SetHotData(-3, -2);
    EXPECT_EDGES(graph.m_rcHot, 13, 12, 7, 8);
    EXPECT_POINT(graph.m_ptCenter, 10, 10);
    EXPECT_POINT(graph.m_hotPts[4], 13, 12);
    EXPECT_POINT(graph.m_hotPts[7], 7, 8);
    EXPECT_POINT(graph.m_hotPts[8], 10, -18);
}

TEST(CInkGraphHotData, withoutPointsTheFrameStays)
{
    FramedGraph graph;
    graph.m_graphData.clear();
    graph.SetHotData(10, 10);
    EXPECT_EDGES(graph.m_rcHot, 100, 100, 200, 150);
    EXPECT_POINT(graph.m_ptCenter, 150, 125);
    EXPECT_POINT(graph.m_hotPts[8], 150, 70);
}

TEST(CInkGraphHotData, frameKeepsPixelsThatHandlesCannotHold)
{
    // 2^24 + 1 and 2^24 + 3 have no single-precision value.
    PlainGraph graph{{16777217, 0}, {16777219, 10}};
    graph.SetHotData(0, 0);
    EXPECT_EDGES(graph.m_rcHot, 16777217, 0, 16777219, 10);
    EXPECT_POINT(graph.m_hotPts[4], 16777216, 0);
    EXPECT_POINT(graph.m_hotPts[7], 16777220, 10);
    EXPECT_POINT(graph.m_ptCenter, 16777218, 5);
}

TEST(CInkGraphHotData, layingOutTouchesNeitherAngleNorPoints)
{
    FramedGraph graph;
    graph.m_fRotateAngle = 30;
    graph.SetHotData(10, 10);
    graph.ResetHotData({0, 0, 10, 10});
    EXPECT_EQ(graph.m_fRotateAngle, 30.0f);
    EXPECT_POINT(graph.m_graphData[1], 200, 150);
    EXPECT_POINT(graph.m_ptLast, -1, -2);
}

TEST(CInkGraphHotData, resetGivesTheBottomToTheXOfTheBottomLeftHandle)
{
    FramedGraph graph;
    graph.m_hotPts[5] = {-77, 123.25};
    graph.ResetHotData(QRect(0, 0, 100, 50));
    EXPECT_EDGES(graph.m_rcHot, 0, 0, 99, 49);
    EXPECT_POINT(graph.m_ptCenter, 49.5, 24.5);
    expectHandles(graph,
                  {{49.5, 0}, {49.5, 49}, {0, 24.5}, {99, 24.5}, {0, 0}, {49, 123.25}, {99, 0}, {99, 49}, {49.5, -30}});
}

TEST(CInkGraphHotData, resetNeedsNoPointsAndKeepsTheBoxAsGiven)
{
    PlainGraph graph;
    QRect insideOut;
    insideOut.setCoords(30, 40, 10, 20);
    graph.ResetHotData(insideOut);
    EXPECT_EDGES(graph.m_rcHot, 30, 40, 10, 20);
    EXPECT_POINT(graph.m_ptCenter, 20, 30);
    EXPECT_POINT(graph.m_hotPts[4], 30, 40);
    EXPECT_POINT(graph.m_hotPts[5], 20, 0);
}

TEST(CInkGraphHotData, movingShiftsFrameHandlesAndCenter)
{
    FramedGraph graph;
    graph.MoveHotData(5, -3);
    EXPECT_EDGES(graph.m_rcHot, 105, 97, 205, 147);
    EXPECT_POINT(graph.m_ptCenter, 155, 122);
    expectHandles(
        graph,
        {{155, 97}, {155, 147}, {105, 122}, {205, 122}, {105, 97}, {105, 147}, {205, 97}, {205, 147}, {155, 67}});
}

TEST(CInkGraphHotData, movingTouchesNeitherPointsNorTheLastPointer)
{
    FramedGraph graph;
    graph.MoveHotData(5, -3);
    EXPECT_POINT(graph.m_ptLast, -1, -2);
    EXPECT_POINT(graph.m_graphData[0], 100, 100);
    EXPECT_POINT(graph.m_graphData[1], 200, 150);
}

TEST(CInkGraphHotData, movingByAFractionTruncatesForTheFrameOnly)
{
    FramedGraph graph;
    graph.MoveHotData(2.75f, -2.75f);
    EXPECT_EDGES(graph.m_rcHot, 102, 98, 202, 148);
    EXPECT_POINT(graph.m_ptCenter, 152.75, 122.25);
    EXPECT_POINT(graph.m_hotPts[4], 102.75, 97.25);

    graph.MoveHotData(0.75f, -0.75f);
    EXPECT_EDGES(graph.m_rcHot, 102, 98, 202, 148);
    EXPECT_POINT(graph.m_hotPts[8], 153.5, 66.5);
}

TEST(CInkGraphHotData, movingWidensTheStepFromSinglePrecision)
{
    PlainGraph graph;
    graph.MoveHotData(0.1f, 0.3f);
    EXPECT_POINT(graph.m_ptCenter, 0.10000000149011612, 0.30000001192092896);
    EXPECT_POINT(graph.m_hotPts[0], 0.10000000149011612, 0.30000001192092896);
    EXPECT_POINT(graph.m_hotPts[8], 0.10000000149011612, 0.30000001192092896);
}

TEST(CInkGraphHotData, everyHandleReportsItsType)
{
    FramedGraph graph;
    EXPECT_EQ(graph.DecideModiFyType({100, 100}), MT_LEFT_TOP);
    EXPECT_EQ(graph.DecideModiFyType({150, 100}), MT_TOP);
    EXPECT_EQ(graph.DecideModiFyType({200, 100}), MT_RIGHT_TOP);
    EXPECT_EQ(graph.DecideModiFyType({100, 125}), MT_LEFT);
    EXPECT_EQ(graph.DecideModiFyType({200, 125}), MT_RIGHT);
    EXPECT_EQ(graph.DecideModiFyType({100, 150}), MT_LEFT_BOTTOM);
    EXPECT_EQ(graph.DecideModiFyType({150, 150}), MT_BOTTOM);
    EXPECT_EQ(graph.DecideModiFyType({200, 150}), MT_RIGHT_BOTTOM);
    EXPECT_EQ(graph.DecideModiFyType({150, 70}), MT_ROTATE);
    EXPECT_POINT(graph.m_ptLast, -1, -2);
    EXPECT_EQ(graph.m_modifyType, kUntouched);
}

TEST(CInkGraphHotData, typesHaveTheirPublishedValues)
{
    EXPECT_EQ(int(MT_NONE), 1);
    EXPECT_EQ(int(MT_LEFT_TOP), 2);
    EXPECT_EQ(int(MT_TOP), 3);
    EXPECT_EQ(int(MT_RIGHT_TOP), 4);
    EXPECT_EQ(int(MT_LEFT), 5);
    EXPECT_EQ(int(MT_RIGHT), 6);
    EXPECT_EQ(int(MT_LEFT_BOTTOM), 7);
    EXPECT_EQ(int(MT_BOTTOM), 8);
    EXPECT_EQ(int(MT_RIGHT_BOTTOM), 9);
    EXPECT_EQ(int(MT_MOVE), 10);
    EXPECT_EQ(int(MT_ROTATE), 11);
}

TEST(CInkGraphHotData, handlesThatCoincideAreTriedInOrder)
{
    constexpr struct
    {
        int handle;
        ModifyType type;
    } order[] = {{4, MT_LEFT_TOP},    {0, MT_TOP},    {6, MT_RIGHT_TOP},    {2, MT_LEFT},  {3, MT_RIGHT},
                 {5, MT_LEFT_BOTTOM}, {1, MT_BOTTOM}, {7, MT_RIGHT_BOTTOM}, {8, MT_ROTATE}};

    FramedGraph graph;
    for (QPointF &handle : graph.m_hotPts)
        handle = {300, 300};
    for (const auto &next : order) {
        EXPECT_EQ(graph.DecideModiFyType({300, 300}), next.type);
        EXPECT_TRUE(graph.IsPtInModifyZone({300, 300}));
        graph.m_hotPts[next.handle] = {-5000, -5000};
    }
    EXPECT_EQ(graph.DecideModiFyType({300, 300}), MT_NONE);
    EXPECT_FALSE(graph.IsPtInModifyZone({300, 300}));
}

TEST(CInkGraphHotData, firstHandleInReachWinsOverANearerOne)
{
    PlainGraph graph{{0, 0}, {15, 15}};
    graph.SetHotData(0, 0);
    EXPECT_EQ(graph.DecideModiFyType({7, 7}), MT_LEFT_TOP) << "nearer to the top";
    EXPECT_EQ(graph.DecideModiFyType({15, 0}), MT_TOP) << "exactly on the top right handle";
}

TEST(CInkGraphHotData, handleTenPixelsAwayIsStillHit)
{
    FramedGraph graph;
    EXPECT_EQ(graph.DecideModiFyType({140, 70}), MT_ROTATE);
    EXPECT_EQ(graph.DecideModiFyType({156, 62}), MT_ROTATE) << "6 right and 8 up";
    EXPECT_EQ(graph.DecideModiFyType({139, 70}), MT_NONE);
    EXPECT_EQ(graph.DecideModiFyType({157, 62}), MT_NONE);
    EXPECT_EQ(graph.DecideModiFyType({90, 100}), MT_LEFT_TOP);
    EXPECT_EQ(graph.DecideModiFyType({89, 100}), MT_NONE);
    EXPECT_EQ(graph.DecideModiFyType({208, 156}), MT_RIGHT_BOTTOM);
    EXPECT_EQ(graph.DecideModiFyType({208, 157}), MT_NONE);
    EXPECT_TRUE(graph.IsPtInModifyZone({140, 70}));
    EXPECT_FALSE(graph.IsPtInModifyZone({139, 70}));
    EXPECT_TRUE(graph.IsPtInModifyZone({208, 156}));
    EXPECT_FALSE(graph.IsPtInModifyZone({208, 157}));
}

TEST(CInkGraphHotData, pressTenAndAHalfPixelsFromTheKnobInsideTheFrameMoves)
{
    PlainGraph graph{{0, 0}, {99, 99}};
    graph.SetHotData(0, 0);
    graph.m_hotPts[8] = {49.5, 50};
    EXPECT_EQ(graph.DecideModiFyType({59, 50}), MT_ROTATE);
    EXPECT_POINT(graph.m_ptLast, 0, 0);
    EXPECT_EQ(graph.DecideModiFyType({60, 50}), MT_MOVE);
    EXPECT_POINT(graph.m_ptLast, 60, 50);
}

TEST(CInkGraphHotData, reachIsComparedInSinglePrecision)
{
    FramedGraph graph;
    hideHandles(graph);
    graph.m_hotPts[8] = {310.0000001, 300}; // narrows to 10.0
    EXPECT_EQ(graph.DecideModiFyType({300, 300}), MT_ROTATE);
    graph.m_hotPts[8] = {300.05, 309.9998752}; // 10.0000002 away
    EXPECT_EQ(graph.DecideModiFyType({300, 300}), MT_ROTATE);
    graph.m_hotPts[8] = {310.000001, 300}; // the next value above 10.0
    EXPECT_EQ(graph.DecideModiFyType({300, 300}), MT_NONE);
}

TEST(CInkGraphHotData, insideTheFrameMovesAndKeepsThePointer)
{
    FramedGraph graph;
    EXPECT_EQ(graph.DecideModiFyType({130, 126}), MT_MOVE);
    EXPECT_POINT(graph.m_ptLast, 130, 126);
    EXPECT_EQ(graph.m_modifyType, kUntouched);
}

TEST(CInkGraphHotData, frameIncludesItsEdges)
{
    FramedGraph graph;
    hideHandles(graph);
    EXPECT_EQ(graph.DecideModiFyType({200, 137}), MT_MOVE);
    EXPECT_EQ(graph.DecideModiFyType({201, 137}), MT_NONE);
    EXPECT_EQ(graph.DecideModiFyType({100, 137}), MT_MOVE);
    EXPECT_EQ(graph.DecideModiFyType({99, 137}), MT_NONE);
    EXPECT_EQ(graph.DecideModiFyType({130, 100}), MT_MOVE);
    EXPECT_EQ(graph.DecideModiFyType({130, 99}), MT_NONE);
    EXPECT_EQ(graph.DecideModiFyType({130, 150}), MT_MOVE);
    EXPECT_POINT(graph.m_ptLast, 130, 150);
    EXPECT_EQ(graph.DecideModiFyType({130, 151}), MT_NONE);
    EXPECT_POINT(graph.m_ptLast, 130, 150);
}

TEST(CInkGraphHotData, zoneIncludesTheFrameWithItsEdges)
{
    FramedGraph graph;
    EXPECT_TRUE(graph.IsPtInModifyZone({150, 125}));
    EXPECT_TRUE(graph.IsPtInModifyZone({200, 138}));
    EXPECT_TRUE(graph.IsPtInModifyZone({150, 70})) << "the knob lies outside the frame";
    EXPECT_FALSE(graph.IsPtInModifyZone({150, 85}));

    hideHandles(graph);
    EXPECT_TRUE(graph.IsPtInModifyZone({200, 138}));
    EXPECT_FALSE(graph.IsPtInModifyZone({201, 138}));
    EXPECT_TRUE(graph.IsPtInModifyZone({100, 150}));
    EXPECT_FALSE(graph.IsPtInModifyZone({100, 151}));
    EXPECT_FALSE(graph.IsPtInModifyZone({99, 100}));
    EXPECT_FALSE(graph.IsPtInModifyZone({100, 99}));
    EXPECT_POINT(graph.m_ptLast, -1, -2);
    EXPECT_EQ(graph.m_modifyType, kUntouched);
}

TEST(CInkGraphHotData, freshObjectIsHitOnlyAroundTheOrigin)
{
    PlainGraph graph;
    EXPECT_EQ(graph.DecideModiFyType({0, 10}), MT_LEFT_TOP);
    EXPECT_EQ(graph.DecideModiFyType({0, 11}), MT_NONE);
    EXPECT_TRUE(graph.IsPtInModifyZone({-6, -8}));
    EXPECT_FALSE(graph.IsPtInModifyZone({-6, -9}));
}

TEST(CInkGraphHotData, pointerIsTurnedBackIntoTheFrameOfATurnedObject)
{
    // 120 by 40 around (100,100), turned a quarter clockwise: its top is now on the right.
    PlainGraph graph{{40, 80}, {160, 120}};
    graph.SetHotData(0, 0);
    graph.m_fRotateAngle = 90;
    EXPECT_EQ(graph.DecideModiFyType({120, 40}), MT_LEFT_TOP);
    EXPECT_EQ(graph.DecideModiFyType({120, 100}), MT_TOP);
    EXPECT_EQ(graph.DecideModiFyType({120, 160}), MT_RIGHT_TOP);
    EXPECT_EQ(graph.DecideModiFyType({100, 40}), MT_LEFT);
    EXPECT_EQ(graph.DecideModiFyType({100, 160}), MT_RIGHT);
    EXPECT_EQ(graph.DecideModiFyType({80, 40}), MT_LEFT_BOTTOM);
    EXPECT_EQ(graph.DecideModiFyType({80, 100}), MT_BOTTOM);
    EXPECT_EQ(graph.DecideModiFyType({80, 160}), MT_RIGHT_BOTTOM);
    EXPECT_EQ(graph.DecideModiFyType({150, 100}), MT_ROTATE);
    EXPECT_EQ(graph.DecideModiFyType({50, 100}), MT_NONE) << "opposite the knob";
    EXPECT_POINT(graph.m_ptLast, 0, 0);

    EXPECT_EQ(graph.DecideModiFyType({100, 70}), MT_MOVE);
    EXPECT_POINT(graph.m_ptLast, 100, 70);
    EXPECT_TRUE(graph.IsPtInModifyZone({100, 70}));
    EXPECT_FALSE(graph.IsPtInModifyZone({60, 70})) << "inside the frame before it was turned";
}

TEST(CInkGraphHotData, handleTurnedToARealPositionIsHit)
{
    // (40,80) turned by 30 degrees about (100,100) is (58.04, 52.68).
    PlainGraph graph{{40, 80}, {160, 120}};
    graph.SetHotData(0, 0);
    graph.m_fRotateAngle = 30;
    EXPECT_EQ(graph.DecideModiFyType({58, 53}), MT_LEFT_TOP);
    EXPECT_EQ(graph.DecideModiFyType({125, 57}), MT_ROTATE) << "(100,50) turned is (125, 56.70)";
    EXPECT_EQ(graph.DecideModiFyType({75, 57}), MT_NONE) << "the knob's place for a turn the other way";
}

TEST(CInkGraphHotData, turnedPointerIsTruncatedTowardZeroForTheFrame)
{
    // A quarter turn about (49.5, 50) takes the pointer (x, y) to (y - 0.5, 99.5 - x).
    PlainGraph graph{{0, 0}, {99, 100}};
    graph.SetHotData(0, 0);
    graph.m_fRotateAngle = 90;
    hideHandles(graph);
    EXPECT_TRUE(graph.IsPtInModifyZone({50, 0})) << "-0.5 is pixel 0";
    EXPECT_FALSE(graph.IsPtInModifyZone({50, -1}));
    EXPECT_TRUE(graph.IsPtInModifyZone({50, 100})) << "99.5 is pixel 99";
    EXPECT_FALSE(graph.IsPtInModifyZone({50, 101}));
    EXPECT_TRUE(graph.IsPtInModifyZone({100, 50}));
    EXPECT_FALSE(graph.IsPtInModifyZone({101, 50}));
    EXPECT_TRUE(graph.IsPtInModifyZone({-1, 50}));
    EXPECT_FALSE(graph.IsPtInModifyZone({-2, 50}));
    EXPECT_EQ(graph.DecideModiFyType({50, 100}), MT_MOVE);
    EXPECT_EQ(graph.DecideModiFyType({50, 101}), MT_NONE);
    EXPECT_EQ(graph.DecideModiFyType({100, 0}), MT_MOVE);
    EXPECT_POINT(graph.m_ptLast, 100, 0);
}

TEST(CInkGraphHotData, storedPointerIsWidenedThroughSinglePrecision)
{
    PlainGraph graph{{16777000, 16777000}, {16778000, 16778000}};
    graph.SetHotData(0, 0);
    EXPECT_EQ(graph.DecideModiFyType({16777217, 16777219}), MT_MOVE);
    EXPECT_POINT(graph.m_ptLast, 16777216, 16777220);
}

TEST(CInkGraphHotData, hoveringReportsNothingBeforeEditing)
{
    FramedGraph graph;
    EXPECT_EQ(graph.AroundHotPts({100, 100}), MT_NONE);
    EXPECT_EQ(graph.AroundHotPts({130, 126}), MT_NONE);
    EXPECT_POINT(graph.m_ptLast, -1, -2);
}

TEST(CInkGraphHotData, hoveringWhileEditingReportsWhatAPressWouldDo)
{
    FramedGraph graph;
    graph.m_bEditMode = 1;
    EXPECT_EQ(graph.AroundHotPts({100, 100}), MT_LEFT_TOP);
    EXPECT_EQ(graph.AroundHotPts({150, 70}), MT_ROTATE);
    EXPECT_EQ(graph.AroundHotPts({300, 300}), MT_NONE);
    EXPECT_POINT(graph.m_ptLast, -1, -2);
    EXPECT_EQ(graph.AroundHotPts({130, 126}), MT_MOVE);
    EXPECT_POINT(graph.m_ptLast, 130, 126);
    EXPECT_EQ(graph.m_modifyType, kUntouched);

    graph.m_bFinished = 1;
    EXPECT_EQ(graph.AroundHotPts({100, 100}), MT_LEFT_TOP) << "only m_bEditMode counts";
}

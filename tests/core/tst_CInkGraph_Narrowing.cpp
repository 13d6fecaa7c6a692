// Steps that go through single precision although their source and their target are double. An optimiser that
// pairs the two coordinates may skip the detour; every value here then changes in its last digits.

#include "Exact.h"
#include "PlainGraph.h"

TEST(CInkGraphNarrowing, settlingShiftsBySinglePrecision)
{
    // The new centre (200,150) maps to (205.80127018922195, 121.65063509461096). Narrowed, the shift is
    // (5.8012700080871582, -28.349365234375), not (5.8012701892219525, -28.349364905389038).
    PlainGraph graph{{100, 100}, {300, 200}};
    graph.SetHotData(0, 0);
    graph.m_ptCenter = {150, 125};
    graph.m_fRotateAngle = 30;
    graph.AdjustGraph(0);
    EXPECT_POINT(graph.m_graphData[0], 105.80127000808716, 71.650634765625);
    EXPECT_POINT(graph.m_graphData[1], 305.80127000808716, 171.650634765625);
    expectHandles(graph, {{205.80127000808716, 71.650634765625},
                          {205.80127000808716, 171.650634765625},
                          {105.80127000808716, 121.650634765625},
                          {305.80127000808716, 121.650634765625},
                          {105.80127000808716, 71.650634765625},
                          {105.80127000808716, 171.650634765625},
                          {305.80127000808716, 71.650634765625},
                          {305.80127000808716, 171.650634765625},
                          {205.80127000808716, 41.650634765625}});
    EXPECT_EDGES(graph.m_rcHot, 105, 72, 305, 172);
    EXPECT_POINT(graph.m_ptCenter, 205, 122);
}

TEST(CInkGraphNarrowing, settlingShiftsAFrameWithHalfPixelsBySinglePrecision)
{
    // 45 degrees about (149.5,124.5): the shift is (2.1733584403991699, -25.753047943115234) when narrowed,
    // (2.1733585439879448, -25.753048327204951) when not.
    PlainGraph graph{{100, 100}, {259, 180}};
    graph.SetHotData(0, 0);
    graph.m_ptCenter = {149.5, 124.5};
    graph.m_fRotateAngle = 45;
    graph.AdjustGraph(0);
    EXPECT_POINT(graph.m_graphData[0], 102.17335844039917, 74.246952056884766);
    EXPECT_POINT(graph.m_graphData[1], 261.17335844039917, 154.24695205688477);
    EXPECT_POINT(graph.m_hotPts[4], 102.17335844039917, 74.246952056884766);
    EXPECT_POINT(graph.m_hotPts[7], 261.17335844039917, 154.24695205688477);
    EXPECT_POINT(graph.m_hotPts[8], 181.67335844039917, 44.246952056884766);
    EXPECT_EDGES(graph.m_rcHot, 102, 75, 261, 155);
}

TEST(CInkGraphNarrowing, settlingAfterAHalfTurnShiftsByWholePixels)
{
    // The sine of a half turn is not quite 0, so the shift is (-99.999999999999972, -2.8e-14) in double: both
    // axes differ. Narrowed it is -100 across, and the frame moves by 100 pixels, not by 99.
    PlainGraph graph{{100, 100}, {300, 150}};
    graph.SetHotData(0, 0);
    graph.m_ptCenter = {150, 125};
    graph.m_fRotateAngle = 180;
    graph.AdjustGraph(0);
    EXPECT_EDGES(graph.m_rcHot, 0, 100, 200, 150);
    EXPECT_POINT(graph.m_graphData[0], 0, 99.999999999999972);
    EXPECT_POINT(graph.m_graphData[1], 200, 149.99999999999997);
    EXPECT_POINT(graph.m_hotPts[4], 0, 99.999999999999972);
    EXPECT_POINT(graph.m_ptCenter, 100, 125);
}

TEST(CInkGraphNarrowing, moveDragConvertsBothEndsToSinglePrecision)
{
    PlainGraph graph{{16777000, 16777000}};
    graph.SetHotData(0, 0);
    graph.m_ptLast = {16777217, 16777217}; // both 16777216 in single precision
    graph.ModifyGraph({16777219, 16777221}, MT_MOVE);
    EXPECT_POINT(graph.m_graphData[0], 16777004, 16777004);
    EXPECT_EDGES(graph.m_rcHot, 16777004, 16777004, 16777004, 16777004);
    EXPECT_POINT(graph.m_hotPts[0], 16777004, 16777004);
    EXPECT_POINT(graph.m_ptCenter, 16777004, 16777004);
    EXPECT_POINT(graph.m_ptLast, 16777220, 16777220);
}

TEST(CInkGraphNarrowing, handlesAreWidenedFromSinglePrecision)
{
    // Left, top, right and bottom round to 16777216, 16777220, 16777224 and 16777228.
    PlainGraph graph;
    graph.ResetHotData(QRect(QPoint(16777217, 16777219), QPoint(16777225, 16777227)));
    expectHandles(graph, {{16777220, 16777220},
                          {16777220, 16777228},
                          {16777216, 16777224},
                          {16777224, 16777224},
                          {16777216, 16777220},
                          {16777228, 0}, // its x is the bottom
                          {16777224, 16777220},
                          {16777224, 16777228},
                          {16777220, 16777190}});
    EXPECT_POINT(graph.m_ptCenter, 16777220, 16777224);
}

TEST(CInkGraphNarrowing, hitsMapAPointerInSinglePrecision)
{
    PlainGraph graph;
    graph.m_hotPts[8] = {16777206, 16777220};
    EXPECT_EQ(graph.DecideModiFyType({16777217, 16777219}), MT_ROTATE) << "exactly 10 from (16777216, 16777220)";
    EXPECT_TRUE(graph.IsPtInModifyZone({16777217, 16777219}));
}

TEST(CInkGraphNarrowing, distanceNarrowsBothDifferences)
{
    // 0.2236068099 from differences in single precision, 0.2236067951 from differences in double.
    PlainGraph graph;
    EXPECT_EQ(graph.CalcGapOfpoints(QPointF(0.2, 0.1), QPointF(0, 0)), 0x1.c9f25ep-3f);
    EXPECT_EQ(graph.CalcGapOfpoints(QPointF(0.1, 0.2), QPointF(0, 0)), 0x1.c9f25ep-3f);
    EXPECT_EQ(graph.CalcGapOfpoints(QPointF(6.0000001, 8.0000002), QPointF(0, 0)), 10.0f);
}

TEST(CInkGraphNarrowing, bearingNarrowsBothDifferences)
{
    // 73.9999992 degrees from differences in single precision, 74.0000006 from differences in double.
    PlainGraph graph;
    EXPECT_EQ(graph.CalcRotateAngle({735, 2563}, {0.1, 0.1}), 163.0f);
    // Right of the centre by less than single precision can tell from nothing.
    EXPECT_EQ(graph.CalcRotateAngle({0, 0}, {-1e-60, 0}), 270.0f);
}

// The two integer rectangles: around a list of points, and around an object at any angle.

#include "Exact.h"
#include "PlainGraph.h"

namespace {

QRect rectOf(QVector<QPointF> points)
{
    return PlainGraph().GetRect(points);
}

// An unturned object of pen width 1 with this frame.
PlainGraph &framed(PlainGraph &graph, int left, int top, int right, int bottom)
{
    graph.ResetHotData(QRect(QPoint(left, top), QPoint(right, bottom)));
    return graph;
}

} // namespace

TEST(CInkGraphRects, rectOfPointsIsOnePixelShort)
{
    const QRect rect = rectOf({{10, 20}, {110, 70}, {60, 90}});
    EXPECT_EDGES(rect, 10, 20, 109, 89);
    EXPECT_EQ(rect.width(), 100);
    EXPECT_EQ(rect.height(), 70);
}

TEST(CInkGraphRects, rectOfOnePointHasNoExtent)
{
    EXPECT_EDGES(rectOf({{5, -7}}), 5, -7, 4, -8);
    EXPECT_EDGES(rectOf({{5, -7}, {5, -7}}), 5, -7, 4, -8);
    EXPECT_EDGES(rectOf({{5, 0}, {9, 0}}), 5, 0, 8, -1);
}

TEST(CInkGraphRects, rectOfPointsTruncatesTowardZero)
{
    EXPECT_EDGES(rectOf({{-0.9, 0.9}, {0.9, -0.9}}), 0, 0, -1, -1);
    EXPECT_EDGES(rectOf({{-10.9, -20.1}, {-1.1, -0.5}}), -10, -20, -2, -1);
    EXPECT_EDGES(rectOf({{10.9, 20.1}, {30.9, 40.1}}), 10, 20, 29, 39);
    EXPECT_EDGES(rectOf({{5.9, 5.9}, {5.1, 5.1}, {5.5, 5.5}}), 5, 5, 4, 4);
    EXPECT_EDGES(rectOf({{-5.1, -5.1}, {-5.9, -5.9}, {-4.9, -4.9}}), -5, -5, -5, -5);
}

TEST(CInkGraphRects, rectOfPointsDoesNotDependOnTheirOrder)
{
    EXPECT_EDGES(rectOf({{110, 70}, {60, 90}, {10, 20}}), 10, 20, 109, 89);
    EXPECT_EDGES(rectOf({{60, 90}, {10, 20}, {110, 70}}), 10, 20, 109, 89);
}

TEST(CInkGraphRects, rectOfPointsLeavesThemAlone)
{
    PlainGraph graph{{1, 2}};
    QVector<QPointF> points{{7.5, 8.5}, {1.5, 2.5}};
    graph.GetRect(points);
    ASSERT_EQ(points.size(), 2);
    EXPECT_POINT(points[0], 7.5, 8.5);
    EXPECT_POINT(points[1], 1.5, 2.5);
    EXPECT_NULL_RECT(graph.m_rcHot);
}

TEST(CInkGraphRects, squareAroundAHundredPixels)
{
    // Half side 94: half of 108, and 40 for the knob. Centre (49,49).
    PlainGraph graph;
    EXPECT_EDGES(framed(graph, 0, 0, 99, 99).GetRotateUpDateRect(), -55, -55, 152, 152);
}

TEST(CInkGraphRects, squareIsWidenedByThePenFromTenPixelsOn)
{
    PlainGraph graph;
    framed(graph, 0, 0, 99, 99);
    for (const int width : {-30, 0, 9, 10}) {
        graph.m_nWidth = width;
        EXPECT_EDGES(graph.GetRotateUpDateRect(), -55, -55, 152, 152);
    }
    graph.m_nWidth = 11;
    EXPECT_EDGES(graph.GetRotateUpDateRect(), -56, -56, 153, 153);
    graph.m_nWidth = 60;
    EXPECT_EDGES(graph.GetRotateUpDateRect(), -105, -105, 202, 202);
}

TEST(CInkGraphRects, squareFollowsTheDiagonalOrTheKnob)
{
    PlainGraph graph;
    // 153 by 108: half the diagonal is 93.64, the knob needs 94.
    EXPECT_EDGES(framed(graph, 200, 200, 344, 299).GetRotateUpDateRect(), 167, 145, 374, 352);
    // 154 by 108: half the diagonal is 94.05.
    EXPECT_EDGES(framed(graph, 200, 200, 345, 299).GetRotateUpDateRect(), 167, 144, 374, 351);
}

TEST(CInkGraphRects, squareTruncatesItsCornerAndItsSide)
{
    // 308 by 58: half the diagonal is 156.707, the side 313.413; the corner lies at (-7.707, -132.707).
    PlainGraph graph;
    EXPECT_EDGES(framed(graph, 0, 0, 299, 49).GetRotateUpDateRect(), -17, -142, 315, 190);
    // 161 by 108: the side is 193.868, the corner lies at (178.066, 152.066).
    EXPECT_EDGES(framed(graph, 200, 200, 352, 299).GetRotateUpDateRect(), 168, 142, 380, 354);
}

TEST(CInkGraphRects, squareCenterIsDividedTowardZero)
{
    // The corners span (-100,-100)-(-3,-3) after the last pixel is left out: -103 / 2 is -51. Half side 93.5.
    PlainGraph graph;
    EXPECT_EDGES(framed(graph, -100, -100, -2, -2).GetRotateUpDateRect(), -154, -154, 52, 52);
}

TEST(CInkGraphRects, squareOfAFreshObject)
{
    // The null rectangle is 8 by 8 with its margin: half side 44 around (-1,-1).
    PlainGraph graph;
    EXPECT_EDGES(graph.GetRotateUpDateRect(), -55, -55, 52, 52);
}

TEST(CInkGraphRects, squareOfAQuarterTurn)
{
    // 108 by 58, half side 69. The corners turn to (25,-25)-(74,74), so the centre is (49,24).
    PlainGraph graph;
    framed(graph, 0, 0, 99, 49).m_fRotateAngle = 90;
    EXPECT_EDGES(graph.GetRotateUpDateRect(), -30, -55, 127, 102);
}

TEST(CInkGraphRects, squareOfASlantedObject)
{
    // Turned by 30 degrees the corners span -18.118 to 117.118 on both axes: centre (49,49).
    PlainGraph graph;
    framed(graph, 0, 0, 99, 99).m_fRotateAngle = 30;
    EXPECT_EDGES(graph.GetRotateUpDateRect(), -55, -55, 152, 152);
}

TEST(CInkGraphRects, squareTurnsForwardsAboutThePivot)
{
    PlainGraph graph;
    framed(graph, 0, 0, 99, 99).m_ptCenter = {0, 0};
    graph.m_fRotateAngle = 90; // corners to (-99,0)-(0,99): centre (-50,49)
    EXPECT_EDGES(graph.GetRotateUpDateRect(), -154, -55, 53, 152);
    graph.m_fRotateAngle = 180; // corners to (-99,-99)-(0,0): centre (-50,-50)
    EXPECT_EDGES(graph.GetRotateUpDateRect(), -154, -154, 53, 53);
    graph.m_fRotateAngle = 270; // corners to (0,-99)-(99,0): centre (49,-50)
    EXPECT_EDGES(graph.GetRotateUpDateRect(), -55, -154, 152, 53);
}

TEST(CInkGraphRects, squareIsTakenFromTheFrameAndLeavesTheObject)
{
    PlainGraph graph{{1000, 1000}, {2000, 2000}};
    framed(graph, 0, 0, 99, 99);
    EXPECT_EDGES(graph.GetRotateUpDateRect(), -55, -55, 152, 152);
    EXPECT_EDGES(graph.m_rcHot, 0, 0, 99, 99);
    EXPECT_POINT(graph.m_ptCenter, 49.5, 49.5);
    EXPECT_POINT(graph.m_graphData[0], 1000, 1000);
}

// Values that no pointer gives: fields and points are public, so a host may put anything there. What does not fit
// an int stops at its limits.

#include "Canvas.h"
#include "Exact.h"
#include "PlainGraph.h"

#include <climits>
#include <cmath>

namespace {

const double kNan = std::nan("");

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

QRect rectOf(QVector<QPointF> points)
{
    return PlainGraph().GetRect(points);
}

} // namespace

TEST(CInkGraphHostileValues, frameOfEndlessPointsStopsAtTheLimits)
{
    PlainGraph graph{{-1e300, HUGE_VAL}, {3e9, -HUGE_VAL}};
    graph.SetHotData(10, 10);
    EXPECT_EDGES(graph.m_rcHot, INT_MIN, INT_MIN, INT_MAX, INT_MAX);
    EXPECT_POINT(graph.m_ptCenter, -0.5, -0.5);
    EXPECT_POINT(graph.m_hotPts[4], -2147483648.0, -2147483648.0);
    EXPECT_POINT(graph.m_hotPts[7], 2147483648.0, 2147483648.0);
    EXPECT_POINT(graph.m_hotPts[8], -0.5, -2147483678.0);
}

TEST(CInkGraphHostileValues, frameStopsAtTheLimitsForAnyMargin)
{
    PlainGraph graph{{0, 0}};
    graph.SetHotData(INT_MAX, INT_MIN);
    EXPECT_EDGES(graph.m_rcHot, -INT_MAX, INT_MAX, INT_MAX, INT_MIN);
}

TEST(CInkGraphHostileValues, movedFrameStopsAtTheLimits)
{
    FramedGraph graph;
    graph.MoveHotData(2147483648.0f, -HUGE_VALF);
    EXPECT_EDGES(graph.m_rcHot, INT_MAX, INT_MIN + 100, INT_MAX, INT_MIN + 150);
    EXPECT_POINT(graph.m_ptCenter, 2147483798.0, -HUGE_VAL);
}

TEST(CInkGraphHostileValues, moveDragAcrossAllCoordinates)
{
    PlainGraph graph{{0, 0}};
    graph.SetHotData(0, 0);
    graph.m_ptLast = {-1e300, 1e300};
    graph.ModifyGraph({INT_MAX, INT_MIN}, MT_MOVE);
    EXPECT_POINT(graph.m_graphData[0], 4294967296.0, -4294967296.0);
    EXPECT_EDGES(graph.m_rcHot, INT_MAX, INT_MIN, INT_MAX, INT_MIN);
    EXPECT_POINT(graph.m_ptLast, 2147483648.0, -2147483648.0);
}

TEST(CInkGraphHostileValues, handlesThatAreNoNumbersAreNotHit)
{
    FramedGraph graph;
    for (QPointF &handle : graph.m_hotPts)
        handle = {kNan, kNan};
    EXPECT_EQ(graph.DecideModiFyType({100, 100}), MT_MOVE);
    EXPECT_EQ(graph.DecideModiFyType({99, 100}), MT_NONE);
    EXPECT_FALSE(graph.IsPtInModifyZone({99, 100}));
}

TEST(CInkGraphHostileValues, nothingIsHitAboutAPivotThatIsNoNumber)
{
    FramedGraph graph;
    graph.m_ptCenter = {kNan, 125};
    graph.m_fRotateAngle = 30;
    EXPECT_EQ(graph.DecideModiFyType({150, 125}), MT_NONE);
    EXPECT_FALSE(graph.IsPtInModifyZone({100, 100}));
}

TEST(CInkGraphHostileValues, pointersAtTheLimitsHitNothing)
{
    for (const float angle : {0.0f, 30.0f, 90.0f, 1e30f}) {
        FramedGraph graph;
        graph.m_fRotateAngle = angle;
        for (const int x : {INT_MIN, INT_MAX}) {
            for (const int y : {INT_MIN, INT_MAX}) {
                EXPECT_EQ(graph.DecideModiFyType({x, y}), MT_NONE);
                EXPECT_FALSE(graph.IsPtInModifyZone({x, y}));
            }
        }
    }
}

TEST(CInkGraphHostileValues, stretchToTheLimits)
{
    FramedGraph graph;
    graph.m_modifyType = MT_RIGHT_BOTTOM;
    graph.StretchGraph({INT_MAX, 150});
    EXPECT_EDGES(graph.m_rcHot, 100, 100, INT_MAX, 150);
    EXPECT_POINT(graph.m_graphData[1], 2147483700.0, 150); // the factor is 21474836 in single precision

    FramedGraph backwards;
    backwards.m_modifyType = MT_LEFT_TOP;
    backwards.StretchGraph({-2000000000, -2000000000});
    EXPECT_EDGES(backwards.m_rcHot, -2000000000, -2000000000, 200, 150);
}

TEST(CInkGraphHostileValues, stretchToTheLowestCoordinateIsNotInsideOut)
{
    FramedGraph graph;
    graph.m_modifyType = MT_LEFT_TOP;
    graph.StretchGraph({INT_MIN, INT_MIN});
    EXPECT_EDGES(graph.m_rcHot, INT_MIN, INT_MIN, 200, 150);
}

TEST(CInkGraphHostileValues, minimumExtentStopsAtTheLimits)
{
    PlainGraph high;
    high.ResetHotData(QRect(QPoint(INT_MAX - 5, INT_MAX - 5), QPoint(INT_MAX, INT_MAX)));
    high.m_modifyType = MT_RIGHT_BOTTOM;
    high.StretchGraph({0, 0});
    EXPECT_EDGES(high.m_rcHot, INT_MAX - 5, INT_MAX - 5, INT_MAX, INT_MAX);
}

TEST(CInkGraphHostileValues, settlingAnEndlessFrame)
{
    PlainGraph graph{{1, 2}};
    graph.ResetHotData(QRect(QPoint(INT_MAX, INT_MAX), QPoint(INT_MAX, INT_MAX)));
    graph.m_ptCenter = {0, 0};
    graph.m_fRotateAngle = 90; // the centre, 1073741824 on both axes, maps to (1073741824, -1073741824)
    graph.AdjustGraph(0);
    EXPECT_POINT(graph.m_graphData[0], 1, 2);
    EXPECT_POINT(graph.m_ptCenter, 1073741824.0, 1073741824.0);
}

TEST(CInkGraphHostileValues, bearingsFromFarAway)
{
    PlainGraph graph;
    EXPECT_EQ(graph.CalcRotateAngle({INT_MIN, INT_MIN}, {2147483647.0, 2147483647.0}), 315.0f);
    EXPECT_EQ(graph.CalcRotateAngle({INT_MAX, INT_MAX}, {-2147483648.0, -2147483648.0}), 135.0f);
    EXPECT_EQ(graph.CalcRotateAngle({0, 5}, {-HUGE_VAL, 0}), 90.0f);
    EXPECT_EQ(graph.CalcRotateAngle({5, 0}, {0, -HUGE_VAL}), 180.0f);
    EXPECT_EQ(graph.CalcRotateAngle({5, 0}, {0, 1e300}), 0.0f);
}

TEST(CInkGraphHostileValues, squareIsWidenedByAnyPen)
{
    FramedGraph graph;
    graph.ResetHotData(QRect(0, 0, 100, 100));
    graph.m_nWidth = INT_MAX;
    EXPECT_EDGES(graph.GetRotateUpDateRect(), INT_MIN, INT_MIN, INT_MAX, INT_MAX);
    graph.m_nWidth = INT_MIN;
    EXPECT_EDGES(graph.GetRotateUpDateRect(), -55, -55, 152, 152);
}

TEST(CInkGraphHostileValues, rectOfEndlessPointsStopsAtTheLimits)
{
    EXPECT_EDGES(rectOf({{HUGE_VAL, -1e300}, {-HUGE_VAL, 1e300}}), INT_MIN, INT_MIN, INT_MAX - 1, INT_MAX - 1);
    EXPECT_EDGES(rectOf({{-HUGE_VAL, -HUGE_VAL}}), INT_MIN, INT_MIN, INT_MIN, INT_MIN);
    EXPECT_NULL_RECT(rectOf({}));
}

TEST(CInkGraphHostileValues, rectOfPointsPassesOverWhatIsNoNumber)
{
    // No minimum is greater than such a coordinate, and it is greater than no maximum.
    EXPECT_EDGES(rectOf({{10, 10}, {kNan, 20}, {30, kNan}}), 10, 10, 29, 19);
}

TEST(CInkGraphHostileValues, frameFarBeyondTheCanvasIsPaintedWhereItIsSeen)
{
    FramedGraph graph;
    graph.ResetHotData(QRect(QPoint(10, 100), QPoint(100000000, INT_MAX)));
    const QImage image = painted([&](QPainter &painter) { graph.DrawHotShape(painter); });
    EXPECT_EQ(image.pixel(12, 100), 0xFF4040FFu) << "first dash of the upper side";
    EXPECT_EQ(image.pixel(6, 100), 0xFF00FF00u) << "top left square";
}

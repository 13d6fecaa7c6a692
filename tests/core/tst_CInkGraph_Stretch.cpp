// Stretching by the handles, and what settles afterwards.

#include "Exact.h"
#include "PlainGraph.h"

#include <cmath>

namespace {

// Framed by (100,100)-(200,150), with a third point off the frame's corners.
class FramedGraph : public PlainGraph
{
public:
    explicit FramedGraph(int modifyType = MT_NONE)
        : PlainGraph{{100, 100}, {200, 150}, {120, 110}}
    {
        SetHotData(0, 0);
        m_modifyType = modifyType;
    }
};

struct Corners
{
    QPoint topLeft{1, 2};
    QPoint bottomRight{3000, 4000};
    QPointF anchor{7, 8};
};

// What CalcStretchPoint makes of corners that are not the frame's.
Corners calculated(int modifyType, Corners corners = {})
{
    FramedGraph graph(modifyType);
    graph.CalcStretchPoint(corners.topLeft, corners.bottomRight, {150, 170}, corners.anchor);
    EXPECT_EDGES(graph.m_rcHot, 100, 100, 200, 150);
    return corners;
}

#define EXPECT_CORNERS(corners, left, top, right, bottom, anchorX, anchorY)                                            \
    do {                                                                                                               \
        const Corners corners_ = (corners);                                                                            \
        EXPECT_EDGES(QRect(corners_.topLeft, corners_.bottomRight), left, top, right, bottom);                         \
        EXPECT_POINT(corners_.anchor, anchorX, anchorY);                                                               \
    } while (false)

#define EXPECT_THREE_POINTS(graph, x0, y0, x1, y1, x2, y2)                                                             \
    do {                                                                                                               \
        EXPECT_POINT((graph).m_graphData[0], x0, y0);                                                                  \
        EXPECT_POINT((graph).m_graphData[1], x1, y1);                                                                  \
        EXPECT_POINT((graph).m_graphData[2], x2, y2);                                                                  \
    } while (false)

} // namespace

TEST(CInkGraphStretch, topLeftHandle)
{
    FramedGraph graph(MT_LEFT_TOP);
    graph.StretchGraph({150, 125});
    EXPECT_EDGES(graph.m_rcHot, 150, 125, 200, 150);
    EXPECT_THREE_POINTS(graph, 150, 125, 200, 150, 160, 130);
}

TEST(CInkGraphStretch, topHandle)
{
    FramedGraph graph(MT_TOP);
    graph.StretchGraph({999, 50});
    EXPECT_EDGES(graph.m_rcHot, 100, 50, 200, 150);
    EXPECT_THREE_POINTS(graph, 100, 50, 200, 150, 120, 70);
}

TEST(CInkGraphStretch, topRightHandle)
{
    FramedGraph graph(MT_RIGHT_TOP);
    graph.StretchGraph({300, 125});
    EXPECT_EDGES(graph.m_rcHot, 100, 125, 300, 150);
    EXPECT_THREE_POINTS(graph, 100, 125, 300, 150, 140, 130);
}

TEST(CInkGraphStretch, leftHandle)
{
    FramedGraph graph(MT_LEFT);
    graph.StretchGraph({0, 999});
    EXPECT_EDGES(graph.m_rcHot, 0, 100, 200, 150);
    EXPECT_THREE_POINTS(graph, 0, 100, 200, 150, 40, 110);
}

TEST(CInkGraphStretch, rightHandle)
{
    FramedGraph graph(MT_RIGHT);
    graph.StretchGraph({150, 999});
    EXPECT_EDGES(graph.m_rcHot, 100, 100, 150, 150);
    EXPECT_THREE_POINTS(graph, 100, 100, 150, 150, 110, 110);
}

TEST(CInkGraphStretch, bottomLeftHandle)
{
    FramedGraph graph(MT_LEFT_BOTTOM);
    graph.StretchGraph({150, 200});
    EXPECT_EDGES(graph.m_rcHot, 150, 100, 200, 200);
    EXPECT_THREE_POINTS(graph, 150, 100, 200, 200, 160, 120);
}

TEST(CInkGraphStretch, bottomHandle)
{
    FramedGraph graph(MT_BOTTOM);
    graph.StretchGraph({999, 125});
    EXPECT_EDGES(graph.m_rcHot, 100, 100, 200, 125);
    EXPECT_THREE_POINTS(graph, 100, 100, 200, 125, 120, 105);
}

TEST(CInkGraphStretch, bottomRightHandleLaysTheHandlesOutAnewAndKeepsThePivot)
{
    FramedGraph graph(MT_RIGHT_BOTTOM);
    graph.m_ptLast = {1, 2};
    graph.StretchGraph({300, 200});
    EXPECT_EDGES(graph.m_rcHot, 100, 100, 300, 200);
    EXPECT_THREE_POINTS(graph, 100, 100, 300, 200, 140, 120);
    expectHandles(
        graph,
        {{200, 100}, {200, 200}, {100, 150}, {300, 150}, {100, 100}, {100, 200}, {300, 100}, {300, 200}, {200, 70}});
    EXPECT_POINT(graph.m_ptCenter, 150, 125);
    EXPECT_POINT(graph.m_ptLast, 1, 2);
    EXPECT_EQ(graph.m_modifyType, MT_RIGHT_BOTTOM);
}

TEST(CInkGraphStretch, marginsOfTheFrameGrowWithIt)
{
    FramedGraph graph(MT_RIGHT_BOTTOM);
    graph.SetHotData(10, 10); // 120 by 70
    graph.StretchGraph({330, 230});
    EXPECT_EDGES(graph.m_rcHot, 90, 90, 330, 230);
    EXPECT_THREE_POINTS(graph, 110, 110, 310, 210, 150, 130);
}

TEST(CInkGraphStretch, fixedHandleIsTheAnchorWhereverItStands)
{
    FramedGraph graph(MT_RIGHT_BOTTOM);
    graph.m_hotPts[4] = {120.5, 110.5};
    graph.StretchGraph({300, 200});
    EXPECT_THREE_POINTS(graph, 79.5, 89.5, 279.5, 189.5, 119.5, 109.5);
}

TEST(CInkGraphStretch, factorIsSinglePrecision)
{
    FramedGraph graph(MT_RIGHT);
    graph.StretchGraph({133, 0});
    EXPECT_EDGES(graph.m_rcHot, 100, 100, 133, 150);
    EXPECT_POINT(graph.m_graphData[1], 133.00000131130219, 150);
}

TEST(CInkGraphStretch, dragWorksOnTheTypeInTheObject)
{
    FramedGraph graph(MT_RIGHT);
    graph.ModifyGraph({150, 999}, MT_BOTTOM);
    EXPECT_EDGES(graph.m_rcHot, 100, 100, 150, 150);
}

TEST(CInkGraphStretch, frameNeverShrinksBelowFifteenPixels)
{
    constexpr struct
    {
        ModifyType type;
        int x, y;
        int left, top, right, bottom;
    } rows[] = {
        // 16 pixels, 15 and 14 are left; then a drag past the opposite side
        {MT_LEFT_TOP, 184, 134, 184, 134, 200, 150},
        {MT_LEFT_TOP, 185, 135, 185, 135, 200, 150},
        {MT_LEFT_TOP, 186, 136, 185, 135, 200, 150},
        {MT_LEFT_TOP, 500, 500, 185, 135, 200, 150},
        {MT_TOP, 0, 134, 100, 134, 200, 150},
        {MT_TOP, 0, 135, 100, 135, 200, 150},
        {MT_TOP, 0, 136, 100, 135, 200, 150},
        {MT_TOP, 0, 500, 100, 135, 200, 150},
        {MT_RIGHT_TOP, 116, 134, 100, 134, 116, 150},
        {MT_RIGHT_TOP, 115, 135, 100, 135, 115, 150},
        {MT_RIGHT_TOP, 114, 136, 100, 135, 115, 150},
        {MT_RIGHT_TOP, -300, 500, 100, 135, 115, 150},
        {MT_LEFT, 184, 0, 184, 100, 200, 150},
        {MT_LEFT, 185, 0, 185, 100, 200, 150},
        {MT_LEFT, 186, 0, 185, 100, 200, 150},
        {MT_LEFT, 500, 0, 185, 100, 200, 150},
        {MT_RIGHT, 116, 0, 100, 100, 116, 150},
        {MT_RIGHT, 115, 0, 100, 100, 115, 150},
        {MT_RIGHT, 114, 0, 100, 100, 115, 150},
        {MT_RIGHT, -300, 0, 100, 100, 115, 150},
        {MT_LEFT_BOTTOM, 184, 116, 184, 100, 200, 116},
        {MT_LEFT_BOTTOM, 185, 115, 185, 100, 200, 115},
        {MT_LEFT_BOTTOM, 186, 114, 185, 100, 200, 115},
        {MT_LEFT_BOTTOM, 500, -300, 185, 100, 200, 115},
        {MT_BOTTOM, 0, 116, 100, 100, 200, 116},
        {MT_BOTTOM, 0, 115, 100, 100, 200, 115},
        {MT_BOTTOM, 0, 114, 100, 100, 200, 115},
        {MT_BOTTOM, 0, -300, 100, 100, 200, 115},
        {MT_RIGHT_BOTTOM, 116, 116, 100, 100, 116, 116},
        {MT_RIGHT_BOTTOM, 115, 115, 100, 100, 115, 115},
        {MT_RIGHT_BOTTOM, 114, 114, 100, 100, 115, 115},
        {MT_RIGHT_BOTTOM, -300, -300, 100, 100, 115, 115},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(::testing::Message() << "type " << row.type << " to (" << row.x << ',' << row.y << ')');
        FramedGraph graph(row.type);
        graph.StretchGraph({row.x, row.y});
        EXPECT_EDGES(graph.m_rcHot, row.left, row.top, row.right, row.bottom);
    }
}

TEST(CInkGraphStretch, dragPastTheOppositeCornerStopsAtTheMinimum)
{
    FramedGraph graph(MT_RIGHT_BOTTOM);
    graph.StretchGraph({105, 150});
    EXPECT_EDGES(graph.m_rcHot, 100, 100, 115, 150);
    // 15 / 100 in single precision is 0.15000000596046448.
    EXPECT_POINT(graph.m_graphData[1], 115.00000059604645, 150);
}

TEST(CInkGraphStretch, tooSmallAxisGrowsAtTheCornerOfTheHandle)
{
    const auto stretched = [](ModifyType type, const QRect &frame, const QPoint &pointer) {
        PlainGraph graph;
        graph.m_modifyType = type;
        graph.ResetHotData(frame);
        graph.StretchGraph(pointer);
        return graph.m_rcHot;
    };
    const QRect low(QPoint(100, 100), QPoint(200, 110));
    const QRect narrow(QPoint(100, 100), QPoint(110, 200));
    EXPECT_EDGES(stretched(MT_LEFT, low, {150, 0}), 150, 95, 200, 110);
    EXPECT_EDGES(stretched(MT_RIGHT, low, {150, 0}), 100, 100, 150, 115);
    EXPECT_EDGES(stretched(MT_TOP, narrow, {0, 50}), 100, 50, 115, 200);
    EXPECT_EDGES(stretched(MT_BOTTOM, narrow, {0, 250}), 95, 100, 110, 250);
}

TEST(CInkGraphStretch, pointsFollowAnAxisThatGrowsToTheMinimum)
{
    PlainGraph graph{{100, 100}, {110, 200}};
    graph.SetHotData(0, 0);
    graph.m_modifyType = MT_TOP;
    graph.StretchGraph({0, 50}); // both factors 1.5, about (105,200)
    EXPECT_POINT(graph.m_graphData[0], 97.5, 50);
    EXPECT_POINT(graph.m_graphData[1], 112.5, 200);
}

TEST(CInkGraphStretch, typesWithoutAHandleChangeNothing)
{
    for (const int type : {int(MT_NONE), int(MT_MOVE), int(MT_ROTATE), 0, 12}) {
        FramedGraph graph(type);
        graph.StretchGraph({0, 0});
        EXPECT_EDGES(graph.m_rcHot, 100, 100, 200, 150);
        EXPECT_THREE_POINTS(graph, 100, 100, 200, 150, 120, 110);
    }
}

TEST(CInkGraphStretch, smallFrameWithoutAHandleGrowsAboutTheOrigin)
{
    PlainGraph graph{{100, 100}, {110, 110}};
    graph.SetHotData(0, 0);
    graph.StretchGraph({0, 0});
    EXPECT_EDGES(graph.m_rcHot, 95, 95, 110, 110);
    EXPECT_POINT(graph.m_graphData[0], 150, 150);
    EXPECT_POINT(graph.m_graphData[1], 165, 165);
}

TEST(CInkGraphStretch, axisWithoutExtentKeepsItsPoints)
{
    PlainGraph dot{{100, 100}};
    dot.SetHotData(0, 0);
    dot.m_modifyType = MT_RIGHT_BOTTOM;
    dot.StretchGraph({130, 140});
    EXPECT_EDGES(dot.m_rcHot, 100, 100, 130, 140);
    EXPECT_POINT(dot.m_graphData[0], 100, 100);

    PlainGraph withinAPixel{{100.25, 100.75}};
    withinAPixel.SetHotData(0, 0);
    withinAPixel.m_modifyType = MT_RIGHT_BOTTOM;
    withinAPixel.StretchGraph({130, 140});
    EXPECT_POINT(withinAPixel.m_graphData[0], 100.25, 100.75);

    PlainGraph level{{100, 100}, {200, 100}};
    level.SetHotData(0, 0);
    level.m_modifyType = MT_RIGHT_BOTTOM;
    level.StretchGraph({300, 140});
    EXPECT_EDGES(level.m_rcHot, 100, 100, 300, 140);
    EXPECT_POINT(level.m_graphData[0], 100, 100);
    EXPECT_POINT(level.m_graphData[1], 300, 100);
}

TEST(CInkGraphStretch, pointerIsTurnedBackIntoTheFrame)
{
    FramedGraph graph(MT_RIGHT_BOTTOM);
    graph.m_fRotateAngle = 90; // (75,275) is (300,200) in the frame
    graph.StretchGraph({75, 275});
    EXPECT_EDGES(graph.m_rcHot, 100, 100, 300, 200);
    EXPECT_THREE_POINTS(graph, 100, 100, 300, 200, 140, 120);
    EXPECT_POINT(graph.m_ptCenter, 150, 125);
    EXPECT_EQ(graph.m_fRotateAngle, 90.0f);
}

TEST(CInkGraphStretch, turnedPointerIsTruncatedTowardZero)
{
    PlainGraph quarter;
    quarter.ResetHotData(QRect(QPoint(100, 100), QPoint(199, 150)));
    quarter.m_modifyType = MT_LEFT_TOP;
    quarter.m_fRotateAngle = 90; // (400,-80) is (-55.5,-125.5) in the frame
    quarter.StretchGraph({400, -80});
    EXPECT_EDGES(quarter.m_rcHot, -55, -125, 199, 150);

    FramedGraph slanted(MT_RIGHT_BOTTOM);
    slanted.m_fRotateAngle = 30; // (200,175) is (218.301,143.301) in the frame
    slanted.StretchGraph({200, 175});
    EXPECT_EDGES(slanted.m_rcHot, 100, 100, 218, 143);
}

TEST(CInkGraphStretch, cornersThatTheHandleDoesNotMoveAreTheCallers)
{
    EXPECT_CORNERS(calculated(MT_LEFT_TOP), 150, 170, 3000, 4000, 200, 150);
    EXPECT_CORNERS(calculated(MT_TOP), 100, 170, 3000, 4000, 150, 150);
    EXPECT_CORNERS(calculated(MT_RIGHT_TOP, {{1, 2}, {3000, 4000}, {7, 8}}), 100, 135, 150, 150, 100, 150);
    EXPECT_CORNERS(calculated(MT_LEFT), 150, 100, 3000, 4000, 200, 125);
    EXPECT_CORNERS(calculated(MT_RIGHT), 1, 2, 150, 150, 100, 125);
    EXPECT_CORNERS(calculated(MT_LEFT_BOTTOM), 150, 100, 200, 170, 200, 100);
    EXPECT_CORNERS(calculated(MT_BOTTOM), 1, 2, 200, 170, 150, 100);
    EXPECT_CORNERS(calculated(MT_RIGHT_BOTTOM), 1, 2, 150, 170, 100, 100);
    for (const int type : {int(MT_NONE), int(MT_MOVE), int(MT_ROTATE), 0, 12})
        EXPECT_CORNERS(calculated(type), 1, 2, 3000, 4000, 7, 8);
}

TEST(CInkGraphStretch, callersCornersAreHeldApartToo)
{
    EXPECT_CORNERS(calculated(MT_NONE, {{0, 0}, {16, 16}, {}}), 0, 0, 16, 16, 0, 0);
    EXPECT_CORNERS(calculated(MT_NONE, {{0, 0}, {15, 15}, {}}), 0, 0, 15, 15, 0, 0);
    EXPECT_CORNERS(calculated(MT_NONE, {{0, 0}, {14, 14}, {}}), -1, -1, 14, 14, 0, 0);
    EXPECT_CORNERS(calculated(MT_LEFT_TOP, {{}, {160, 180}, {}}), 145, 165, 160, 180, 200, 150);
    EXPECT_CORNERS(calculated(MT_RIGHT, {{140, 140}, {}, {}}), 140, 140, 155, 155, 100, 125);
}

TEST(CInkGraphStretch, settlingAnUnturnedObjectOnlyRecentersIt)
{
    FramedGraph graph(MT_RIGHT_BOTTOM);
    graph.StretchGraph({300, 200});
    graph.AdjustGraph(0);
    EXPECT_POINT(graph.m_ptCenter, 200, 150);
    EXPECT_EDGES(graph.m_rcHot, 100, 100, 300, 200);
    EXPECT_THREE_POINTS(graph, 100, 100, 300, 200, 140, 120);
    EXPECT_POINT(graph.m_hotPts[8], 200, 70);
}

TEST(CInkGraphStretch, settlingAfterAQuarterTurnMapsBackwards)
{
    for (const float argument : {0.0f, 45.0f, -90.0f, NAN}) {
        FramedGraph graph(MT_RIGHT_BOTTOM);
        graph.m_fRotateAngle = 90;
        graph.StretchGraph({75, 275}); // to (100,100)-(300,200); its centre (200,150) maps to (175,75)
        graph.AdjustGraph(argument);
        EXPECT_THREE_POINTS(graph, 75, 25, 275, 125, 115, 45);
        EXPECT_EDGES(graph.m_rcHot, 75, 25, 275, 125);
        EXPECT_POINT(graph.m_ptCenter, 175, 75);
        expectHandles(
            graph, {{175, 25}, {175, 125}, {75, 75}, {275, 75}, {75, 25}, {75, 125}, {275, 25}, {275, 125}, {175, -5}});
        EXPECT_EQ(graph.m_fRotateAngle, 90.0f);
    }
}

TEST(CInkGraphStretch, settlingNeedsAShiftAlongBothAxes)
{
    FramedGraph onlyDown;
    onlyDown.m_fRotateAngle = 90;
    onlyDown.m_rcHot = QRect(QPoint(100, 100), QPoint(250, 200)); // centre (175,150) maps to (175,100)
    onlyDown.AdjustGraph(0);
    EXPECT_THREE_POINTS(onlyDown, 100, 100, 200, 150, 120, 110);
    EXPECT_EDGES(onlyDown.m_rcHot, 100, 100, 250, 200);
    EXPECT_POINT(onlyDown.m_hotPts[8], 150, 70);
    EXPECT_POINT(onlyDown.m_ptCenter, 175, 150);

    FramedGraph onlyAcross;
    onlyAcross.m_fRotateAngle = 90;
    onlyAcross.m_rcHot = QRect(QPoint(100, 50), QPoint(250, 150)); // centre (175,100) maps to (125,100)
    onlyAcross.AdjustGraph(0);
    EXPECT_THREE_POINTS(onlyAcross, 100, 100, 200, 150, 120, 110);
    EXPECT_EDGES(onlyAcross.m_rcHot, 100, 50, 250, 150);
    EXPECT_POINT(onlyAcross.m_ptCenter, 175, 100);

    FramedGraph almost;
    almost.m_fRotateAngle = 90;
    almost.m_rcHot = QRect(QPoint(100, 50), QPoint(250, 151)); // centre (175,100.5) maps to (125.5,100)
    almost.AdjustGraph(0);
    EXPECT_POINT(almost.m_graphData[0], 50.5, 99.5);
    EXPECT_EDGES(almost.m_rcHot, 51, 50, 201, 151);
    EXPECT_POINT(almost.m_ptCenter, 126, 100.5);
}

TEST(CInkGraphStretch, settlingAfterAHalfTurnAndAStretchAlongOneAxisShiftsNothing)
{
    PlainGraph graph{{100, 50}, {250, 100}};
    graph.SetHotData(0, 0);
    graph.m_fRotateAngle = 180;
    graph.m_modifyType = MT_RIGHT;
    graph.StretchGraph({0, 75}); // to (100,50)-(350,100)
    graph.AdjustGraph(180);
    EXPECT_EDGES(graph.m_rcHot, 100, 50, 350, 100);
    EXPECT_POINT(graph.m_graphData[0], 100, 50);
    EXPECT_POINT(graph.m_hotPts[4], 100, 50);
    EXPECT_POINT(graph.m_ptCenter, 225, 75);
}

TEST(CInkGraphStretch, settlingAfterAHalfTurnAlongBothAxes)
{
    FramedGraph graph;
    graph.m_fRotateAngle = 180;
    graph.m_rcHot = QRect(QPoint(100, 100), QPoint(300, 200)); // centre (200,150) maps to (100,100)
    graph.AdjustGraph(0);
    EXPECT_THREE_POINTS(graph, 0, 50, 100, 100, 20, 60);
    EXPECT_EDGES(graph.m_rcHot, 0, 50, 200, 150);
    EXPECT_POINT(graph.m_ptCenter, 100, 100);
}

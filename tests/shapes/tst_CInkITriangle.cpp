// The isosceles triangle: where its vertices lie, and its pen. What it shares with the other polygons of a dragged box
// is tested with them.

#include "CInkITriangle.h"
#include "Canvas.h"
#include "Exact.h"

#include <gtest/gtest.h>

namespace {

void expectVertices(const CInkITriangle &triangle, const QVector<QPointF> &expected)
{
    for (int i = 0; i < 3; ++i) {
        SCOPED_TRACE(i);
        EXPECT_POINT(triangle.m_graphData[i], expected[i].x(), expected[i].y());
    }
}

// The vertices of a drag between these points, which need not be whole.
class Normalized : public CInkITriangle
{
public:
    Normalized(const QPointF &press, const QPointF &pointer)
    {
        m_graphData[3] = press;
        m_graphData[4] = pointer;
        NormalizeGraphData();
    }
};

} // namespace

TEST(CInkITriangle, apexIsAtTheTopWhicheverWayItIsDragged)
{
    for (const auto &[from, to] :
         {std::pair(QPoint(10, 20), QPoint(60, 90)), std::pair(QPoint(60, 90), QPoint(10, 20)),
          std::pair(QPoint(10, 90), QPoint(60, 20)), std::pair(QPoint(60, 20), QPoint(10, 90))}) {
        SCOPED_TRACE(::testing::Message() << "from " << from.x() << ',' << from.y());
        CInkITriangle triangle;
        feed(triangle, PT_DOWN, from.x(), from.y());
        feed(triangle, PT_MOVE, to.x(), to.y());
        ASSERT_EQ(triangle.m_graphData.size(), 5);
        expectVertices(triangle, {{35, 20}, {10, 90}, {60, 90}});
        feed(triangle, PT_UP, to.x(), to.y());
        ASSERT_EQ(triangle.m_graphData.size(), 3);
        EXPECT_EQ(triangle.GetPointCount(), 3);
        expectVertices(triangle, {{35, 20}, {10, 90}, {60, 90}});
    }
}

TEST(CInkITriangle, apexMayLieBetweenTwoPixels)
{
    CInkITriangle triangle;
    feed(triangle, PT_DOWN, -10, -20);
    feed(triangle, PT_MOVE, 15, -21);
    expectVertices(triangle, {{2.5, -21}, {-10, -20}, {15, -20}});
}

TEST(CInkITriangle, thinnestTriangleIsKept)
{
    CInkITriangle triangle;
    drag(triangle, {100, 80}, {103, 80});
    EXPECT_EQ(triangle.m_bEditMode, 1);
    expectVertices(triangle, {{101.5, 80}, {100, 80}, {103, 80}});
    EXPECT_EDGES(triangle.m_rcHot, 90, 70, 113, 90);
}

TEST(CInkITriangle, everyCoordinateGoesThroughSinglePrecision)
{
    // An optimiser that pairs the two coordinates of a point may skip the detour.
    for (const auto &[press, pointer] :
         {std::pair(QPointF(10.1, 20.2), QPointF(50.3, 80.7)), std::pair(QPointF(50.3, 80.7), QPointF(10.1, 20.2))}) {
        expectVertices(Normalized(press, pointer), {{30.200000762939453, 20.200000762939453},
                                                    {10.100000381469727, 80.69999694824219},
                                                    {50.29999923706055, 80.69999694824219}});
    }
    expectVertices(Normalized({0.1, 80.7}, {0.3, 20.2}), {{0.20000000298023224, 20.200000762939453},
                                                          {0.10000000149011612, 80.69999694824219},
                                                          {0.30000001192092896, 80.69999694824219}});
    expectVertices(Normalized({16'777'217, -16'777'219}, {16'777'221, -16'777'211}),
                   {{16'777'220, -16'777'220}, {16'777'216, -16'777'211}, {16'777'220, -16'777'211}});
}

TEST(CInkITriangle, dragPointsKeepTheirPrecision)
{
    const Normalized triangle({10.1, 20.2}, {50.3, 80.7});
    EXPECT_POINT(triangle.m_graphData[3], 10.1, 20.2);
    EXPECT_POINT(triangle.m_graphData[4], 50.3, 80.7);
}

TEST(CInkITriangle, penStyleIsNotUsed)
{
    CInkITriangle plain;
    feed(plain, PT_DOWN, 100, 100);
    feed(plain, PT_MOVE, 200, 150);
    EXPECT_FALSE(isBlank(drawn(plain)));
    for (const Qt::PenStyle style : {Qt::NoPen, Qt::DashLine, Qt::DotLine}) {
        CInkITriangle triangle(style);
        feed(triangle, PT_DOWN, 100, 100);
        feed(triangle, PT_MOVE, 200, 150);
        EXPECT_TRUE(samePixels(drawn(triangle), drawn(plain)));
    }
}

// The right-angled triangle: where its vertices lie, and its pen. What it shares with the other polygons of a dragged
// box is tested with them.

#include "CInkLTriangle.h"
#include "Canvas.h"
#include "Exact.h"

#include <gtest/gtest.h>

namespace {

void expectVertices(const CInkLTriangle &triangle, const QVector<QPointF> &expected)
{
    for (int i = 0; i < 3; ++i) {
        SCOPED_TRACE(i);
        EXPECT_POINT(triangle.m_graphData[i], expected[i].x(), expected[i].y());
    }
}

} // namespace

TEST(CInkLTriangle, legsFollowTheDirectionOfTheDrag)
{
    struct Case
    {
        QPoint from, to;
        QVector<QPointF> vertices;
    };
    const Case cases[] = {
        {{10, 10}, {50, 40}, {{10, 10}, {50, 40}, {10, 40}}},
        {{50, 40}, {10, 10}, {{50, 40}, {10, 10}, {50, 10}}},
        {{10, 40}, {50, 10}, {{10, 40}, {50, 10}, {10, 10}}},
        {{50, 10}, {10, 40}, {{50, 10}, {10, 40}, {50, 40}}},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(::testing::Message() << "from " << c.from.x() << ',' << c.from.y());
        CInkLTriangle triangle;
        feed(triangle, PT_DOWN, c.from.x(), c.from.y());
        feed(triangle, PT_MOVE, c.to.x(), c.to.y());
        ASSERT_EQ(triangle.m_graphData.size(), 5);
        expectVertices(triangle, c.vertices);
        feed(triangle, PT_UP, c.to.x(), c.to.y());
        ASSERT_EQ(triangle.m_graphData.size(), 3);
        EXPECT_EQ(triangle.GetPointCount(), 3);
        expectVertices(triangle, c.vertices);
    }
}

TEST(CInkLTriangle, thinnestTriangleIsKept)
{
    CInkLTriangle triangle;
    drag(triangle, {100, 80}, {103, 80});
    EXPECT_EQ(triangle.m_bEditMode, 1);
    expectVertices(triangle, {{100, 80}, {103, 80}, {100, 80}});
    EXPECT_EDGES(triangle.m_rcHot, 90, 70, 113, 90);
}

TEST(CInkLTriangle, noCoordinateGoesThroughSinglePrecision)
{
    CInkLTriangle triangle;
    triangle.m_graphData[3] = {10.1, -16'777'219};
    triangle.m_graphData[4] = {16'777'217, 80.7};
    triangle.NormalizeGraphData();
    expectVertices(triangle, {{10.1, -16'777'219}, {16'777'217, 80.7}, {10.1, 80.7}});
}

TEST(CInkLTriangle, penStyleIsNotUsed)
{
    CInkLTriangle plain;
    feed(plain, PT_DOWN, 100, 100);
    feed(plain, PT_MOVE, 200, 150);
    EXPECT_FALSE(isBlank(drawn(plain)));
    for (const Qt::PenStyle style : {Qt::NoPen, Qt::DashLine, Qt::DotLine}) {
        CInkLTriangle triangle(style);
        feed(triangle, PT_DOWN, 100, 100);
        feed(triangle, PT_MOVE, 200, 150);
        EXPECT_TRUE(samePixels(drawn(triangle), drawn(plain)));
    }
}

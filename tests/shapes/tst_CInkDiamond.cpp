// The diamond: where its vertices lie, and its pen. What it shares with the other polygons of a dragged box is tested
// with them.

#include "BoxFrame.h"
#include "CInkDiamond.h"
#include "Canvas.h"
#include "Exact.h"

#include <gtest/gtest.h>

namespace {

void expectVertices(const CInkDiamond &diamond, const QVector<QPointF> &expected)
{
    for (int i = 0; i < 4; ++i) {
        SCOPED_TRACE(i);
        EXPECT_POINT(diamond.m_graphData[i], expected[i].x(), expected[i].y());
    }
}

// The vertices of a drag between these points, which need not be whole.
class Normalized : public CInkDiamond
{
public:
    Normalized(const QPointF &press, const QPointF &pointer)
    {
        m_graphData[4] = press;
        m_graphData[5] = pointer;
        NormalizeGraphData();
    }
};

// Dragged from (100,100) to (200,150), then painted directly.
void paintDiamond(QPainter &painter, Qt::PenStyle style, const QColor &color = Qt::black)
{
    const QPointF points[] = {{100, 125}, {150, 100}, {200, 125}, {150, 150}};
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QBrush(color), 4, style, Qt::SquareCap, Qt::RoundJoin));
    painter.drawPolygon(points, 4, Qt::OddEvenFill);
}

} // namespace

TEST(CInkDiamond, verticesTouchTheMiddleOfEachSideOfTheBox)
{
    for (const auto &[from, to] :
         {std::pair(QPoint(10, 20), QPoint(60, 90)), std::pair(QPoint(60, 90), QPoint(10, 20)),
          std::pair(QPoint(10, 90), QPoint(60, 20)), std::pair(QPoint(60, 20), QPoint(10, 90))}) {
        SCOPED_TRACE(::testing::Message() << "from " << from.x() << ',' << from.y());
        CInkDiamond diamond;
        feed(diamond, PT_DOWN, from.x(), from.y());
        feed(diamond, PT_MOVE, to.x(), to.y());
        ASSERT_EQ(diamond.m_graphData.size(), 6);
        expectVertices(diamond, {{10, 55}, {35, 20}, {60, 55}, {35, 90}});
        feed(diamond, PT_UP, to.x(), to.y());
        ASSERT_EQ(diamond.m_graphData.size(), 4);
        EXPECT_EQ(diamond.GetPointCount(), 4);
        expectVertices(diamond, {{10, 55}, {35, 20}, {60, 55}, {35, 90}});
    }
}

TEST(CInkDiamond, centreMayLieBetweenTwoPixels)
{
    CInkDiamond diamond;
    feed(diamond, PT_DOWN, -10, -20);
    feed(diamond, PT_MOVE, 15, -21);
    expectVertices(diamond, {{-10, -20.5}, {2.5, -21}, {15, -20.5}, {2.5, -20}});
}

TEST(CInkDiamond, thinnestDiamondIsKept)
{
    CInkDiamond diamond;
    drag(diamond, {100, 80}, {103, 80});
    EXPECT_EQ(diamond.m_bEditMode, 1);
    expectVertices(diamond, {{100, 80}, {101.5, 80}, {103, 80}, {101.5, 80}});
    EXPECT_EDGES(diamond.m_rcHot, 90, 70, 113, 90);
}

TEST(CInkDiamond, edgesGoThroughSinglePrecisionAndTheCentreDoesNot)
{
    // An optimiser that pairs the two coordinates of a point may narrow both or none.
    for (const auto &[press, pointer] :
         {std::pair(QPointF(10.1, 20.2), QPointF(50.3, 80.7)), std::pair(QPointF(50.3, 80.7), QPointF(10.1, 20.2)),
          std::pair(QPointF(10.1, 80.7), QPointF(50.3, 20.2))}) {
        expectVertices(Normalized(press, pointer), {{10.100000381469727, 50.45},
                                                    {30.2, 20.200000762939453},
                                                    {50.29999923706055, 50.45},
                                                    {30.2, 80.69999694824219}});
    }
    expectVertices(
        Normalized({16'777'217, -16'777'219}, {16'777'221, -16'777'211}),
        {{16'777'216, -16'777'215}, {16'777'219, -16'777'220}, {16'777'220, -16'777'215}, {16'777'219, -16'777'211}});
}

TEST(CInkDiamond, dragPointsKeepTheirPrecision)
{
    const Normalized diamond({10.1, 20.2}, {50.3, 80.7});
    EXPECT_POINT(diamond.m_graphData[4], 10.1, 20.2);
    EXPECT_POINT(diamond.m_graphData[5], 50.3, 80.7);
}

TEST(CInkDiamond, penStyleOfTheConstructorIsUsed)
{
    const QColor color(255, 0, 0, 120);
    const QImage solid = painted([&](QPainter &painter) { paintDiamond(painter, Qt::SolidLine, color); });
    for (const Qt::PenStyle style : {Qt::DashLine, Qt::DotLine, Qt::DashDotLine, Qt::DashDotDotLine, Qt::NoPen}) {
        SCOPED_TRACE(int(style));
        CInkDiamond diamond(style);
        diamond.SetColor(color);
        feed(diamond, PT_DOWN, 100, 100);
        feed(diamond, PT_MOVE, 200, 150);
        const QImage expected = painted([&](QPainter &painter) { paintDiamond(painter, style, color); });
        EXPECT_TRUE(samePixels(drawn(diamond), expected));
        EXPECT_FALSE(samePixels(drawn(diamond), solid));
    }
    CInkDiamond plain;
    plain.SetColor(color);
    feed(plain, PT_DOWN, 100, 100);
    feed(plain, PT_MOVE, 200, 150);
    EXPECT_TRUE(samePixels(drawn(plain), solid));
}

TEST(CInkDiamond, penStyleIsUsedWhileEditedAndOnceCommitted)
{
    CInkDiamond diamond(Qt::DashLine);
    drag(diamond, {100, 100}, {200, 150});
    const QImage edited = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        paintFrame(painter);
        paintDiamond(painter, Qt::DashLine);
    });
    EXPECT_TRUE(samePixels(drawn(diamond), edited));
    diamond.FinishGraph();
    EXPECT_TRUE(samePixels(drawn(diamond), painted([](QPainter &painter) { paintDiamond(painter, Qt::DashLine); })));
}

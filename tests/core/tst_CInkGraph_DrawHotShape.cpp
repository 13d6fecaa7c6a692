// The frame and the handles, compared with the same primitives painted directly.

#include "Canvas.h"
#include "Exact.h"
#include "PlainGraph.h"

#include <QtGui/QPainterPath>

namespace {

const QColor kBlue(64, 64, 255);

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

QPen framePen()
{
    return QPen(QBrush(kBlue), 1.5, Qt::DashLine, Qt::SquareCap, Qt::BevelJoin);
}

void paintKnob(QPainter &painter, const QPointF &top, const QPointF &knob, const QRectF &disc)
{
    painter.drawLine(top, knob);
    QPainterPath path;
    path.addEllipse(disc);
    painter.fillPath(path, QBrush(kBlue));
}

void paintSquares(QPainter &painter, std::initializer_list<QPoint> topLefts)
{
    painter.setPen(QPen(QBrush(QColor(0, 255, 0)), 1.5, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    for (const QPoint &topLeft : topLefts)
        painter.drawRect(topLeft.x(), topLeft.y(), 8, 8);
}

void paintFrameOfFramedGraph(QPainter &painter)
{
    painter.setPen(framePen());
    painter.drawRect(QRect(100, 100, 101, 51));
    paintKnob(painter, {150, 100}, {150, 70}, {140, 60, 20, 20});
    paintSquares(painter, {{146, 146}, {96, 146}, {96, 121}, {96, 96}, {196, 146}, {196, 121}, {196, 96}, {146, 96}});
}

// Compares on a plain painter, an antialiased one and one turned into an object's frame, each with a brush and
// without.
template <typename Expected>
void expectSameOnEveryPainter(CInkGraph &graph, Expected expected)
{
    QMatrix turned;
    turned.translate(150, 125);
    turned.rotate(33);
    turned.translate(-150, -125);
    for (const QMatrix &matrix : {QMatrix(), turned}) {
        for (const bool antialiased : {false, true}) {
            for (const QBrush &brush : {QBrush(Qt::NoBrush), QBrush(QColor(200, 100, 0, 90))}) {
                const auto prepare = [&](QPainter &painter) {
                    painter.setRenderHint(QPainter::Antialiasing, antialiased);
                    painter.setWorldTransform(QTransform(matrix));
                    painter.setPen(QPen(Qt::red, 7));
                    painter.setBrush(brush);
                };
                EXPECT_TRUE(samePixels(painted([&](QPainter &painter) {
                                           prepare(painter);
                                           graph.DrawHotShape(painter);
                                       }),
                                       painted([&](QPainter &painter) {
                                           prepare(painter);
                                           expected(painter);
                                       })))
                    << "antialiased " << antialiased << ", brush " << brush.style() << ", turned "
                    << !matrix.isIdentity();
            }
        }
    }
}

} // namespace

TEST(CInkGraphDrawHotShape, ownObjectShowsFrameKnobAndSquares)
{
    FramedGraph graph;
    expectSameOnEveryPainter(graph, paintFrameOfFramedGraph);
    graph.SetOwnerIP(0x0A000001u);
    graph.SetDrawerIP(0x0A000001u);
    expectSameOnEveryPainter(graph, paintFrameOfFramedGraph);
}

TEST(CInkGraphDrawHotShape, aFewPixelsOfTheHandles)
{
    FramedGraph graph;
    const QImage image = painted([&](QPainter &painter) { graph.DrawHotShape(painter); });
    EXPECT_EQ(image.pixel(150, 70), 0xFF4040FFu) << "centre of the knob";
    EXPECT_EQ(image.pixel(150, 85), 0xFF4040FFu) << "line to the knob";
    EXPECT_EQ(image.pixel(96, 98), 0xFF00FF00u) << "left side of the top left square";
    EXPECT_EQ(image.pixel(100, 97), 0u) << "inside the top left square";
    EXPECT_EQ(image.pixel(150, 125), 0u) << "inside the frame";
}

TEST(CInkGraphDrawHotShape, brushOfThePainterFillsFrameAndSquares)
{
    FramedGraph graph;
    const QImage image = painted([&](QPainter &painter) {
        painter.setBrush(QColor(255, 255, 0));
        graph.DrawHotShape(painter);
    });
    EXPECT_EQ(image.pixel(120, 130), 0xFFFFFF00u) << "frame";
    EXPECT_EQ(image.pixel(99, 98), 0xFFFFFF00u) << "square, outside the frame";
    EXPECT_EQ(image.pixel(150, 70), 0xFF4040FFu) << "knob";
}

TEST(CInkGraphDrawHotShape, overlappingSquaresLieInTheirOrder)
{
    PlainGraph graph{{100, 100}, {106, 105}};
    graph.SetHotData(0, 0);
    expectSameOnEveryPainter(graph, [](QPainter &painter) {
        painter.setPen(framePen());
        painter.drawRect(QRect(100, 100, 7, 6));
        paintKnob(painter, {103, 100}, {103, 70}, {93, 60, 20, 20});
        // The middle of the sides lies at 102.5.
        paintSquares(painter, {{99, 101}, {96, 101}, {96, 98}, {96, 96}, {102, 101}, {102, 98}, {102, 96}, {99, 96}});
    });
}

TEST(CInkGraphDrawHotShape, squaresTruncateTowardZeroAndTheKnobDoesNot)
{
    FramedGraph graph;
    graph.m_rcHot = QRect(QPoint(30, 40), QPoint(60, 70));
    graph.m_hotPts[0] = {50.75, 20.25};
    graph.m_hotPts[1] = {-0.75, 99.99};
    graph.m_hotPts[2] = {1.5, -3.5};
    graph.m_hotPts[3] = {70.5, 30.5};
    graph.m_hotPts[4] = {150.999, 150.001};
    graph.m_hotPts[5] = {200.5, 200.5};
    graph.m_hotPts[6] = {220.5, 10.5};
    graph.m_hotPts[7] = {240, 250};
    graph.m_hotPts[8] = {300.25, 60.5};
    expectSameOnEveryPainter(graph, [](QPainter &painter) {
        painter.setPen(framePen());
        painter.drawRect(QRect(30, 40, 31, 31));
        paintKnob(painter, {50.75, 20.25}, {300.25, 60.5}, {290.25, 50.5, 20, 20});
        paintSquares(painter, {{-4, 95}, {196, 196}, {-3, -7}, {146, 146}, {236, 246}, {66, 26}, {216, 6}, {46, 16}});
    });
}

TEST(CInkGraphDrawHotShape, objectOfAnotherIsShaded)
{
    FramedGraph graph;
    const auto shade = [](QPainter &painter) {
        painter.fillRect(QRect(100, 100, 101, 51), QBrush(QColor(50, 50, 50, 60), Qt::SolidPattern));
    };
    graph.SetOwnerIP(1);
    expectSameOnEveryPainter(graph, shade);
    graph.SetOwnerIP(0);
    graph.SetDrawerIP(0x80000000u);
    expectSameOnEveryPainter(graph, shade);

    const QImage image = painted([&](QPainter &painter) { graph.DrawHotShape(painter); });
    EXPECT_EQ(image.pixelColor(100, 100).alpha(), 60);
    EXPECT_EQ(image.pixelColor(200, 150).alpha(), 60);
    EXPECT_EQ(image.pixel(201, 150), 0u);
    EXPECT_EQ(image.pixel(200, 151), 0u);
    EXPECT_EQ(image.pixel(150, 70), 0u) << "no knob";
}

TEST(CInkGraphDrawHotShape, flagsOfTheObjectDoNotMatter)
{
    for (const bool foreign : {false, true}) {
        FramedGraph plain;
        FramedGraph flagged;
        plain.SetOwnerIP(foreign);
        flagged.SetOwnerIP(foreign);
        flagged.m_bHideHotShape = 1;
        flagged.m_bEditMode = 1;
        flagged.m_bFinished = 1;
        flagged.m_modifyType = MT_ROTATE;
        flagged.m_fRotateAngle = 45; // the caller turns the painter, not the handles
        flagged.m_nWidth = 20;
        flagged.m_color = Qt::red;
        EXPECT_TRUE(samePixels(painted([&](QPainter &painter) { flagged.DrawHotShape(painter); }),
                               painted([&](QPainter &painter) { plain.DrawHotShape(painter); })));
    }
}

TEST(CInkGraphDrawHotShape, painterIsLeftAsItWas)
{
    for (const bool foreign : {false, true}) {
        FramedGraph graph;
        graph.SetOwnerIP(foreign);
        QImage image = blankCanvas();
        QPainter painter(&image);
        painter.setPen(Qt::magenta);
        painter.save();

        const QPen pen(QColor(1, 2, 3), 2.5, Qt::DotLine, Qt::RoundCap, Qt::MiterJoin);
        painter.setPen(pen);
        painter.setBrush(QBrush(Qt::cyan, Qt::Dense3Pattern));
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setOpacity(0.5);
        painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
        painter.setWorldTransform(QTransform::fromTranslate(3, 4));
        painter.setClipRect(QRect(10, 10, 300, 200));
        painter.setBackgroundMode(Qt::OpaqueMode);
        graph.DrawHotShape(painter);
        EXPECT_EQ(painter.pen(), pen);
        EXPECT_EQ(painter.brush(), QBrush(Qt::cyan, Qt::Dense3Pattern));
        EXPECT_TRUE(painter.testRenderHint(QPainter::Antialiasing));
        EXPECT_EQ(painter.opacity(), 0.5);
        EXPECT_EQ(painter.compositionMode(), QPainter::CompositionMode_SourceAtop);
        EXPECT_EQ(painter.worldTransform(), QTransform::fromTranslate(3, 4));
        EXPECT_EQ(painter.clipBoundingRect(), QRectF(10, 10, 300, 200));
        EXPECT_EQ(painter.backgroundMode(), Qt::OpaqueMode);

        painter.restore();
        EXPECT_EQ(painter.pen().color(), QColor(Qt::magenta)) << "as many restores as saves";
    }
}

TEST(CInkGraphDrawHotShape, objectIsNotChanged)
{
    FramedGraph graph;
    painted([&](QPainter &painter) { graph.DrawHotShape(painter); });
    EXPECT_EDGES(graph.m_rcHot, 100, 100, 200, 150);
    EXPECT_POINT(graph.m_hotPts[8], 150, 70);
    EXPECT_POINT(graph.m_ptCenter, 150, 125);
    EXPECT_EQ(graph.m_bEditMode, 0);
}

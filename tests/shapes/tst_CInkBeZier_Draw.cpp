// The cubic curve as it is painted. What it shares with the polygon is in tst_GestureShapes_Draw.cpp.

#include "GestureShape.h"
#include "PainterState.h"

#include <QtGui/QPainterPath>

#include <gtest/gtest.h>

#include <climits>

namespace {

using EditedCurve = DraggedCurve::Edited;

QPen squarePen(const QColor &color, double width)
{
    return {QBrush(color), width, Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin};
}

void paintCubic(QPainter &painter, const QPen &pen, const QPointF (&points)[4])
{
    QPainterPath path(points[0]);
    path.cubicTo(points[1], points[2], points[3]);
    painter.setPen(pen);
    painter.drawPath(path);
}

void paintOutline(QPainter &painter, const QPen &pen)
{
    paintCubic(painter, pen, {{100, 100}, {130, 150}, {170, 100}, {200, 150}});
}

QImage cubic(const QPen &pen, const QPointF (&points)[4])
{
    return painted([&](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        paintCubic(painter, pen, points);
    });
}

QImage outline(const QPen &pen)
{
    return painted([&](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        paintOutline(painter, pen);
    });
}

QRect clipAfterDraw(CInkBeZier &curve, QRect rect)
{
    QImage image = blankCanvas();
    QPainter painter(&image);
    painter.setClipRect(QRect(0, 0, 5, 5));
    curve.Draw(painter, rect);
    return clipOf(painter);
}

} // namespace

TEST(CInkBeZier, eachStageIsPaintedAsItStands)
{
    const QPen pen = squarePen(QColor(10, 120, 200), 4);
    Curve curve;
    curve.SetColor(QColor(10, 120, 200));
    feed(curve, PT_DOWN, 100, 100);
    feed(curve, PT_MOVE, 200, 150);
    EXPECT_TRUE(samePixels(drawn(curve), cubic(pen, {{100, 100}, {100, 100}, {200, 150}, {200, 150}})));
    EXPECT_EQ(drawn(curve).pixel(150, 125), 0xff0a78c8);
    feed(curve, PT_UP, 200, 150);
    feed(curve, PT_MOVE, 130, 190);
    EXPECT_TRUE(samePixels(drawn(curve), cubic(pen, {{100, 100}, {130, 190}, {200, 150}, {200, 150}})));
    feed(curve, PT_UP, 130, 150);
    feed(curve, PT_MOVE, 190, 60);
    EXPECT_TRUE(samePixels(drawn(curve), cubic(pen, {{100, 100}, {130, 150}, {190, 60}, {200, 150}})));
}

TEST(CInkBeZier, pointsArePaintedUntruncated)
{
    BentCurve curve;
    curve.m_graphData = {QPointF(100.5, 100.25), QPointF(130.5, 150.75), QPointF(170.25, 100), QPointF(200, 150.5)};
    EXPECT_TRUE(samePixels(
        drawn(curve), cubic(squarePen(Qt::black, 4), {{100.5, 100.25}, {130.5, 150.75}, {170.25, 100}, {200, 150.5}})));
}

TEST(CInkBeZier, givenStylesDoNotChangeTheStroke)
{
    for (const Qt::PenCapStyle cap : {Qt::FlatCap, Qt::SquareCap, Qt::RoundCap}) {
        for (const Qt::PenStyle style : {Qt::NoPen, Qt::SolidLine, Qt::DashLine, Qt::DotLine}) {
            CInkBeZier curve(cap, Qt::FlatCap, style);
            feed(curve, PT_DOWN, 100, 100);
            feed(curve, PT_MOVE, 200, 150);
            EXPECT_TRUE(samePixels(drawn(curve),
                                   cubic(squarePen(Qt::black, 4), {{100, 100}, {100, 100}, {200, 150}, {200, 150}})));
        }
    }
}

TEST(CInkBeZier, curveTakesTheBrushThatThePainterCarries)
{
    BentCurve curve;
    curve.m_graphData[2] = QPointF(170, 150);
    const QImage image = painted([&](QPainter &painter) {
        QRect all(0, 0, 400, 300);
        painter.setBrush(QColor(0, 200, 0, 90));
        curve.Draw(painter, all);
    });
    const QImage expected = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(QColor(0, 200, 0, 90));
        paintCubic(painter, squarePen(Qt::black, 4), {{100, 100}, {130, 150}, {170, 150}, {200, 150}});
    });
    EXPECT_TRUE(samePixels(image, expected));
    EXPECT_EQ(qAlpha(image.pixel(140, 130)), 90);
}

TEST(CInkBeZier, clipStaysOnThePainter)
{
    BentCurve bent;
    EXPECT_EDGES(clipAfterDraw(bent, QRect(0, 0, 50, 50)), 0, 0, 215, 165);
    EXPECT_EDGES(clipAfterDraw(bent, QRect()), 84, 84, 215, 165);
    EXPECT_EDGES(clipAfterDraw(bent, QRect(300, 10, 50, 50)), 84, 10, 349, 165);
}

TEST(CInkBeZier, clipOfAnEditedCurveTakesInTheRepaintedRectangle)
{
    EditedCurve edited;
    EXPECT_EDGES(clipAfterDraw(edited, QRect(0, 0, 50, 50)), 0, 0, 237, 212);
    EXPECT_EDGES(clipAfterDraw(edited, QRect()), 59, 34, 237, 212);
    edited.FinishGraph();
    EXPECT_EDGES(clipAfterDraw(edited, QRect(0, 0, 50, 50)), 0, 0, 237, 212);
}

TEST(CInkBeZier, wideCurveIsCutOffAtItsMargin)
{
    BentCurve curve;
    curve.SetWidth(60);
    const QImage image = painted([&](QPainter &painter) {
        QRect none;
        curve.Draw(painter, none);
    });
    const QImage expected = painted([](QPainter &painter) {
        painter.setClipRect(QRect(84, 84, 132, 82));
        painter.setRenderHint(QPainter::Antialiasing);
        paintOutline(painter, squarePen(Qt::black, 60));
    });
    EXPECT_TRUE(samePixels(image, expected));
    EXPECT_FALSE(samePixels(image, outline(squarePen(Qt::black, 60))));
}

TEST(CInkBeZier, abandonedCurveIsPaintedAsFarAsItGot)
{
    Curve curve;
    drag(curve, {100, 100}, {101, 100});
    ASSERT_EQ(curve.m_bFinished, 1);
    Layers layers;
    layers.draw(curve);
    const QImage expected = cubic(squarePen(Qt::black, 4), {{100, 100}, {100, 100}, {101, 100}, {101, 100}});
    EXPECT_FALSE(isBlank(expected));
    EXPECT_TRUE(samePixels(layers.surface, expected));
    EXPECT_TRUE(samePixels(layers.ink, expected));
    EXPECT_TRUE(samePixels(layers.page, expected));
    EXPECT_TRUE(isBlank(layers.background));
}

TEST(CInkBeZier, curveWithoutExtentLeavesNoMark)
{
    Curve clicked;
    drag(clicked, {100, 100}, {100, 100});
    ASSERT_EQ(clicked.m_bFinished, 1);
    EXPECT_TRUE(isBlank(drawn(clicked)));
    EXPECT_EDGES(clipAfterDraw(clicked, QRect()), 84, 84, 115, 115);

    Curve neverPressed;
    feed(neverPressed, PT_UP, 100, 100);
    ASSERT_EQ(neverPressed.m_bFinished, 1);
    EXPECT_TRUE(isBlank(drawn(neverPressed)));
    EXPECT_EDGES(clipAfterDraw(neverPressed, QRect()), 0, 0, 4, 4);
}

TEST(CInkBeZier, extremeCoordinatesArePaintedWithoutHarm)
{
    for (const int width : {-7, 0, 1, 10}) {
        for (const int far : {INT_MIN, -2'000'000'000, 16'777'217, INT_MAX}) {
            Curve curve;
            curve.SetWidth(width);
            curve.ShowDrawerName(1);
            curve.ShowDrawerIcon(1);
            drag(curve, {far, 80}, {INT_MAX, far});
            drawn(curve);
            drag(curve, {50, far}, {INT_MIN, INT_MAX});
            drawn(curve);
            drag(curve, {50, far}, {far, far});
            drawn(curve);
            drag(curve, {50, far}, {far, INT_MIN});
            curve.FinishGraph();
            drawn(curve);
        }
    }
}

// The polygon as it is painted. What it shares with the curve is in tst_GestureShapes_Draw.cpp.

#include "GestureShape.h"
#include "PainterState.h"

#include <QtGui/QPainterPath>

#include <gtest/gtest.h>

#include <climits>

namespace {

using EditedPolygon = DoubleClickedPolygon::Edited;

QPen roundPen(const QColor &color, double width)
{
    return {QBrush(color), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

void paintOutline(QPainter &painter, const QPen &pen, bool closed)
{
    painter.setPen(pen);
    painter.drawPath(trianglePath(closed));
}

QImage outline(const QPen &pen, bool closed)
{
    return painted([&](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        paintOutline(painter, pen, closed);
    });
}

QImage segment(const QPen &pen, const QPointF &from, const QPointF &to)
{
    return painted([&](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(pen);
        QPainterPath path(from);
        path.lineTo(to);
        painter.drawPath(path);
    });
}

QRect clipAfterDraw(CInkPolygon &polygon, QRect rect)
{
    QImage image = blankCanvas();
    QPainter painter(&image);
    painter.setClipRect(QRect(0, 0, 5, 5));
    polygon.Draw(painter, rect);
    return clipOf(painter);
}

} // namespace

TEST(CInkPolygon, growingPolygonIsOpen)
{
    GrowingPolygon polygon;
    polygon.SetColor(QColor(10, 120, 200));
    const QImage image = drawn(polygon);
    EXPECT_TRUE(samePixels(image, outline(roundPen(QColor(10, 120, 200), 4), false)));
    EXPECT_EQ(image.pixel(125, 125), 0u); // half way back to the start
    EXPECT_NE(image.pixel(175, 130), 0u); // on the rubber band
}

TEST(CInkPolygon, firstRubberBandIsPainted)
{
    CInkPolygon polygon;
    feed(polygon, PT_DOWN, 100, 100);
    feed(polygon, PT_MOVE, 180, 130);
    EXPECT_TRUE(samePixels(drawn(polygon), segment(roundPen(Qt::black, 4), {100, 100}, {180, 130})));
}

TEST(CInkPolygon, editedPolygonIsClosed)
{
    EditedPolygon polygon;
    polygon.m_bHideHotShape = 1;
    const QImage image = drawn(polygon);
    EXPECT_TRUE(samePixels(image, outline(roundPen(Qt::black, 4), true)));
    EXPECT_NE(image.pixel(125, 125), 0u);
    EXPECT_FALSE(samePixels(image, outline(roundPen(Qt::black, 4), false)));
}

TEST(CInkPolygon, polygonClosedOnItsStartIsPaintedTheSame)
{
    GrowingPolygon polygon;
    feed(polygon, PT_UP, 150, 150);
    feed(polygon, PT_UP, 103, 104);
    polygon.FinishGraph();
    EXPECT_TRUE(samePixels(drawn(polygon), outline(roundPen(Qt::black, 4), true)));
}

TEST(CInkPolygon, pointsArePaintedUntruncated)
{
    CInkPolygon polygon;
    feed(polygon, PT_DOWN, 100, 100);
    polygon.m_graphData = {QPointF(100.5, 100.25), QPointF(180.75, 130.5)};
    EXPECT_TRUE(samePixels(drawn(polygon), segment(roundPen(Qt::black, 4), {100.5, 100.25}, {180.75, 130.5})));
}

TEST(CInkPolygon, polygonTakesTheBrushThatThePainterCarries)
{
    GrowingPolygon polygon;
    const QImage image = painted([&](QPainter &painter) {
        QRect all(0, 0, 400, 300);
        painter.setBrush(QColor(0, 200, 0, 90));
        polygon.Draw(painter, all);
    });
    const QImage expected = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(QColor(0, 200, 0, 90));
        paintOutline(painter, roundPen(Qt::black, 4), false);
    });
    EXPECT_TRUE(samePixels(image, expected));
    EXPECT_EQ(qAlpha(image.pixel(150, 120)), 90);
}

TEST(CInkPolygon, clipStaysOnThePainter)
{
    GrowingPolygon growing;
    EXPECT_EDGES(clipAfterDraw(growing, QRect(0, 0, 50, 50)), 0, 0, 211, 161);
    EXPECT_EDGES(clipAfterDraw(growing, QRect()), 88, 88, 211, 161);
    growing.FinishGraph();
    EXPECT_EDGES(clipAfterDraw(growing, QRect(0, 0, 50, 50)), 0, 0, 211, 161);

    // Once it is edited, its own rectangle alone.
    EditedPolygon edited;
    EXPECT_EDGES(clipAfterDraw(edited, QRect(0, 0, 50, 50)), 59, 34, 237, 212);
    edited.FinishGraph();
    EXPECT_EDGES(clipAfterDraw(edited, QRect(0, 0, 50, 50)), 59, 34, 237, 212);
}

TEST(CInkPolygon, abandonedPolygonIsPaintedAsFarAsItsRubberBand)
{
    CInkPolygon polygon;
    feed(polygon, PT_DOWN, 100, 100);
    feed(polygon, PT_MOVE, 180, 130);
    feed(polygon, PT_UP, 101, 101);
    ASSERT_EQ(polygon.m_bFinished, 1);
    Layers layers;
    layers.draw(polygon);
    const QImage expected = segment(roundPen(Qt::black, 4), {100, 100}, {180, 130});
    EXPECT_FALSE(isBlank(expected));
    EXPECT_TRUE(samePixels(layers.surface, expected));
    EXPECT_TRUE(samePixels(layers.ink, expected));
    EXPECT_TRUE(samePixels(layers.page, expected));
    EXPECT_TRUE(isBlank(layers.background));
    EXPECT_EDGES(clipAfterDraw(polygon, QRect(0, 0, 50, 50)), 0, 0, 191, 141);
}

TEST(CInkPolygon, clickedPolygonLeavesNoMark)
{
    CInkPolygon polygon;
    feed(polygon, PT_DOWN, 100, 100);
    EXPECT_TRUE(samePixels(drawn(polygon), segment(roundPen(Qt::black, 4), {100, 100}, {100, 100})));
    EXPECT_TRUE(isBlank(drawn(polygon)));
    feed(polygon, PT_UP, 100, 100);
    EXPECT_TRUE(isBlank(drawn(polygon)));
    EXPECT_EDGES(clipAfterDraw(polygon, QRect()), 88, 88, 111, 111);
}

TEST(CInkPolygon, extremeCoordinatesArePaintedWithoutHarm)
{
    for (const int width : {-7, 0, 1, 10}) {
        for (const int far : {INT_MIN, -2'000'000'000, 16'777'217, INT_MAX}) {
            CInkPolygon polygon;
            polygon.SetWidth(width);
            polygon.ShowDrawerName(1);
            polygon.ShowDrawerIcon(1);
            feed(polygon, PT_DOWN, far, 80);
            drawn(polygon);
            drag(polygon, {INT_MAX, far}, {50, far});
            drawn(polygon);
            feed(polygon, PT_DBLCLK, 0, 0);
            feed(polygon, PT_UP, far, far);
            drawn(polygon);
            drag(polygon, {50, 80}, {far, INT_MIN});
            polygon.FinishGraph();
            drawn(polygon);
        }
    }
}

// The pencil: one antialiased path through all positions.

#include "CInkPencil.h"
#include "Canvas.h"
#include "Exact.h"
#include "MessageLog.h"
#include "PainterState.h"

#include <QtGui/QPainterPath>

#include <gtest/gtest.h>

#include <climits>

namespace {

const QColor kTranslucentRed(255, 0, 0, 120);

QPen roundPen(const QColor &color, double width)
{
    return {QBrush(color), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

// (100,80), (150,40), (200,140), (120,150), (110,60), with the start of each segment as its control point.
QPainterPath zigzagPath()
{
    QPainterPath path(QPointF(100, 80));
    path.quadTo(QPointF(100, 80), QPointF(150, 40));
    path.quadTo(QPointF(150, 40), QPointF(200, 140));
    path.quadTo(QPointF(200, 140), QPointF(120, 150));
    path.quadTo(QPointF(120, 150), QPointF(110, 60));
    return path;
}

QImage zigzag(const QPen &pen)
{
    return painted([&](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(pen);
        painter.drawPath(zigzagPath());
    });
}

class Zigzag : public CInkPencil
{
public:
    Zigzag()
    {
        feed(*this, PT_DOWN, 100, 80);
        feed(*this, PT_MOVE, 150, 40);
        feed(*this, PT_MOVE, 200, 140);
        feed(*this, PT_MOVE, 120, 150);
        feed(*this, PT_MOVE, 110, 60);
    }
};

QRect clipAfterDraw(CInkPencil &pencil, QRect rect)
{
    QImage image = blankCanvas();
    QPainter painter(&image);
    painter.setClipRect(QRect(0, 0, 5, 5));
    pencil.Draw(painter, rect);
    return clipOf(painter);
}

} // namespace

TEST(CInkPencil, newPencilHasItsStyleFields)
{
    CInkPencil pencil;
    EXPECT_EQ(pencil.m_nPenParam, 32);
    EXPECT_EQ(pencil.m_nCapStyle, 32);
    EXPECT_EQ(pencil.m_nPenStyle, 1);
    EXPECT_EQ(pencil.m_nWidth, 1);
    EXPECT_TRUE(pencil.m_graphData.isEmpty());
    EXPECT_GE(pencil.m_graphData.capacity(), 10);
    EXPECT_EQ(pencil.GetPointCount(), 0);
    EXPECT_EQ(pencil.FinishGraph(), 0);
}

TEST(CInkPencil, styleFieldsStay)
{
    Zigzag pencil;
    pencil.SetWidth(7);
    pencil.FinishGraph();
    EXPECT_EQ(pencil.m_nPenParam, 32);
    EXPECT_EQ(pencil.m_nCapStyle, 32);
    EXPECT_EQ(pencil.m_nPenStyle, 1);
}

TEST(CInkPencil, iconSitsAboveTheLastPosition)
{
    CInkPencil pencil;
    EXPECT_NULL_RECT(pencil.GetDisIconRect());
    pencil.m_graphData = {QPointF(5, 5), QPointF(100.7, 50.2)};
    EXPECT_EDGES(pencil.GetDisIconRect(), 100, 20, 129, 49);
    pencil.m_graphData = {QPointF(-3.7, -2.2)};
    EXPECT_EDGES(pencil.GetDisIconRect(), -3, -32, 26, -3);
}

TEST(CInkPencil, iconIsCoveredWhileTheStrokeGrows)
{
    CInkPencil pencil;
    pencil.ShowDrawerIcon(1);
    feed(pencil, PT_DOWN, 100, 100);
    EXPECT_EDGES(feed(pencil, PT_MOVE, 150, 130), 80, 80, 179, 150);
    EXPECT_EDGES(pencil.m_rcIcon, 150, 100, 179, 129);
    // Frame (68,68) to (182,162); the release still covers the icon of the segment before it.
    EXPECT_EDGES(feed(pencil, PT_UP, 150, 130), 68, 68, 182, 162);
    EXPECT_EDGES(pencil.GetUpdateRect(), 68, 68, 182, 162);
}

TEST(CInkPencil, emptyStrokePaintsNothingAndSetsNoClip)
{
    CInkPencil pencil;
    EXPECT_TRUE(isBlank(drawn(pencil)));
    EXPECT_EDGES(clipAfterDraw(pencil, QRect(0, 0, 400, 300)), 0, 0, 4, 4);
}

TEST(CInkPencil, strokeOfOnePointPaintsNothing)
{
    CInkPencil pencil;
    pencil.SetWidth(20);
    feed(pencil, PT_DOWN, 100, 80);
    EXPECT_TRUE(isBlank(drawn(pencil)));
    EXPECT_EDGES(clipAfterDraw(pencil, QRect(10, 10, 50, 50)), 10, 10, 59, 59);
    pencil.FinishGraph();
    EXPECT_TRUE(isBlank(drawn(pencil)));
    EXPECT_EDGES(clipAfterDraw(pencil, QRect(10, 10, 50, 50)), 68, 48, 132, 112);
}

TEST(CInkPencil, clickPaintsNothing)
{
    CInkPencil pencil;
    pencil.SetWidth(20);
    drag(pencil, {100, 80}, {100, 80});
    EXPECT_TRUE(isBlank(drawn(pencil)));
}

TEST(CInkPencil, strokeOfTwoPointsIsASegment)
{
    CInkPencil pencil;
    pencil.SetWidth(10);
    feed(pencil, PT_DOWN, 100, 80);
    feed(pencil, PT_MOVE, 200, 80);
    const QImage image = drawn(pencil);
    const QImage expected = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(roundPen(Qt::black, 10));
        QPainterPath path(QPointF(100, 80));
        path.quadTo(QPointF(100, 80), QPointF(200, 80));
        painter.drawPath(path);
    });
    EXPECT_TRUE(samePixels(image, expected));
    EXPECT_EQ(image.pixel(150, 75), 0xff000000);
    EXPECT_EQ(image.pixel(150, 84), 0xff000000);
    EXPECT_EQ(image.pixel(150, 74), 0u);
    EXPECT_EQ(image.pixel(96, 79), 0xff000000); // the round cap
    EXPECT_EQ(image.pixel(95, 75), 0u);
}

TEST(CInkPencil, strokeIsOnePath)
{
    for (const int width : {0, 1, 2, 9, 25}) {
        SCOPED_TRACE(width);
        Zigzag pencil;
        pencil.SetWidth(width);
        pencil.SetColor(kTranslucentRed); // one path: crossings are no darker
        const QImage image = drawn(pencil);
        EXPECT_FALSE(isBlank(image));
        EXPECT_TRUE(samePixels(image, zigzag(roundPen(kTranslucentRed, width))));
    }
    Zigzag pencil;
    pencil.SetWidth(25);
    pencil.SetColor(kTranslucentRed);
    EXPECT_EQ(qAlpha(drawn(pencil).pixel(115, 70)), 120);
}

TEST(CInkPencil, unfinishedAndFinishedStrokesLookAlike)
{
    Zigzag pencil;
    pencil.SetWidth(4);
    const QImage growing = drawn(pencil);
    pencil.FinishGraph();
    EXPECT_TRUE(samePixels(drawn(pencil), growing));
    EXPECT_TRUE(samePixels(growing, zigzag(roundPen(Qt::black, 4))));
}

TEST(CInkPencil, styleFieldsAreNotPaintedWith)
{
    Zigzag pencil;
    pencil.SetWidth(12);
    pencil.m_nCapStyle = Qt::FlatCap;
    pencil.m_nPenStyle = Qt::DashLine;
    pencil.m_nPenParam = 5;
    EXPECT_TRUE(samePixels(drawn(pencil), zigzag(roundPen(Qt::black, 12))));
}

TEST(CInkPencil, pathRunsThroughUnroundedPoints)
{
    CInkPencil pencil;
    pencil.SetWidth(3);
    pencil.m_graphData = {QPointF(100.25, 80.5), QPointF(200.75, 140.125)};
    const QImage expected = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(roundPen(Qt::black, 3));
        QPainterPath path(QPointF(100.25, 80.5));
        path.quadTo(QPointF(100.25, 80.5), QPointF(200.75, 140.125));
        painter.drawPath(path);
    });
    EXPECT_TRUE(samePixels(drawn(pencil), expected));
}

TEST(CInkPencil, clipOfAGrowingStrokeHoldsTheNewestSegment)
{
    Zigzag pencil;
    EXPECT_EDGES(clipAfterDraw(pencil, QRect(0, 0, 50, 50)), 0, 0, 140, 170);
    EXPECT_EDGES(clipAfterDraw(pencil, QRect()), 90, 40, 140, 170);
}

TEST(CInkPencil, clipOfAFinishedStrokeIsItsFrame)
{
    Zigzag pencil;
    pencil.FinishGraph();
    EXPECT_EDGES(clipAfterDraw(pencil, QRect(0, 0, 400, 300)), 68, 8, 232, 182);
    EXPECT_EDGES(clipAfterDraw(pencil, QRect()), 68, 8, 232, 182);
}

TEST(CInkPencil, finishedStrokeWiderThanItsFrameIsCut)
{
    CInkPencil pencil;
    pencil.SetWidth(100);
    drag(pencil, {200, 150}, {200, 160});
    const QImage image = drawn(pencil);
    EXPECT_EQ(image.pixel(168, 150), 0xff000000);
    EXPECT_EQ(image.pixel(167, 150), 0u);
    EXPECT_EQ(image.pixel(232, 150), 0xff000000);
    EXPECT_EQ(image.pixel(233, 150), 0u);
    EXPECT_EQ(image.pixel(200, 118), 0xff000000);
    EXPECT_EQ(image.pixel(200, 117), 0u);
}

TEST(CInkPencil, drawLeavesTheCallersRectangle)
{
    Zigzag pencil;
    QImage image = blankCanvas();
    QPainter painter(&image);
    QRect rect(1, 2, 3, 4);
    pencil.Draw(painter, rect);
    EXPECT_EDGES(rect, 1, 2, 3, 5);
}

TEST(CInkPencil, painterIsGivenBack)
{
    CInkPencil empty;
    Zigzag growing, finished;
    finished.FinishGraph();
    for (CInkPencil *pencil : std::initializer_list<CInkPencil *>{&empty, &growing, &finished}) {
        QImage image = blankCanvas();
        QPainter painter(&image);
        QRect all = image.rect();
        setOddState(painter);
        pencil->Draw(painter, all);
        expectOddState(painter);
        EXPECT_EQ(painter.hasClipping(), pencil != &empty);

        const MessageLog log;
        painter.restore(); // nothing to restore
        EXPECT_EQ(log.lines.size(), 1);
    }
}

TEST(CInkPencil, painterKeepsItsTransformWhileTheStrokeIsPainted)
{
    CInkPencil pencil;
    pencil.SetWidth(6);
    feed(pencil, PT_DOWN, 100, 80);
    feed(pencil, PT_MOVE, 200, 140);
    pencil.m_fRotateAngle = 45;
    const QImage image = painted([&](QPainter &painter) {
        QRect all(0, 0, 400, 300);
        painter.translate(15, 25);
        pencil.Draw(painter, all);
    });
    const QImage expected = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(roundPen(Qt::black, 6));
        QPainterPath path(QPointF(115, 105));
        path.quadTo(QPointF(115, 105), QPointF(215, 165));
        painter.drawPath(path);
    });
    EXPECT_TRUE(samePixels(image, expected));
}

TEST(CInkPencil, paintingLogsNothing)
{
    const MessageLog log;
    Zigzag pencil;
    drawn(pencil);
    pencil.FinishGraph();
    drawn(pencil);
    EXPECT_TRUE(log.lines.isEmpty());
}

TEST(CInkPencil, growingStrokeIsPaintedOnTheSurfaceOnly)
{
    Zigzag pencil;
    pencil.SetWidth(4);
    pencil.ShowDrawerName(1);
    pencil.ShowDrawerIcon(1);
    pencil.m_sizeName = QSize(60, 20);
    Layers layers;
    layers.draw(pencil);
    EXPECT_TRUE(samePixels(layers.surface, zigzag(roundPen(Qt::black, 4))));
    EXPECT_TRUE(isBlank(layers.page));
    EXPECT_TRUE(isBlank(layers.background));
    EXPECT_TRUE(isBlank(layers.ink));
}

TEST(CInkPencil, finishedStrokeIsPaintedOnSurfaceInkAndPage)
{
    Zigzag pencil;
    pencil.SetWidth(4);
    pencil.SetColor(kTranslucentRed);
    pencil.FinishGraph();
    Layers layers;
    layers.draw(pencil);
    const QImage expected = zigzag(roundPen(kTranslucentRed, 4));
    EXPECT_TRUE(samePixels(layers.surface, expected));
    EXPECT_TRUE(samePixels(layers.ink, expected));
    EXPECT_TRUE(samePixels(layers.page, expected));
    EXPECT_TRUE(isBlank(layers.background));
}

TEST(CInkPencil, foreignStrokeIsNeverShaded)
{
    Zigzag pencil;
    pencil.SetWidth(4);
    pencil.SetOwnerIP(7);
    pencil.FinishGraph();
    pencil.m_bHideHotShape = 0;
    EXPECT_TRUE(samePixels(drawn(pencil), zigzag(roundPen(Qt::black, 4))));
}

TEST(CInkPencil, skipSuppressesAllPainting)
{
    Zigzag pencil;
    pencil.FinishGraph();
    Layers layers;
    layers.draw(pencil, 1);
    EXPECT_TRUE(isBlank(layers.surface));
    EXPECT_TRUE(isBlank(layers.page));
    EXPECT_TRUE(isBlank(layers.ink));
}

TEST(CInkPencil, emptiedListIsSurvived)
{
    Zigzag pencil;
    pencil.FinishGraph();
    pencil.m_graphData.clear();
    EXPECT_TRUE(isBlank(drawn(pencil)));
    EXPECT_NULL_RECT(pencil.GetDisIconRect());
    pencil.m_graphData = {QPointF(1, 1)};
    EXPECT_TRUE(isBlank(drawn(pencil)));
}

TEST(CInkPencil, extremeCoordinatesArePaintedWithoutHarm)
{
    for (const int width : {-7, 0, 1, 10}) {
        for (const int far : {INT_MIN, -2'000'000'000, 16'777'217, INT_MAX}) {
            CInkPencil pencil;
            pencil.SetWidth(width);
            pencil.ShowDrawerIcon(1);
            feed(pencil, PT_DOWN, far, 80);
            feed(pencil, PT_MOVE, 100, far);
            drawn(pencil);
            feed(pencil, PT_UP, far, far);
            drawn(pencil);
            pencil.GetDisIconRect();
        }
    }
}

// With such a start Qt divides by zero, or does not come to an end.
TEST(CInkPencil, strokeBeginsAtTheFirstPointThatIsANumber)
{
    CInkPencil plain;
    plain.m_graphData = {{20, 2}, {40, 30}, {70, 60}};
    const QImage expected = drawn(plain);
    EXPECT_FALSE(isBlank(expected));
    for (const double far : {qQNaN(), qInf(), -qInf(), 1.7e308}) {
        CInkPencil pencil;
        pencil.m_graphData = {{far, 9}, {9, far}, {20, 2}, {40, 30}, {70, 60}};
        EXPECT_TRUE(samePixels(drawn(pencil), expected)) << far;
        pencil.m_graphData = {{far, 9}, {9, far}};
        EXPECT_TRUE(isBlank(drawn(pencil))) << far;
    }
}

TEST(CInkPencil, painterThatIsNotActivePaintsNothing)
{
    const MessageLog log; // of Qt's complaints
    QPainter painter;
    for (const int points : {1, 2, 3, 40}) {
        CInkPencil pencil;
        for (int i = 0; i < points; ++i)
            feed(pencil, PT_MOVE, 10 * i, 20);
        QRect area(0, 0, 400, 300);
        pencil.Draw(painter, area);
        EXPECT_EDGES(area, 0, 0, 399, 299);
        EXPECT_FALSE(painter.isActive());
    }
}

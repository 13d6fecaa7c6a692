// The arrow line: a line in all but the two painter states that each Draw leaves behind.

#include "CInk1ArrowLine.h"
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

QImage segment(const QPen &pen, const QPointF &from, const QPointF &to)
{
    return painted([&](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(pen);
        painter.drawLine(from, to);
    });
}

QImage dot(const QPen &pen, const QPointF &at)
{
    return painted([&](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(pen);
        painter.drawPoint(at);
    });
}

void paintHandle(QPainter &painter, const QRectF &circle)
{
    painter.setPen(QPen(QBrush(QColor(0, 0, 255)), 3.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    painter.drawEllipse(circle);
    QPainterPath disc;
    disc.addEllipse(circle);
    painter.fillPath(disc, QColor(255, 255, 255));
}

// A painter that ends with saved states is reported by Qt; that report is expected here.
QImage drawnQuietly(CInkGraph &graph)
{
    const MessageLog log;
    return drawn(graph);
}

// The number of states on the painter's stack, which is emptied.
int takeSavedStates(QPainter &painter)
{
    const MessageLog warnings;
    int states = -1;
    while (warnings.lines.isEmpty()) {
        painter.restore();
        ++states;
    }
    return states;
}

} // namespace

TEST(CInk1ArrowLine, newArrowLineHasTheDefaultsOfTheLine)
{
    CInk1ArrowLine arrow;
    EXPECT_EQ(arrow.m_nWidth, 10);
    EXPECT_EQ(arrow.m_nHotRadius, 3);
    EXPECT_EQ(arrow.m_nPenStyle, 1);
    EXPECT_EQ(arrow.m_nCapStyle, 32);
    EXPECT_NULL_RECT(arrow.m_rcRegion);
    EXPECT_EQ(arrow.m_bEditMode, 0);
    EXPECT_EQ(arrow.m_bFinished, 0);
    EXPECT_EQ(arrow.m_bHideHotShape, 0);
    EXPECT_EQ(arrow.m_modifyType, 1);
    EXPECT_EQ(arrow.GetPointCount(), 0);
    ASSERT_EQ(arrow.m_graphData.size(), 2);
    EXPECT_POINT(arrow.m_graphData[0], 0.0, 0.0);
    EXPECT_POINT(arrow.m_graphData[1], 0.0, 0.0);
    EXPECT_EDGES(arrow.GetUpdateRect(), -60, -60, 60, 60);
}

TEST(CInk1ArrowLine, followsTheProtocolOfTheLine)
{
    CInk1ArrowLine arrow;
    EXPECT_FALSE(arrow.FinishGraph());
    EXPECT_EDGES(feed(arrow, PT_DOWN, 100, 80), -60, -60, 160, 140);
    EXPECT_EQ(arrow.GetPointCount(), 1);
    EXPECT_EDGES(feed(arrow, 99, 150, 120), 40, 20, 210, 180);
    EXPECT_EQ(arrow.IsSparePoint(), 1);
    EXPECT_EDGES(feed(arrow, PT_UP, 200, 140), 40, 20, 260, 200);
    EXPECT_EQ(arrow.m_bEditMode, 1);
    EXPECT_EDGES(arrow.m_rcRegion, 90, 70, 210, 150);
    EXPECT_EQ(arrow.AroundHotPts(QPoint(103, 80)), 3);
    EXPECT_EQ(arrow.AroundHotPts(QPoint(104, 80)), 10);

    feed(arrow, PT_DOWN, 200, 140);
    feed(arrow, PT_UP, 220, 150);
    EXPECT_POINT(arrow.m_graphData[1], 220.0, 150.0);
    feed(arrow, PT_DOWN, 350, 250);
    EXPECT_EQ(arrow.m_bFinished, 1);
    EXPECT_EQ(arrow.m_bHideHotShape, 1);
}

TEST(CInk1ArrowLine, releaseOnePixelAwayIsCommitted)
{
    CInk1ArrowLine arrow;
    drag(arrow, {100, 80}, {100, 81});
    EXPECT_EQ(arrow.m_bFinished, 1);
    EXPECT_EQ(arrow.m_bEditMode, 0);
}

TEST(CInk1ArrowLine, freshArrowLinePaintsNothingAndSavesNothing)
{
    CInk1ArrowLine arrow;
    QImage image = blankCanvas();
    QPainter painter(&image);
    QRect all = image.rect();
    arrow.Draw(painter, all);
    EXPECT_FALSE(painter.hasClipping());
    EXPECT_FALSE(painter.testRenderHint(QPainter::Antialiasing));
    EXPECT_EQ(takeSavedStates(painter), 0);
    painter.end();
    EXPECT_TRUE(isBlank(image));
}

TEST(CInk1ArrowLine, pressedArrowLineIsADot)
{
    CInk1ArrowLine arrow;
    arrow.SetWidth(20);
    feed(arrow, PT_DOWN, 100, 80);
    EXPECT_TRUE(samePixels(drawnQuietly(arrow), dot(roundPen(Qt::black, 20), {100, 80})));
    feed(arrow, PT_MOVE, 100, 80);
    EXPECT_TRUE(samePixels(drawnQuietly(arrow), dot(roundPen(Qt::black, 20), {100, 80})));
    feed(arrow, PT_UP, 100, 80);
    EXPECT_TRUE(samePixels(drawnQuietly(arrow), dot(roundPen(Qt::black, 20), {100, 80})));
}

TEST(CInk1ArrowLine, noArrowHeadIsPainted)
{
    CInk1ArrowLine arrow;
    arrow.SetColor(kTranslucentRed);
    feed(arrow, PT_DOWN, 100, 80);
    feed(arrow, PT_MOVE, 200, 140);
    EXPECT_TRUE(samePixels(drawnQuietly(arrow), segment(roundPen(kTranslucentRed, 10), {100, 80}, {200, 140})));
    // Where a chevron at the origin would be.
    EXPECT_EQ(drawnQuietly(arrow).pixel(1, 1), 0u);
}

TEST(CInk1ArrowLine, dashStyleAndCapAreThoseOfTheLine)
{
    CInk1ArrowLine arrow;
    arrow.m_nPenStyle = Qt::DashDotLine;
    arrow.m_nCapStyle = Qt::FlatCap;
    feed(arrow, PT_DOWN, 100, 80);
    feed(arrow, PT_MOVE, 300, 140);
    const QPen pen(QBrush(Qt::black), 10, Qt::DashDotLine, Qt::FlatCap, Qt::RoundJoin);
    EXPECT_TRUE(samePixels(drawnQuietly(arrow), segment(pen, {100, 80}, {300, 140})));
}

TEST(CInk1ArrowLine, editedArrowLineShowsItsHandles)
{
    CInk1ArrowLine arrow;
    drag(arrow, {100, 80}, {200, 140});
    const QImage expected = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(roundPen(Qt::black, 10));
        painter.drawLine(QPointF(100, 80), QPointF(200, 140));
        paintHandle(painter, QRectF(97, 77, 6, 6));
        paintHandle(painter, QRectF(197, 137, 6, 6));
    });
    EXPECT_TRUE(samePixels(drawnQuietly(arrow), expected));

    arrow.m_bHideHotShape = 1;
    EXPECT_TRUE(samePixels(drawnQuietly(arrow), segment(roundPen(Qt::black, 10), {100, 80}, {200, 140})));
}

TEST(CInk1ArrowLine, foreignArrowLineIsShaded)
{
    CInk1ArrowLine arrow;
    arrow.SetOwnerIP(1);
    drag(arrow, {100, 80}, {200, 140});
    const QImage expected = painted([](QPainter &painter) {
        painter.setClipRect(QRect(40, 20, 221, 181));
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(roundPen(Qt::black, 10));
        painter.drawLine(QPointF(100, 80), QPointF(200, 140));
        painter.fillRect(QRect(90, 70, 220, 160), QColor(0, 0, 0, 100));
    });
    EXPECT_TRUE(samePixels(drawnQuietly(arrow), expected));
}

TEST(CInk1ArrowLine, committedArrowLineShowsNoHandles)
{
    CInk1ArrowLine arrow;
    drag(arrow, {100, 80}, {200, 140});
    arrow.FinishGraph();
    arrow.m_bHideHotShape = 0;
    EXPECT_TRUE(samePixels(drawnQuietly(arrow), segment(roundPen(Qt::black, 10), {100, 80}, {200, 140})));
}

TEST(CInk1ArrowLine, eachDrawLeavesTwoSavedStates)
{
    CInk1ArrowLine pressed, dragged, edited, foreign, committed;
    feed(pressed, PT_DOWN, 100, 80);
    feed(dragged, PT_DOWN, 100, 80);
    feed(dragged, PT_MOVE, 200, 140);
    drag(edited, {100, 80}, {200, 140});
    drag(foreign, {100, 80}, {200, 140});
    foreign.SetOwnerIP(1);
    drag(committed, {100, 80}, {200, 140});
    committed.FinishGraph();

    for (CInk1ArrowLine *arrow : {&pressed, &dragged, &edited, &foreign, &committed}) {
        QImage image = blankCanvas();
        QPainter painter(&image);
        QRect all = image.rect();
        arrow->Draw(painter, all);
        EXPECT_EQ(takeSavedStates(painter), 2);
        arrow->Draw(painter, all);
        arrow->Draw(painter, all);
        EXPECT_EQ(takeSavedStates(painter), 4);
    }
}

TEST(CInk1ArrowLine, drawLeavesPenHintAndClipInForce)
{
    CInk1ArrowLine arrow;
    arrow.SetColor(kTranslucentRed);
    arrow.SetWidth(6);
    feed(arrow, PT_DOWN, 100, 80);
    feed(arrow, PT_MOVE, 150, 120);
    QImage image = blankCanvas();
    QPainter painter(&image);
    QRect rect(0, 0, 50, 50);
    painter.setBrush(Qt::yellow);
    painter.setWorldTransform(QTransform::fromTranslate(3, 5));
    arrow.Draw(painter, rect);
    EXPECT_EQ(painter.pen(), QPen(QBrush(kTranslucentRed), 6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    EXPECT_TRUE(painter.testRenderHint(QPainter::Antialiasing));
    EXPECT_EDGES(clipOf(painter), 0, 0, 186, 156);
    EXPECT_EQ(painter.brush(), QBrush(Qt::yellow));
    EXPECT_EQ(painter.worldTransform(), QTransform::fromTranslate(3, 5));
    EXPECT_EQ(takeSavedStates(painter), 2);
}

TEST(CInk1ArrowLine, firstRestoreKeepsTheClipAndTheSecondTakesIt)
{
    CInk1ArrowLine arrow;
    drag(arrow, {100, 80}, {200, 140});
    QImage image = blankCanvas();
    QPainter painter(&image);
    QRect all = image.rect();
    setOddState(painter);
    painter.setClipRect(QRect(1, 2, 30, 40));
    arrow.Draw(painter, all);
    EXPECT_EDGES(clipOf(painter), 40, 20, 260, 200);

    painter.restore();
    expectOddState(painter);
    EXPECT_EDGES(clipOf(painter), 40, 20, 260, 200);

    painter.restore();
    expectOddState(painter);
    EXPECT_EDGES(clipOf(painter), 1, 2, 30, 41);
    EXPECT_EQ(takeSavedStates(painter), 0);
}

TEST(CInk1ArrowLine, painterWithoutClipHasNoneAfterTwoRestores)
{
    CInk1ArrowLine arrow;
    feed(arrow, PT_DOWN, 100, 80);
    QImage image = blankCanvas();
    QPainter painter(&image);
    QRect all = image.rect();
    arrow.Draw(painter, all);
    EXPECT_TRUE(painter.hasClipping());
    painter.restore();
    EXPECT_TRUE(painter.hasClipping());
    painter.restore();
    EXPECT_FALSE(painter.hasClipping());
}

TEST(CInk1ArrowLine, committedArrowLineLeavesItsStatesOnThreeLayers)
{
    CInk1ArrowLine arrow;
    drag(arrow, {100, 80}, {200, 140});
    arrow.FinishGraph();
    Layers layers;
    arrow.Draw(layers.p1, layers.p2, layers.p3, layers.p4, layers.page.rect(), 0, 0);
    EXPECT_EQ(takeSavedStates(layers.p1), 2);
    EXPECT_EQ(takeSavedStates(layers.p2), 2);
    EXPECT_EQ(takeSavedStates(layers.p3), 0);
    EXPECT_EQ(takeSavedStates(layers.p4), 2);

    const QImage expected = segment(roundPen(Qt::black, 10), {100, 80}, {200, 140});
    EXPECT_TRUE(samePixels(layers.surface, expected));
    EXPECT_TRUE(samePixels(layers.ink, expected));
    EXPECT_TRUE(samePixels(layers.page, expected));
    EXPECT_TRUE(isBlank(layers.background));
}

TEST(CInk1ArrowLine, arrowLineInProgressIsPaintedOnTheSurfaceOnly)
{
    CInk1ArrowLine arrow;
    drag(arrow, {100, 80}, {200, 140});
    Layers layers;
    arrow.Draw(layers.p1, layers.p2, layers.p3, layers.p4, layers.page.rect(), 0, 0);
    EXPECT_EQ(takeSavedStates(layers.p1), 0);
    EXPECT_EQ(takeSavedStates(layers.p2), 2);
    EXPECT_EQ(takeSavedStates(layers.p4), 0);
    EXPECT_FALSE(isBlank(layers.surface));
    EXPECT_TRUE(isBlank(layers.page));
    EXPECT_TRUE(isBlank(layers.ink));
}

TEST(CInk1ArrowLine, skipLeavesNoState)
{
    CInk1ArrowLine arrow;
    drag(arrow, {100, 80}, {200, 140});
    Layers layers;
    arrow.Draw(layers.p1, layers.p2, layers.p3, layers.p4, layers.page.rect(), 0, 1);
    EXPECT_EQ(takeSavedStates(layers.p2), 0);
    EXPECT_TRUE(isBlank(layers.surface));
}

TEST(CInk1ArrowLine, shortenedListIsSurvived)
{
    for (const int size : {0, 1}) {
        CInk1ArrowLine arrow;
        drag(arrow, {100, 80}, {200, 140});
        arrow.m_graphData.resize(size);
        drawnQuietly(arrow);
        arrow.FinishGraph();
        drawnQuietly(arrow);
    }
}

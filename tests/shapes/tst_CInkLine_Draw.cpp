// The straight line as it is painted, in each phase and on each layer.

#include "CInkLine.h"
#include "Canvas.h"
#include "Exact.h"
#include "MessageLog.h"
#include "PainterState.h"

#include <QtGui/QPainterPath>

#include <gtest/gtest.h>

namespace {

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

// The handles of a line from (100,80) to (200,140) over its segment.
QImage segmentWithHandles(const QPen &pen, const QRectF &first, const QRectF &second)
{
    return painted([&](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(pen);
        painter.drawLine(QPointF(100, 80), QPointF(200, 140));
        paintHandle(painter, first);
        paintHandle(painter, second);
    });
}

const QColor kTranslucentRed(255, 0, 0, 120);

// The clip that a Draw with `rect` leaves on a painter that carried another.
QRect clipAfterDraw(CInkLine &line, QRect rect)
{
    QImage image = blankCanvas();
    QPainter painter(&image);
    painter.setClipRect(QRect(0, 0, 5, 5));
    line.Draw(painter, rect);
    return clipOf(painter);
}

} // namespace

TEST(CInkLine, freshLinePaintsNothingAndSetsNoClip)
{
    CInkLine line;
    EXPECT_TRUE(isBlank(drawn(line)));

    QImage image = blankCanvas();
    QPainter painter(&image);
    QRect all = image.rect();
    line.Draw(painter, all);
    EXPECT_FALSE(painter.hasClipping());
    EXPECT_EQ(clipAfterDraw(line, QRect(0, 0, 50, 50)), QRect(0, 0, 5, 5));
}

TEST(CInkLine, pressedLineIsADot)
{
    CInkLine line;
    line.SetWidth(20);
    feed(line, PT_DOWN, 100, 80);
    const QImage image = drawn(line);
    EXPECT_TRUE(samePixels(image, dot(roundPen(Qt::black, 20), {100, 80})));
    EXPECT_EQ(image.pixel(91, 80), 0xff000000);
    EXPECT_EQ(image.pixel(108, 80), 0xff000000);
    EXPECT_EQ(image.pixel(100, 88), 0xff000000);
    EXPECT_EQ(image.pixel(111, 80), 0u);
    EXPECT_EQ(image.pixel(91, 71), 0u); // round, not square
}

TEST(CInkLine, pressedLineIsADotAtItsFirstEndpoint)
{
    CInkLine line;
    feed(line, PT_DOWN, 100, 80);
    line.m_graphData[1] = QPointF(200, 140);
    EXPECT_TRUE(samePixels(drawn(line), dot(roundPen(Qt::black, 10), {100, 80})));
}

TEST(CInkLine, draggedLineIsTheSegment)
{
    CInkLine line;
    line.SetColor(QColor(10, 120, 200));
    feed(line, PT_DOWN, 100, 80);
    feed(line, PT_MOVE, 200, 140);
    EXPECT_TRUE(samePixels(drawn(line), segment(roundPen(QColor(10, 120, 200), 10), {100, 80}, {200, 140})));
}

TEST(CInkLine, lineDraggedBackIsADot)
{
    CInkLine line;
    feed(line, PT_DOWN, 100, 80);
    feed(line, PT_MOVE, 200, 140);
    feed(line, PT_MOVE, 100, 80);
    EXPECT_TRUE(samePixels(drawn(line), dot(roundPen(Qt::black, 10), {100, 80})));
}

TEST(CInkLine, committedClickIsADotOfThePenWidth)
{
    for (const int width : {1, 4, 10, 31}) {
        SCOPED_TRACE(width);
        CInkLine line;
        line.SetWidth(width);
        line.SetColor(kTranslucentRed);
        feed(line, PT_DOWN, 100, 80);
        feed(line, PT_UP, 100, 80);
        const QImage image = drawn(line);
        EXPECT_FALSE(isBlank(image));
        EXPECT_TRUE(samePixels(image, dot(roundPen(kTranslucentRed, width), {100, 80})));
    }
}

TEST(CInkLine, editedDotShowsItsHandles)
{
    CInkLine line;
    drag(line, {100, 80}, {200, 140});
    drag(line, {200, 140}, {100, 80});
    const QImage expected = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(roundPen(Qt::black, 10));
        painter.drawPoint(QPointF(100, 80));
        paintHandle(painter, QRectF(97, 77, 6, 6));
        paintHandle(painter, QRectF(97, 77, 6, 6));
    });
    EXPECT_TRUE(samePixels(drawn(line), expected));
}

TEST(CInkLine, zeroLengthWithAnotherCapIsDrawnAsALine)
{
    for (const Qt::PenCapStyle cap : {Qt::FlatCap, Qt::SquareCap}) {
        SCOPED_TRACE(cap);
        CInkLine line;
        line.m_nCapStyle = cap;
        feed(line, PT_DOWN, 100, 80);
        const QPen pen(QBrush(Qt::black), 10, Qt::SolidLine, cap, Qt::RoundJoin);
        EXPECT_TRUE(samePixels(drawn(line), segment(pen, {100, 80}, {100, 80})));
    }
}

TEST(CInkLine, almostZeroLengthIsDrawnAsALine)
{
    CInkLine line;
    feed(line, PT_DOWN, 100, 80);
    feed(line, PT_MOVE, 100, 80);
    line.m_graphData[1] = QPointF(100.0, 80.0000000000001);
    EXPECT_TRUE(samePixels(drawn(line), segment(roundPen(Qt::black, 10), {100, 80}, QPointF(100.0, 80.0000000000001))));
}

TEST(CInkLine, editedLineShowsItsHandlesOverTheSegment)
{
    CInkLine line;
    line.SetColor(kTranslucentRed);
    drag(line, {100, 80}, {200, 140});
    EXPECT_TRUE(samePixels(
        drawn(line), segmentWithHandles(roundPen(kTranslucentRed, 10), QRectF(97, 77, 6, 6), QRectF(197, 137, 6, 6))));
    EXPECT_EQ(drawn(line).pixel(100, 80), 0xffffffff);
}

TEST(CInkLine, handlesHaveTheRadiusOfTheirReach)
{
    CInkLine line;
    line.SetWidth(4);
    drag(line, {100, 80}, {200, 140});
    EXPECT_TRUE(samePixels(
        drawn(line), segmentWithHandles(roundPen(Qt::black, 4), QRectF(95, 75, 10, 10), QRectF(195, 135, 10, 10))));
    line.SetWidth(20);
    EXPECT_TRUE(samePixels(
        drawn(line), segmentWithHandles(roundPen(Qt::black, 20), QRectF(93, 73, 14, 14), QRectF(193, 133, 14, 14))));
}

TEST(CInkLine, lineFinishedAfterThePressIsADot)
{
    CInkLine line;
    feed(line, PT_DOWN, 100, 80);
    line.FinishGraph();
    EXPECT_TRUE(samePixels(drawn(line), dot(roundPen(Qt::black, 10), {100, 80})));
}

TEST(CInkLine, committedLineIgnoresTheCount)
{
    CInkLine line;
    feed(line, PT_DOWN, 100, 80);
    line.m_graphData[1] = QPointF(200, 140);
    line.FinishGraph();
    EXPECT_TRUE(samePixels(drawn(line), segment(roundPen(Qt::black, 10), {100, 80}, {200, 140})));
}

TEST(CInkLine, foreignLineIsShadedFromAnEndpointToASize)
{
    CInkLine line;
    line.SetOwnerIP(1);
    line.SetDrawerIP(2);
    line.SetColor(kTranslucentRed);
    drag(line, {100, 80}, {200, 140});
    const QImage image = drawn(line);
    const QImage expected = painted([](QPainter &painter) {
        painter.setClipRect(QRect(40, 20, 221, 181));
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(roundPen(kTranslucentRed, 10));
        painter.drawLine(QPointF(100, 80), QPointF(200, 140));
        painter.fillRect(QRect(90, 70, 220, 160), QColor(0, 0, 0, 100));
    });
    EXPECT_TRUE(samePixels(image, expected));
    EXPECT_EQ(image.pixel(90, 70), 0x64000000u);
    EXPECT_EQ(image.pixel(89, 70), 0u);
    EXPECT_EQ(image.pixel(260, 200), 0x64000000u);
    EXPECT_EQ(image.pixel(261, 200), 0u); // the clip ends here
    EXPECT_EQ(image.pixel(260, 201), 0u);
}

TEST(CInkLine, shadeOfANegativeSizeIsNormalised)
{
    CInkLine line;
    line.SetOwnerIP(1);
    line.m_graphData = {QPointF(100.9, 80.9), QPointF(-50.9, -20.9)};
    const QImage image = painted([&](QPainter &painter) { line.DrawHotShape(painter); });
    // (100,80) with the size -50 x -20 ends at (49,59).
    const QImage expected = painted(
        [](QPainter &painter) { painter.fillRect(QRect(QPoint(39, 49), QPoint(110, 90)), QColor(0, 0, 0, 100)); });
    EXPECT_TRUE(samePixels(image, expected));
}

TEST(CInkLine, foreignLineIsShadedOnlyWhileItIsEdited)
{
    CInkLine line;
    line.SetDrawerIP(2);
    feed(line, PT_DOWN, 100, 80);
    feed(line, PT_MOVE, 200, 140);
    const QImage expected = segment(roundPen(Qt::black, 10), {100, 80}, {200, 140});
    EXPECT_TRUE(samePixels(drawn(line), expected));
    feed(line, PT_UP, 200, 140);
    EXPECT_FALSE(samePixels(drawn(line), expected));
    line.FinishGraph();
    EXPECT_TRUE(samePixels(drawn(line), expected));
}

TEST(CInkLine, drawHotShapeTestsNoFlag)
{
    CInkLine line;
    line.m_bHideHotShape = 1;
    line.m_bFinished = 1;
    line.m_graphData = {QPointF(100.25, 80.5), QPointF(200, 140)};
    const QImage image = painted([&](QPainter &painter) { line.DrawHotShape(painter); });
    const QImage expected = painted([](QPainter &painter) {
        paintHandle(painter, QRectF(97.25, 77.5, 6, 6));
        paintHandle(painter, QRectF(197, 137, 6, 6));
    });
    EXPECT_TRUE(samePixels(image, expected));
}

TEST(CInkLine, penTakesTheDashStyleAndTheCap)
{
    for (const Qt::PenStyle style :
         {Qt::NoPen, Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine, Qt::DashDotDotLine}) {
        for (const Qt::PenCapStyle cap : {Qt::FlatCap, Qt::SquareCap, Qt::RoundCap}) {
            SCOPED_TRACE(::testing::Message() << "style " << style << ", cap " << cap);
            CInkLine line;
            line.m_nPenStyle = style;
            line.m_nCapStyle = cap;
            line.SetColor(kTranslucentRed);
            feed(line, PT_DOWN, 100, 80);
            feed(line, PT_MOVE, 300, 140);
            const QPen pen(QBrush(kTranslucentRed), 10, style, cap, Qt::RoundJoin);
            EXPECT_TRUE(samePixels(drawn(line), segment(pen, {100, 80}, {300, 140})));
        }
    }
}

TEST(CInkLine, widthZeroIsAHairline)
{
    CInkLine line;
    line.SetWidth(0);
    feed(line, PT_DOWN, 100, 80);
    feed(line, PT_MOVE, 300, 140);
    const QImage image = drawn(line);
    EXPECT_FALSE(isBlank(image));
    EXPECT_TRUE(samePixels(image, segment(roundPen(Qt::black, 0), {100, 80}, {300, 140})));
}

TEST(CInkLine, segmentIsDrawnBetweenUnroundedPoints)
{
    CInkLine line;
    feed(line, PT_DOWN, 100, 80);
    feed(line, PT_MOVE, 200, 140);
    line.m_graphData = {QPointF(100.25, 80.5), QPointF(200.75, 140.125)};
    EXPECT_TRUE(
        samePixels(drawn(line), segment(roundPen(Qt::black, 10), QPointF(100.25, 80.5), QPointF(200.75, 140.125))));
}

TEST(CInkLine, lineDoesNotTurn)
{
    CInkLine line;
    drag(line, {100, 80}, {200, 140});
    line.m_fRotateAngle = 45;
    line.m_ptCenter = QPointF(150, 110);
    EXPECT_TRUE(samePixels(drawn(line),
                           segmentWithHandles(roundPen(Qt::black, 10), QRectF(97, 77, 6, 6), QRectF(197, 137, 6, 6))));
}

TEST(CInkLine, painterKeepsItsTransformWhileTheLineIsPainted)
{
    CInkLine line;
    feed(line, PT_DOWN, 100, 80);
    feed(line, PT_MOVE, 200, 140);
    const QImage image = painted([&](QPainter &painter) {
        QRect all(0, 0, 400, 300);
        painter.translate(15, 25);
        line.Draw(painter, all);
    });
    EXPECT_TRUE(samePixels(image, segment(roundPen(Qt::black, 10), {115, 105}, {215, 165})));
}

TEST(CInkLine, clipStaysOnThePainter)
{
    CInkLine line;
    feed(line, PT_DOWN, 100, 80);
    EXPECT_EDGES(clipAfterDraw(line, QRect(0, 0, 50, 50)), 0, 0, 160, 140);
    feed(line, PT_MOVE, 150, 120);
    EXPECT_EDGES(clipAfterDraw(line, QRect(0, 0, 50, 50)), 0, 0, 210, 180);
    EXPECT_EDGES(clipAfterDraw(line, QRect()), 40, 20, 210, 180);
    EXPECT_EDGES(clipAfterDraw(line, QRect(100, 100, 200, 150)), 40, 20, 299, 249);
}

TEST(CInkLine, editedLineIsClippedToItself)
{
    CInkLine line;
    drag(line, {100, 80}, {150, 120});
    EXPECT_EDGES(clipAfterDraw(line, QRect(0, 0, 400, 300)), 40, 20, 210, 180);
    // The commit keeps the flag, and so the clip.
    line.FinishGraph();
    EXPECT_EDGES(clipAfterDraw(line, QRect(0, 0, 400, 300)), 40, 20, 210, 180);
}

TEST(CInkLine, lineCommittedWhileDrawnIsClippedToTheRepaintedRectangleToo)
{
    CInkLine line;
    feed(line, PT_DOWN, 100, 80);
    feed(line, PT_MOVE, 150, 120);
    line.FinishGraph();
    EXPECT_EDGES(clipAfterDraw(line, QRect(0, 0, 400, 300)), 0, 0, 399, 299);
}

TEST(CInkLine, handlesGiveThePainterBack)
{
    CInkLine pressed, dragged, edited, foreign, committed;
    feed(pressed, PT_DOWN, 100, 80);
    feed(dragged, PT_DOWN, 100, 80);
    feed(dragged, PT_MOVE, 200, 140);
    drag(edited, {100, 80}, {200, 140});
    drag(foreign, {100, 80}, {200, 140});
    foreign.SetOwnerIP(7);
    drag(committed, {100, 80}, {200, 140});
    committed.FinishGraph();

    for (CInkLine *line : {&pressed, &dragged, &edited, &foreign, &committed}) {
        QImage image = blankCanvas();
        QPainter painter(&image);
        setOddState(painter);
        line->DrawHotShape(painter);
        expectOddState(painter);

        const MessageLog log;
        painter.restore(); // nothing to restore
        EXPECT_EQ(log.lines.size(), 1);
    }
}

TEST(CInkLine, paintingLogsNothing)
{
    CInkLine line;
    const MessageLog log;
    drawn(line);
    drag(line, {100, 80}, {200, 140});
    drawn(line);
    line.FinishGraph();
    drawn(line);
    EXPECT_TRUE(log.lines.isEmpty());
}

// Dashes of a negative width would run backwards, for ever.
TEST(CInkLine, dashedLineOfNegativeWidthIsSolid)
{
    CInkLine line;
    drag(line, {100, 100}, {200, 100});
    line.FinishGraph();
    line.m_nWidth = -4;
    line.m_nPenStyle = Qt::DashLine;
    EXPECT_TRUE(samePixels(drawn(line), segment(roundPen(QColor(0, 0, 0), -4), {100, 100}, {200, 100})));
}

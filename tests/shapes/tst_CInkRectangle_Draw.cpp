// The rectangle as it is painted, in each phase and on each layer.

#include "BoxFrame.h"
#include "CInkRectangle.h"
#include "Canvas.h"
#include "Exact.h"
#include "MessageLog.h"
#include "PainterState.h"

#include <gtest/gtest.h>

namespace {

const QColor kTranslucentRed(255, 0, 0, 120);

QPen boxPen(const QColor &color, double width)
{
    return {QBrush(color), width, Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin};
}

QImage outline(const QPen &pen, const QRect &box)
{
    return painted([&](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(pen);
        painter.drawRect(box);
    });
}

// Painting writes a debug line, which is of no interest in most cases.
QImage drawnQuietly(CInkGraph &graph)
{
    const MessageLog log;
    return drawn(graph);
}

// The clip that a Draw with `rect` leaves on a painter that carried another.
QRect clipAfterDraw(CInkRectangle &box, QRect rect)
{
    const MessageLog log;
    QImage image = blankCanvas();
    QPainter painter(&image);
    painter.setClipRect(QRect(0, 0, 5, 5));
    box.Draw(painter, rect);
    return clipOf(painter);
}

// From (100,100) to (200,150), which is 101 x 51 pixels.
class DraggedBox : public CInkRectangle
{
public:
    DraggedBox()
    {
        feed(*this, PT_DOWN, 100, 100);
        feed(*this, PT_MOVE, 200, 150);
    }
};

class EditedBox : public DraggedBox
{
public:
    EditedBox() { feed(*this, PT_UP, 200, 150); }
};

const QRect kBox(100, 100, 101, 51);

} // namespace

TEST(CInkRectangle, freshBoxPaintsNothing)
{
    CInkRectangle box, thin(Qt::DashLine);
    EXPECT_TRUE(isBlank(drawnQuietly(box)));
    EXPECT_TRUE(isBlank(drawnQuietly(thin)));
}

TEST(CInkRectangle, draggedBoxIsStroked)
{
    DraggedBox box;
    box.SetColor(QColor(10, 120, 200));
    const QImage image = drawnQuietly(box);
    EXPECT_TRUE(samePixels(image, outline(boxPen(QColor(10, 120, 200), 4), kBox)));
    // The pen covers two pixels to either side of x = 100 and of x = 201.
    EXPECT_EQ(image.pixel(98, 120), 0xff0a78c8);
    EXPECT_EQ(image.pixel(101, 120), 0xff0a78c8);
    EXPECT_EQ(image.pixel(97, 120), 0u);
    EXPECT_EQ(image.pixel(102, 120), 0u);
    EXPECT_EQ(image.pixel(202, 120), 0xff0a78c8);
    EXPECT_EQ(image.pixel(203, 120), 0u);
    EXPECT_EQ(image.pixel(150, 152), 0xff0a78c8);
    EXPECT_EQ(image.pixel(150, 153), 0u);
}

TEST(CInkRectangle, everyDirectionDrawsTheSameBox)
{
    for (const auto &[from, to] :
         {std::pair(QPoint(200, 150), QPoint(100, 100)), std::pair(QPoint(100, 150), QPoint(200, 100)),
          std::pair(QPoint(200, 100), QPoint(100, 150))}) {
        CInkRectangle box;
        feed(box, PT_DOWN, from.x(), from.y());
        feed(box, PT_MOVE, to.x(), to.y());
        EXPECT_TRUE(samePixels(drawnQuietly(box), outline(boxPen(Qt::black, 4), kBox)));
    }
}

TEST(CInkRectangle, boxOnePixelToTheLeftIsDrawnWithoutWidth)
{
    CInkRectangle box;
    feed(box, PT_DOWN, 100, 100);
    feed(box, PT_MOVE, 99, 150);
    EXPECT_TRUE(samePixels(drawnQuietly(box), outline(boxPen(Qt::black, 4), QRect(100, 100, 0, 51))));
    feed(box, PT_MOVE, 98, 150);
    EXPECT_TRUE(samePixels(drawnQuietly(box), outline(boxPen(Qt::black, 4), QRect(98, 100, 3, 51))));
}

TEST(CInkRectangle, cornersAreTruncated)
{
    DraggedBox box;
    box.m_graphData = {QPointF(100.9, 100.9), QPointF(200.2, 150.7)};
    EXPECT_TRUE(samePixels(drawnQuietly(box), outline(boxPen(Qt::black, 4), kBox)));
    box.m_graphData = {QPointF(-0.9, -5.9), QPointF(200.2, 150.7)};
    EXPECT_TRUE(samePixels(drawnQuietly(box), outline(boxPen(Qt::black, 4), QRect(0, -5, 201, 156))));
}

TEST(CInkRectangle, boxOfSixPixelsIsNotPainted)
{
    CInkRectangle box;
    feed(box, PT_DOWN, 100, 100);
    EXPECT_TRUE(isBlank(drawnQuietly(box)));
    for (const QPoint &corner : {QPoint(100, 100), QPoint(106, 100), QPoint(100, 94), QPoint(104, 104)}) {
        feed(box, PT_MOVE, corner.x(), corner.y());
        EXPECT_TRUE(isBlank(drawnQuietly(box)));
    }
    feed(box, PT_MOVE, 107, 100);
    EXPECT_TRUE(samePixels(drawnQuietly(box), outline(boxPen(Qt::black, 4), QRect(100, 100, 8, 1))));
    feed(box, PT_MOVE, 104, 105);
    EXPECT_TRUE(samePixels(drawnQuietly(box), outline(boxPen(Qt::black, 4), QRect(100, 100, 5, 6))));
}

TEST(CInkRectangle, abandonedBoxIsNotPaintedOnAnyLayer)
{
    CInkRectangle box;
    drag(box, {100, 100}, {106, 100});
    EXPECT_EQ(box.m_bFinished, 1);
    const MessageLog log;
    Layers layers;
    layers.draw(box);
    EXPECT_TRUE(isBlank(layers.surface));
    EXPECT_TRUE(isBlank(layers.page));
    EXPECT_TRUE(isBlank(layers.background));
    EXPECT_TRUE(isBlank(layers.ink));
}

TEST(CInkRectangle, onlyTheCornersDecideWhetherACommittedBoxIsPainted)
{
    CInkRectangle box;
    drag(box, {100, 100}, {106, 100});
    box.m_graphData[1] = QPointF(200, 150);
    EXPECT_TRUE(samePixels(drawnQuietly(box), outline(boxPen(Qt::black, 4), kBox)));
}

TEST(CInkRectangle, tooSmallBoxSetsTheClipAllTheSame)
{
    CInkRectangle fresh;
    EXPECT_EDGES(clipAfterDraw(fresh, QRect(10, 10, 50, 50)), -8, -8, 59, 59);
    CInkRectangle pressed;
    feed(pressed, PT_DOWN, 100, 80);
    EXPECT_EDGES(clipAfterDraw(pressed, QRect(10, 10, 50, 50)), 10, 10, 111, 91);
    CInkRectangle abandoned;
    drag(abandoned, {100, 80}, {106, 80});
    EXPECT_EDGES(clipAfterDraw(abandoned, QRect(10, 10, 50, 50)), 10, 10, 118, 92);
}

TEST(CInkRectangle, clipStaysOnThePainter)
{
    DraggedBox dragged;
    EXPECT_EDGES(clipAfterDraw(dragged, QRect(0, 0, 50, 50)), 0, 0, 212, 162);
    EXPECT_EDGES(clipAfterDraw(dragged, QRect()), 88, 88, 212, 162);

    // While edited too the rectangle to repaint is part of it.
    EditedBox edited;
    EXPECT_EDGES(clipAfterDraw(edited, QRect(0, 0, 50, 50)), 0, 0, 245, 220);
    edited.FinishGraph();
    EXPECT_EDGES(clipAfterDraw(edited, QRect(0, 0, 50, 50)), 0, 0, 245, 220);
    EXPECT_EDGES(clipAfterDraw(edited, QRect()), 51, 26, 245, 220);
}

TEST(CInkRectangle, clipIsSetUnderThePaintersOwnTransform)
{
    DraggedBox box;
    const MessageLog log;
    QImage image = blankCanvas();
    QPainter painter(&image);
    QRect none;
    painter.translate(50, 60);
    box.Draw(painter, none);
    EXPECT_EDGES(clipOf(painter), 88, 88, 212, 162);
    EXPECT_EQ(painter.worldTransform(), QTransform::fromTranslate(50, 60));
    painter.end();

    // The box itself is painted without it.
    const QImage expected = painted([](QPainter &plain) {
        plain.setClipRect(QRect(138, 148, 125, 75));
        plain.setRenderHint(QPainter::Antialiasing);
        plain.setPen(boxPen(Qt::black, 4));
        plain.drawRect(kBox);
    });
    EXPECT_FALSE(isBlank(image));
    EXPECT_TRUE(samePixels(image, expected));
}

TEST(CInkRectangle, editedBoxShowsItsHandlesOverTheOutline)
{
    EditedBox box;
    box.SetWidth(16); // wide enough to reach under the handles
    box.SetColor(kTranslucentRed);
    const QImage over = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(boxPen(kTranslucentRed, 16));
        painter.drawRect(kBox);
        paintFrame(painter);
    });
    const QImage under = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        paintFrame(painter);
        painter.setPen(boxPen(kTranslucentRed, 16));
        painter.drawRect(kBox);
    });
    EXPECT_FALSE(samePixels(over, under));
    EXPECT_TRUE(samePixels(drawnQuietly(box), over));
}

TEST(CInkRectangle, foreignBoxIsShadedOverItsOutline)
{
    EditedBox box;
    box.SetOwnerIP(1);
    box.SetDrawerIP(2);
    box.SetColor(kTranslucentRed);
    const QImage image = drawnQuietly(box);
    const QImage expected = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(boxPen(kTranslucentRed, 4));
        painter.drawRect(kBox);
        painter.fillRect(QRect(90, 90, 121, 71), QColor(50, 50, 50, 60));
    });
    EXPECT_TRUE(samePixels(image, expected));
    EXPECT_EQ(qAlpha(image.pixel(90, 90)), 60);
    EXPECT_EQ(image.pixel(89, 90), 0u);
    EXPECT_EQ(qAlpha(image.pixel(210, 160)), 60);
    EXPECT_EQ(image.pixel(211, 160), 0u);
}

TEST(CInkRectangle, turnedBoxIsPaintedInItsFrame)
{
    for (const float angle : {1.0f, 30.0f, 90.0f, 135.0f, 270.0f, 359.0f}) {
        SCOPED_TRACE(angle);
        EditedBox box;
        box.m_fRotateAngle = angle;
        box.SetWidth(16);
        box.SetColor(kTranslucentRed);
        const QImage edited = painted([&](QPainter &painter) {
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setWorldTransform(turnAbout(150, 125, double(angle)));
            painter.setPen(boxPen(kTranslucentRed, 16));
            painter.drawRect(kBox);
            paintFrame(painter);
        });
        EXPECT_TRUE(samePixels(drawnQuietly(box), edited));

        box.FinishGraph();
        const QImage committed = painted([&](QPainter &painter) {
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setWorldTransform(turnAbout(150, 125, double(angle)));
            painter.setPen(boxPen(kTranslucentRed, 16));
            painter.drawRect(kBox);
        });
        EXPECT_TRUE(samePixels(drawnQuietly(box), committed));
    }
}

TEST(CInkRectangle, turnedForeignBoxIsShadedInItsFrame)
{
    EditedBox box;
    box.SetOwnerIP(1);
    box.m_fRotateAngle = 30;
    const QImage expected = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setWorldTransform(turnAbout(150, 125, 30));
        painter.setPen(boxPen(Qt::black, 4));
        painter.drawRect(kBox);
        painter.fillRect(QRect(90, 90, 121, 71), QColor(50, 50, 50, 60));
    });
    EXPECT_TRUE(samePixels(drawnQuietly(box), expected));
}

TEST(CInkRectangle, boxTakesTheBrushThatThePainterCarries)
{
    DraggedBox box;
    const MessageLog log;
    const QImage image = painted([&](QPainter &painter) {
        QRect all(0, 0, 400, 300);
        painter.setBrush(QColor(0, 200, 0, 90));
        box.Draw(painter, all);
    });
    const QImage expected = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(QColor(0, 200, 0, 90));
        painter.setPen(boxPen(Qt::black, 4));
        painter.drawRect(kBox);
    });
    EXPECT_TRUE(samePixels(image, expected));
    EXPECT_EQ(qAlpha(image.pixel(150, 125)), 90);
}

TEST(CInkRectangle, penStyleIsNotUsed)
{
    for (const Qt::PenStyle style : {Qt::NoPen, Qt::DashLine, Qt::DotLine}) {
        CInkRectangle box(style);
        feed(box, PT_DOWN, 100, 100);
        feed(box, PT_MOVE, 200, 150);
        EXPECT_TRUE(samePixels(drawnQuietly(box), outline(boxPen(Qt::black, 1), kBox)));
    }
}

TEST(CInkRectangle, widthsFromAHairlineUpAreStroked)
{
    for (const int width : {0, 1, 2, 9, 40}) {
        SCOPED_TRACE(width);
        DraggedBox box;
        box.SetWidth(width);
        box.SetColor(kTranslucentRed);
        EXPECT_TRUE(samePixels(drawnQuietly(box), outline(boxPen(kTranslucentRed, width), kBox)));
    }
}

TEST(CInkRectangle, eachPaintingWritesOneDebugLine)
{
    EditedBox box;
    const MessageLog log;
    drawn(box);
    ASSERT_EQ(log.lines.size(), 1);
    EXPECT_EQ(log.lines[0].type, QtDebugMsg);
    EXPECT_EQ(log.lines[0].category, QString("default"));

    box.FinishGraph();
    Layers layers;
    layers.draw(box);
    EXPECT_EQ(log.lines.size(), 4);
    EXPECT_EQ(log.debugLines(), 4);
}

TEST(CInkRectangle, debugLineNamesItsThreeRectangles)
{
    DraggedBox box;
    const MessageLog log;
    QImage image = blankCanvas();
    QPainter painter(&image);
    painter.setClipRect(QRect(17, 19, 5, 5));
    QRect none;
    box.Draw(painter, none);
    ASSERT_EQ(log.lines.size(), 1);
    EXPECT_TRUE(log.lines[0].text.contains("17,19 5x5")) << log.lines[0].text.toStdString();
    EXPECT_EQ(log.lines[0].text.count("88,88 125x75"), 2) << log.lines[0].text.toStdString();
}

TEST(CInkRectangle, tooSmallBoxWritesNoDebugLine)
{
    const MessageLog log;
    CInkRectangle box;
    drawn(box);
    feed(box, PT_DOWN, 100, 100);
    drawn(box);
    feed(box, PT_UP, 106, 100);
    drawn(box);
    EXPECT_TRUE(log.lines.isEmpty());
}

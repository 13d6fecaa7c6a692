// The rounded rectangle: the box of its base, painted with rounded corners.

#include "BoxFrame.h"
#include "CInkRoundRect.h"
#include "Canvas.h"
#include "Exact.h"
#include "MessageLog.h"
#include "PainterState.h"

#include <gtest/gtest.h>

namespace {

const QColor kTranslucentRed(255, 0, 0, 120);

QPen roundPen(const QColor &color, double width)
{
    return {QBrush(color), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

// The outline of a box from (100,100) to (200,150).
void paintOutline(QPainter &painter, const QPen &pen)
{
    painter.setPen(pen);
    painter.drawRoundedRect(QRectF(100, 100, 101, 51), 25, 25, Qt::RelativeSize);
}

QImage outline(const QPen &pen)
{
    return painted([&](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        paintOutline(painter, pen);
    });
}

QRect clipAfterDraw(CInkRoundRect &box, QRect rect)
{
    QImage image = blankCanvas();
    QPainter painter(&image);
    painter.setClipRect(QRect(0, 0, 5, 5));
    box.Draw(painter, rect);
    return clipOf(painter);
}

class DraggedBox : public CInkRoundRect
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

} // namespace

TEST(CInkRoundRect, eitherConstructorGivesWidthFourAndTwoPoints)
{
    CInkRoundRect box;
    EXPECT_EQ(box.m_nWidth, 4);
    EXPECT_EQ(box.m_penStyle, Qt::SolidLine);
    ASSERT_EQ(box.m_graphData.size(), 2);
    EXPECT_POINT(box.m_graphData[0], 0.0, 0.0);
    EXPECT_POINT(box.m_graphData[1], 0.0, 0.0);
    EXPECT_EQ(box.GetPointCount(), 0);

    CInkRoundRect dashed(Qt::DashLine);
    EXPECT_EQ(dashed.m_nWidth, 4);
    EXPECT_EQ(dashed.m_penStyle, Qt::DashLine);
    EXPECT_EQ(dashed.m_graphData.size(), 2);
    EXPECT_EQ(dashed.GetPointCount(), 0);
}

TEST(CInkRoundRect, followsTheProtocolOfTheRectangle)
{
    CInkRoundRect box;
    EXPECT_EQ(box.FinishGraph(), 0);
    EXPECT_EDGES(feed(box, PT_DOWN, 100, 80), -8, -8, 111, 91);
    EXPECT_EDGES(feed(box, 99, 150, 130), 88, 68, 162, 142);
    EXPECT_EQ(box.IsSparePoint(), 1);
    EXPECT_EDGES(feed(box, PT_UP, 150, 130), 26, 6, 220, 200);
    EXPECT_EQ(box.m_bEditMode, 1);
    EXPECT_EDGES(box.m_rcHot, 90, 70, 160, 140);
    drag(box, {125, 105}, {130, 107});
    EXPECT_POINT(box.m_graphData[0], 105.0, 82.0);
    feed(box, PT_DOWN, 350, 250);
    EXPECT_EQ(box.m_bFinished, 1);
}

TEST(CInkRoundRect, draggedBoxIsStrokedWithRoundCorners)
{
    DraggedBox box;
    box.SetColor(QColor(10, 120, 200));
    const QImage image = drawn(box);
    EXPECT_TRUE(samePixels(image, outline(roundPen(QColor(10, 120, 200), 4))));
    EXPECT_EQ(image.pixel(98, 125), 0xff0a78c8);
    EXPECT_EQ(image.pixel(97, 125), 0u);
    EXPECT_EQ(image.pixel(98, 98), 0u); // cut off
    EXPECT_EQ(image.pixel(150, 125), 0u);
}

TEST(CInkRoundRect, everyDirectionDrawsTheSameBox)
{
    for (const auto &[from, to] :
         {std::pair(QPoint(200, 150), QPoint(100, 100)), std::pair(QPoint(100, 150), QPoint(200, 100)),
          std::pair(QPoint(200, 100), QPoint(100, 150))}) {
        CInkRoundRect box;
        feed(box, PT_DOWN, from.x(), from.y());
        feed(box, PT_MOVE, to.x(), to.y());
        EXPECT_TRUE(samePixels(drawn(box), outline(roundPen(Qt::black, 4))));
    }
}

TEST(CInkRoundRect, cornersAreThoseOfTheQuarterRoundedRectangle)
{
    DraggedBox box;
    const QImage image = painted([&](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(roundPen(Qt::black, 4));
        box.DrawRoundRect(painter, QRect(100, 100, 101, 51));
    });
    const QImage expected = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(roundPen(Qt::black, 4));
        QT_WARNING_PUSH
        QT_WARNING_DISABLE_DEPRECATED
        painter.drawRoundRect(QRectF(100, 100, 101, 51), 25, 25);
        QT_WARNING_POP
    });
    EXPECT_TRUE(samePixels(image, expected));
}

TEST(CInkRoundRect, drawRoundRectTakesThePenAndNoBrush)
{
    CInkRoundRect box;
    box.SetColor(Qt::red);
    const QPen pen(QColor(0, 0, 255, 90), 7, Qt::DashLine, Qt::FlatCap, Qt::MiterJoin);
    const QImage image = painted([&](QPainter &painter) {
        painter.setPen(pen);
        painter.setBrush(Qt::yellow);
        box.DrawRoundRect(painter, QRect(100, 100, 101, 51));
    });
    const QImage expected = painted([&](QPainter &painter) { paintOutline(painter, pen); });
    EXPECT_TRUE(samePixels(image, expected));
    EXPECT_EQ(image.pixel(150, 125), 0u);
}

TEST(CInkRoundRect, drawRoundRectGivesThePainterBack)
{
    CInkRoundRect box;
    QImage image = blankCanvas();
    QPainter painter(&image);
    setOddState(painter);
    box.DrawRoundRect(painter, QRect(100, 100, 101, 51));
    expectOddState(painter);
    EXPECT_FALSE(painter.hasClipping());
}

TEST(CInkRoundRect, boxIgnoresTheBrushThatThePainterCarries)
{
    DraggedBox box;
    const QImage image = painted([&](QPainter &painter) {
        QRect all(0, 0, 400, 300);
        painter.setBrush(QColor(0, 200, 0, 90));
        box.Draw(painter, all);
    });
    EXPECT_TRUE(samePixels(image, outline(roundPen(Qt::black, 4))));
}

TEST(CInkRoundRect, tooSmallBoxPaintsNothingAndSetsNoClip)
{
    CInkRoundRect box;
    EXPECT_TRUE(isBlank(drawn(box)));
    EXPECT_EDGES(clipAfterDraw(box, QRect(10, 10, 50, 50)), 0, 0, 4, 4);
    feed(box, PT_DOWN, 100, 80);
    EXPECT_EDGES(clipAfterDraw(box, QRect(10, 10, 50, 50)), 0, 0, 4, 4);
    feed(box, PT_MOVE, 106, 80);
    EXPECT_TRUE(isBlank(drawn(box)));
    EXPECT_EDGES(clipAfterDraw(box, QRect(10, 10, 50, 50)), 0, 0, 4, 4);
    feed(box, PT_UP, 106, 80);
    EXPECT_TRUE(isBlank(drawn(box)));
    EXPECT_EDGES(clipAfterDraw(box, QRect(10, 10, 50, 50)), 0, 0, 4, 4);
}

TEST(CInkRoundRect, boxOfMoreThanSixPixelsIsPainted)
{
    CInkRoundRect box;
    feed(box, PT_DOWN, 100, 80);
    feed(box, PT_MOVE, 107, 80);
    const QImage expected = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(roundPen(Qt::black, 4));
        painter.drawRoundedRect(QRectF(100, 80, 8, 1), 25, 25, Qt::RelativeSize);
    });
    EXPECT_FALSE(isBlank(drawn(box)));
    EXPECT_TRUE(samePixels(drawn(box), expected));
    EXPECT_EDGES(clipAfterDraw(box, QRect()), 88, 68, 119, 92);
}

TEST(CInkRoundRect, clipStaysOnThePainter)
{
    DraggedBox dragged;
    EXPECT_EDGES(clipAfterDraw(dragged, QRect(0, 0, 50, 50)), 0, 0, 212, 162);
    EditedBox edited;
    EXPECT_EDGES(clipAfterDraw(edited, QRect(0, 0, 50, 50)), 0, 0, 245, 220);
    edited.FinishGraph();
    EXPECT_EDGES(clipAfterDraw(edited, QRect()), 51, 26, 245, 220);
}

TEST(CInkRoundRect, editedBoxShowsItsHandlesUnderTheOutline)
{
    EditedBox box;
    box.SetWidth(16); // wide enough to reach over the handles
    box.SetColor(kTranslucentRed);
    const QImage under = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        paintFrame(painter);
        paintOutline(painter, roundPen(kTranslucentRed, 16));
    });
    const QImage over = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        paintOutline(painter, roundPen(kTranslucentRed, 16));
        paintFrame(painter);
    });
    EXPECT_FALSE(samePixels(under, over));
    EXPECT_TRUE(samePixels(drawn(box), under));
}

TEST(CInkRoundRect, foreignBoxIsShadedUnderItsOutline)
{
    EditedBox box;
    box.SetDrawerIP(2);
    box.SetColor(kTranslucentRed);
    const QImage expected = painted([](QPainter &painter) {
        painter.fillRect(QRect(90, 90, 121, 71), QColor(50, 50, 50, 60));
        painter.setRenderHint(QPainter::Antialiasing);
        paintOutline(painter, roundPen(kTranslucentRed, 4));
    });
    EXPECT_TRUE(samePixels(drawn(box), expected));
}

TEST(CInkRoundRect, turnedBoxIsPaintedInItsFrame)
{
    for (const float angle : {1.0f, 30.0f, 90.0f, 270.0f}) {
        SCOPED_TRACE(angle);
        EditedBox box;
        box.m_fRotateAngle = angle;
        box.SetWidth(16);
        box.SetColor(kTranslucentRed);
        const QImage expected = painted([&](QPainter &painter) {
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setWorldTransform(turnAbout(150, 125, double(angle)));
            paintFrame(painter);
            paintOutline(painter, roundPen(kTranslucentRed, 16));
        });
        EXPECT_TRUE(samePixels(drawn(box), expected));
    }
}

TEST(CInkRoundRect, transformIsReplacedNotCombined)
{
    DraggedBox box;
    const QImage image = painted([&](QPainter &painter) {
        QRect all(-100, -100, 600, 500);
        painter.translate(50, 60);
        box.Draw(painter, all);
    });
    EXPECT_TRUE(samePixels(image, outline(roundPen(Qt::black, 4))));
}

TEST(CInkRoundRect, penStyleIsNotUsed)
{
    CInkRoundRect box(Qt::DotLine);
    feed(box, PT_DOWN, 100, 100);
    feed(box, PT_MOVE, 200, 150);
    EXPECT_TRUE(samePixels(drawn(box), outline(roundPen(Qt::black, 4))));
}

TEST(CInkRoundRect, paintingLogsNothing)
{
    const MessageLog log;
    EditedBox box;
    drawn(box);
    box.FinishGraph();
    drawn(box);
    EXPECT_TRUE(log.lines.isEmpty());
}

TEST(CInkRoundRect, shortenedListPaintsNothing)
{
    for (const int size : {0, 1}) {
        EditedBox box;
        box.m_graphData.resize(size);
        EXPECT_TRUE(isBlank(drawn(box)));
        box.FinishGraph();
        EXPECT_TRUE(isBlank(drawn(box)));
    }
}

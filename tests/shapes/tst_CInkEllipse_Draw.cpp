// What the ellipse paints, where, and how it leaves the painter.

#include "BoxFrame.h"
#include "CInkEllipse.h"
#include "Canvas.h"
#include "Exact.h"
#include "MessageLog.h"
#include "PainterState.h"

#include <gtest/gtest.h>

#include <climits>
#include <limits>

namespace {

const QColor kTranslucentRed(255, 0, 0, 120);
const QRect kBox(100, 100, 101, 51); // from (100,100) to (200,150)

QPen ellipsePen(const QColor &color, double width)
{
    return {QBrush(color), width, Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin};
}

QImage outline(const QPen &pen, const QRect &box = kBox)
{
    return painted([&](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(pen);
        painter.drawEllipse(box);
    });
}

QRect clipAfterDraw(CInkEllipse &ellipse, QRect rect)
{
    QImage image = blankCanvas();
    QPainter painter(&image);
    painter.setClipRect(QRect(0, 0, 5, 5));
    ellipse.Draw(painter, rect);
    return clipOf(painter);
}

class DraggedEllipse : public CInkEllipse
{
public:
    DraggedEllipse()
    {
        feed(*this, PT_DOWN, 100, 100);
        feed(*this, PT_MOVE, 200, 150);
    }
};

class EditedEllipse : public DraggedEllipse
{
public:
    EditedEllipse() { feed(*this, PT_UP, 200, 150); }
};

} // namespace

TEST(CInkEllipse, draggedEllipseIsStrokedInItsBox)
{
    DraggedEllipse ellipse;
    ellipse.SetColor(kTranslucentRed);
    for (const int width : {0, 1, 2, 9, 40}) {
        SCOPED_TRACE(width);
        ellipse.SetWidth(width);
        EXPECT_TRUE(samePixels(drawn(ellipse), outline(ellipsePen(kTranslucentRed, width))));
    }
    const QImage image = drawn(ellipse);
    EXPECT_NE(image.pixel(150, 81), 0u);
    EXPECT_EQ(image.pixel(150, 79), 0u);
    EXPECT_EQ(image.pixel(82, 82), 0u); // outside the ellipse
}

TEST(CInkEllipse, everyDirectionDrawsTheSameEllipse)
{
    for (const auto &[from, to] :
         {std::pair(QPoint(200, 150), QPoint(100, 100)), std::pair(QPoint(100, 150), QPoint(200, 100)),
          std::pair(QPoint(200, 100), QPoint(100, 150))}) {
        CInkEllipse ellipse;
        feed(ellipse, PT_DOWN, from.x(), from.y());
        feed(ellipse, PT_MOVE, to.x(), to.y());
        EXPECT_TRUE(samePixels(drawn(ellipse), outline(ellipsePen(Qt::black, 1))));
    }
}

TEST(CInkEllipse, ellipseOnePixelToTheLeftIsDrawnWithoutWidth)
{
    CInkEllipse ellipse;
    feed(ellipse, PT_DOWN, 100, 100);
    feed(ellipse, PT_MOVE, 99, 150);
    EXPECT_TRUE(samePixels(drawn(ellipse), outline(ellipsePen(Qt::black, 1), QRect(100, 100, 0, 51))));
    feed(ellipse, PT_MOVE, 98, 150);
    EXPECT_TRUE(samePixels(drawn(ellipse), outline(ellipsePen(Qt::black, 1), QRect(98, 100, 3, 51))));
}

TEST(CInkEllipse, cornersAreTruncated)
{
    DraggedEllipse ellipse;
    ellipse.m_graphData = {QPointF(100.9, 100.9), QPointF(200.2, 150.7)};
    EXPECT_TRUE(samePixels(drawn(ellipse), outline(ellipsePen(Qt::black, 1))));
    ellipse.m_graphData = {QPointF(-0.9, -5.9), QPointF(200.2, 150.7)};
    EXPECT_TRUE(samePixels(drawn(ellipse), outline(ellipsePen(Qt::black, 1), QRect(0, -5, 201, 156))));
}

TEST(CInkEllipse, ellipseOfSixPixelsPaintsNothingAndSetsNoClip)
{
    CInkEllipse ellipse;
    EXPECT_TRUE(isBlank(drawn(ellipse)));
    EXPECT_EDGES(clipAfterDraw(ellipse, QRect(10, 10, 50, 50)), 0, 0, 4, 4);
    feed(ellipse, PT_DOWN, 100, 100);
    for (const QPoint &corner : {QPoint(100, 100), QPoint(106, 100), QPoint(100, 94), QPoint(104, 104)}) {
        feed(ellipse, PT_MOVE, corner.x(), corner.y());
        EXPECT_TRUE(isBlank(drawn(ellipse)));
        EXPECT_EDGES(clipAfterDraw(ellipse, QRect(10, 10, 50, 50)), 0, 0, 4, 4);
    }
    feed(ellipse, PT_MOVE, 107, 100);
    EXPECT_TRUE(samePixels(drawn(ellipse), outline(ellipsePen(Qt::black, 1), QRect(100, 100, 8, 1))));
    feed(ellipse, PT_MOVE, 104, 105);
    EXPECT_TRUE(samePixels(drawn(ellipse), outline(ellipsePen(Qt::black, 1), QRect(100, 100, 5, 6))));
}

TEST(CInkEllipse, ellipseStretchedBelowSixPixelsVanishesWithItsHandles)
{
    CInkEllipse ellipse;
    drag(ellipse, {100, 80}, {107, 80}); // frame (90,70) to (117,90)
    EXPECT_FALSE(isBlank(drawn(ellipse)));
    feed(ellipse, PT_DOWN, 125, 95);
    EXPECT_EQ(ellipse.m_modifyType, 9);
    feed(ellipse, PT_MOVE, 95, 75); // to 15 pixels, with less than 4 between the corners
    EXPECT_EDGES(ellipse.m_rcHot, 90, 70, 105, 85);
    EXPECT_TRUE(isBlank(drawn(ellipse)));
    EXPECT_EDGES(clipAfterDraw(ellipse, QRect(10, 10, 50, 50)), 0, 0, 4, 4);
}

TEST(CInkEllipse, onlyCounterAndCornersDecideWhetherItIsPainted)
{
    DraggedEllipse ellipse;
    ellipse.m_nPointCount = 1;
    EXPECT_TRUE(samePixels(drawn(ellipse), outline(ellipsePen(Qt::black, 1))));
    ellipse.m_nPointCount = 0;
    EXPECT_TRUE(isBlank(drawn(ellipse)));
    ellipse.m_nPointCount = -1;
    EXPECT_TRUE(isBlank(drawn(ellipse)));
}

TEST(CInkEllipse, abandonedEllipseIsNotPaintedOnAnyLayer)
{
    CInkEllipse ellipse;
    drag(ellipse, {100, 100}, {106, 100});
    Layers layers;
    layers.draw(ellipse);
    for (const QImage *layer : {&layers.page, &layers.surface, &layers.background, &layers.ink})
        EXPECT_TRUE(isBlank(*layer));
}

TEST(CInkEllipse, clipStaysOnThePainter)
{
    DraggedEllipse dragged;
    EXPECT_EDGES(clipAfterDraw(dragged, QRect(0, 0, 50, 50)), 0, 0, 203, 153);
    EXPECT_EDGES(clipAfterDraw(dragged, QRect()), 97, 97, 203, 153);
    dragged.FinishGraph();
    EXPECT_EDGES(clipAfterDraw(dragged, QRect(0, 0, 50, 50)), 0, 0, 203, 153);
}

TEST(CInkEllipse, editedEllipseIsClippedToItself)
{
    EditedEllipse ellipse;
    EXPECT_EDGES(clipAfterDraw(ellipse, QRect(0, 0, 400, 300)), 59, 34, 237, 212);
    ellipse.FinishGraph();
    EXPECT_EDGES(clipAfterDraw(ellipse, QRect(0, 0, 400, 300)), 59, 34, 237, 212);
}

TEST(CInkEllipse, clipIsSetUnderThePaintersOwnTransform)
{
    DraggedEllipse ellipse;
    QImage image = blankCanvas();
    QPainter painter(&image);
    QRect none;
    painter.translate(50, 30);
    ellipse.Draw(painter, none);
    EXPECT_EDGES(clipOf(painter), 97, 97, 203, 153);
    painter.end();

    // The ellipse itself is painted without it.
    const QImage expected = painted([](QPainter &plain) {
        plain.setClipRect(QRect(147, 127, 107, 57));
        plain.setRenderHint(QPainter::Antialiasing);
        plain.setPen(ellipsePen(Qt::black, 1));
        plain.drawEllipse(kBox);
    });
    EXPECT_FALSE(isBlank(image));
    EXPECT_TRUE(samePixels(image, expected));
}

TEST(CInkEllipse, painterIsGivenBackInEachPhase)
{
    CInkEllipse fresh;
    DraggedEllipse dragged;
    EditedEllipse edited, foreign, turned, committed;
    foreign.SetOwnerIP(7);
    turned.m_fRotateAngle = 30;
    committed.FinishGraph();
    for (CInkEllipse *ellipse :
         std::initializer_list<CInkEllipse *>{&fresh, &dragged, &edited, &foreign, &turned, &committed}) {
        QImage image = blankCanvas();
        QPainter painter(&image);
        QRect rect(1, 2, 3, 4);
        setOddState(painter);
        ellipse->Draw(painter, rect);
        expectOddState(painter);
        EXPECT_EQ(painter.hasClipping(), ellipse != &fresh);
        EXPECT_EDGES(rect, 1, 2, 3, 5);

        const MessageLog log;
        painter.restore(); // nothing to restore
        EXPECT_EQ(log.lines.size(), 1);
    }
}

TEST(CInkEllipse, editedEllipseShowsItsHandlesUnderTheOutline)
{
    EditedEllipse ellipse;
    ellipse.SetWidth(20); // wide enough to reach over the handles
    ellipse.SetColor(kTranslucentRed);
    const QImage under = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        paintFrame(painter);
        painter.setPen(ellipsePen(kTranslucentRed, 20));
        painter.drawEllipse(kBox);
    });
    const QImage over = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(ellipsePen(kTranslucentRed, 20));
        painter.drawEllipse(kBox);
        paintFrame(painter);
    });
    EXPECT_FALSE(samePixels(under, over));
    EXPECT_TRUE(samePixels(drawn(ellipse), under));
}

TEST(CInkEllipse, drawAsksTheOverriddenHandlesWithItsOwnPen)
{
    class Unhandled : public EditedEllipse
    {
    public:
        void DrawHotShape(QPainter &painter) override { pens.append(painter.pen()); }
        QVector<QPen> pens;
    };
    Unhandled ellipse;
    EXPECT_TRUE(samePixels(drawn(ellipse), outline(ellipsePen(Qt::black, 1))));
    ASSERT_EQ(ellipse.pens.size(), 1);
    EXPECT_EQ(ellipse.pens[0], ellipsePen(QColor(0, 0, 0), 1));
}

TEST(CInkEllipse, handlesAreShownOnlyWhileEdited)
{
    const QImage plain = outline(ellipsePen(Qt::black, 1));
    EditedEllipse hidden, finished, committed, drawing;
    hidden.m_bHideHotShape = 1;
    finished.m_bFinished = 1;
    feed(committed, PT_DOWN, 350, 250);
    drawing.m_bEditMode = 0;
    for (CInkEllipse *ellipse : std::initializer_list<CInkEllipse *>{&hidden, &finished, &committed, &drawing})
        EXPECT_TRUE(samePixels(drawn(*ellipse), plain));
    EditedEllipse edited;
    EXPECT_FALSE(samePixels(drawn(edited), plain));
}

TEST(CInkEllipse, foreignEllipseIsShadedUnderItsOutline)
{
    EditedEllipse ellipse;
    ellipse.SetDrawerIP(2);
    ellipse.SetWidth(30);
    ellipse.SetColor(kTranslucentRed);
    const QImage expected = painted([](QPainter &painter) {
        painter.fillRect(QRect(90, 90, 121, 71), QColor(50, 50, 50, 60));
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(ellipsePen(kTranslucentRed, 30));
        painter.drawEllipse(kBox);
    });
    EXPECT_TRUE(samePixels(drawn(ellipse), expected));
}

TEST(CInkEllipse, turnedEllipseIsPaintedInItsFrame)
{
    for (const float angle : {1.0f, 30.0f, 90.0f, 270.0f, 359.0f}) {
        SCOPED_TRACE(angle);
        EditedEllipse ellipse;
        ellipse.m_fRotateAngle = angle;
        ellipse.SetWidth(16);
        ellipse.SetColor(kTranslucentRed);
        const auto frame = [&](bool handles) {
            return painted([&](QPainter &painter) {
                painter.setRenderHint(QPainter::Antialiasing);
                painter.setWorldTransform(turnAbout(150, 125, double(angle)));
                if (handles)
                    paintFrame(painter);
                painter.setPen(ellipsePen(kTranslucentRed, 16));
                painter.drawEllipse(kBox);
            });
        };
        EXPECT_TRUE(samePixels(drawn(ellipse), frame(true)));
        ellipse.FinishGraph();
        EXPECT_TRUE(samePixels(drawn(ellipse), frame(false)));
    }
}

TEST(CInkEllipse, ellipseTakesTheBrushThatThePainterCarries)
{
    DraggedEllipse ellipse;
    const QImage image = painted([&](QPainter &painter) {
        QRect all(0, 0, 400, 300);
        painter.setBrush(QColor(0, 200, 0, 90));
        ellipse.Draw(painter, all);
    });
    const QImage expected = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(QColor(0, 200, 0, 90));
        painter.setPen(ellipsePen(Qt::black, 1));
        painter.drawEllipse(kBox);
    });
    EXPECT_TRUE(samePixels(image, expected));
    EXPECT_EQ(qAlpha(image.pixel(150, 125)), 90);
}

TEST(CInkEllipse, penStyleIsNotUsed)
{
    for (const Qt::PenStyle style : {Qt::NoPen, Qt::DashLine, Qt::DotLine}) {
        CInkEllipse ellipse(style);
        feed(ellipse, PT_DOWN, 100, 100);
        feed(ellipse, PT_MOVE, 200, 150);
        EXPECT_TRUE(samePixels(drawn(ellipse), outline(ellipsePen(Qt::black, 1))));
    }
}

TEST(CInkEllipse, ellipseInProgressIsPaintedOnTheSurfaceOnly)
{
    DraggedEllipse dragged;
    dragged.ShowDrawerName(1);
    dragged.ShowDrawerIcon(1);
    dragged.m_sizeName = QSize(60, 20);
    EditedEllipse edited;
    const QImage withHandles = drawn(edited);
    const QImage plain = outline(ellipsePen(Qt::black, 1));
    for (const auto &[ellipse, expected] :
         {std::pair<CInkEllipse *, const QImage *>(&dragged, &plain), {&edited, &withHandles}}) {
        Layers layers;
        layers.draw(*ellipse);
        EXPECT_TRUE(samePixels(layers.surface, *expected));
        EXPECT_TRUE(isBlank(layers.page));
        EXPECT_TRUE(isBlank(layers.background));
        EXPECT_TRUE(isBlank(layers.ink));
    }
}

TEST(CInkEllipse, committedEllipseIsPaintedOnSurfaceInkAndPage)
{
    EditedEllipse ellipse;
    ellipse.SetColor(kTranslucentRed);
    ellipse.FinishGraph();
    Layers layers, skipped;
    layers.draw(ellipse);
    const QImage expected = outline(ellipsePen(kTranslucentRed, 1));
    EXPECT_TRUE(samePixels(layers.surface, expected));
    EXPECT_TRUE(samePixels(layers.ink, expected));
    EXPECT_TRUE(samePixels(layers.page, expected));
    EXPECT_TRUE(isBlank(layers.background));

    skipped.draw(ellipse, 1);
    EXPECT_TRUE(isBlank(skipped.surface));
    EXPECT_TRUE(isBlank(skipped.ink));
    EXPECT_TRUE(isBlank(skipped.page));
}

TEST(CInkEllipse, drawingWritesNoLogLine)
{
    EditedEllipse ellipse;
    const MessageLog log;
    drawn(ellipse);
    EXPECT_TRUE(log.lines.isEmpty());
}

TEST(CInkEllipse, extremeCoordinatesArePaintedWithoutHarm)
{
    for (const int width : {INT_MIN, -7, 0, 1, 10, INT_MAX}) {
        for (const int far : {INT_MIN, -2'000'000'000, 16'777'217, INT_MAX}) {
            CInkEllipse ellipse;
            ellipse.SetWidth(width);
            ellipse.ShowDrawerName(1);
            ellipse.ShowDrawerIcon(1);
            feed(ellipse, PT_DOWN, far, 80);
            drawn(ellipse);
            feed(ellipse, PT_MOVE, INT_MAX, far);
            drawn(ellipse);
            feed(ellipse, PT_UP, 50, far);
            drawn(ellipse);
            ellipse.SetDrawerIP(1);
            drawn(ellipse);
            ellipse.FinishGraph();
            drawn(ellipse);
        }
    }
}

TEST(CInkEllipse, cornersThatAreNoNumbersAreSurvived)
{
    const MessageLog log; // the paint engine warns
    constexpr double kFar[] = {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
                               -std::numeric_limits<double>::infinity(), 1e308};
    for (const double x : kFar) {
        for (const double y : kFar) {
            CInkEllipse ellipse;
            feed(ellipse, PT_DOWN, 100, 80);
            ellipse.m_graphData[0] = {x, y};
            feed(ellipse, PT_MOVE, 150, 130);
            drawn(ellipse);
            feed(ellipse, PT_UP, 150, 130);
            drawn(ellipse);
            EXPECT_TRUE(ellipse.FinishGraph());
            drawn(ellipse);
        }
    }
}

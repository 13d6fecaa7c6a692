// The flat brush: a stroke turned by the angle of its nib and squashed.

#include "CInkFlatBrush.h"
#include "PenStroke.h"

#include <gtest/gtest.h>

namespace {

const QColor kTranslucentRed(255, 0, 0, 120);

// The zigzag as a nib of `degrees` shows it: turned about the top left of its bounding box, then scaled by `factor`.
QTransform nib(double degrees, double factor)
{
    QMatrix matrix;
    matrix.translate(100, 40);
    matrix.scale(1.0, factor);
    matrix.rotate(degrees);
    matrix.translate(-100, -40);
    return QTransform(matrix);
}

QImage nibStroke(const QTransform &transform, const QPen &pen)
{
    return painted([&](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(pen);
        painter.setWorldTransform(transform);
        painter.drawPath(zigzagPath());
    });
}

} // namespace

TEST(CInkFlatBrush, newFlatBrushIsTenWideAt45Degrees)
{
    CInkFlatBrush brush;
    EXPECT_EQ(brush.m_fNibAngle, 45.0f);
    EXPECT_EQ(brush.m_nWidth, 10);
    EXPECT_EQ(brush.GetPointCount(), 0);
    EXPECT_GE(brush.m_graphData.capacity(), 10);
}

TEST(CInkFlatBrush, flatBrushOfAnAngleBeginsWithTenPointsAtTheOrigin)
{
    CInkFlatBrush brush(30.5f);
    EXPECT_EQ(brush.m_fNibAngle, 30.5f);
    EXPECT_EQ(brush.m_nWidth, 1);
    EXPECT_EQ(brush.GetPointCount(), 10);
    EXPECT_EQ(brush.m_nPointCount, 0);
    for (const QPointF &point : qAsConst(brush.m_graphData))
        EXPECT_POINT(point, 0, 0);
    EXPECT_EDGES(brush.GetDisIconRect(), 0, -30, 29, -1);
    EXPECT_TRUE(isBlank(drawn(brush)));

    feed(brush, PT_DOWN, 100, 80);
    EXPECT_EQ(brush.GetPointCount(), 11);
    EXPECT_EQ(brush.m_nPointCount, 1);
    EXPECT_EDGES(brush.GetUpdateRect(), -20, -20, 120, 100);
    feed(brush, PT_UP, 150, 80);
    EXPECT_EDGES(brush.m_rcHot, -32, -32, 182, 112);
}

TEST(CInkFlatBrush, fullListOfAnAngleCanBeFinished)
{
    CInkFlatBrush brush(0.0f);
    EXPECT_TRUE(brush.FinishGraph());
    EXPECT_EDGES(brush.m_rcHot, -32, -32, 32, 32);
}

TEST(CInkFlatBrush, strokeOfAnAngleBeginsAtTheOriginAndIsStretched)
{
    CInkFlatBrush brush(0.0f);
    feed(brush, PT_DOWN, 200, 60);
    const QImage expected = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(roundPen(Qt::black, 1));
        painter.setWorldTransform(QTransform::fromScale(1, 2));
        QPainterPath path(QPointF(0, 0));
        path.quadTo(QPointF(0, 0), QPointF(200, 60));
        painter.drawPath(path);
    });
    // The newest segment with its margin of 20 ends at y = 80, the stretched stroke at 120.
    QImage whole = drawn(brush);
    EXPECT_TRUE(samePixels(whole, expected));
    EXPECT_NE(whole.pixel(199, 119), 0u);
}

TEST(CInkFlatBrush, strokeIsTurnedThenSquashed)
{
    const struct
    {
        int width;
        float angle;
        double factor; // 2 / width in single precision
    } cases[] = {{10, 45.0f, 0.20000000298023224},
                 {10, 0.0f, 0.20000000298023224},
                 {3, 30.0f, 0.66666668653488159},
                 {7, -77.5f, 0.28571429848670959},
                 {1, 10.0f, 2.0},
                 {2, 45.0f, 1.0},
                 {16777217, 5.0f, 1.1920928955078125e-07},
                 {20, 400.0f, 0.10000000149011612}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.width);
        CInkFlatBrush brush;
        feedZigzag(brush);
        brush.SetWidth(c.width);
        brush.m_fNibAngle = c.angle;
        brush.SetColor(kTranslucentRed);
        const auto calls = paintCalls(brush);
        ASSERT_EQ(calls.size(), 1);
        EXPECT_EQ(calls[0].transform, nib(double(c.angle), c.factor));
        EXPECT_EQ(calls[0].transform.m22(), nib(double(c.angle), c.factor).m22());
        EXPECT_EQ(calls[0].pen, roundPen(kTranslucentRed, c.width));
        EXPECT_EQ(calls[0].hints, QPainter::Antialiasing | QPainter::TextAntialiasing);
        if (c.width > 20)
            continue;
        const QImage expected = nibStroke(nib(double(c.angle), c.factor), roundPen(kTranslucentRed, c.width));
        EXPECT_FALSE(isBlank(expected));
        EXPECT_TRUE(samePixels(drawn(brush), expected));
    }
}

TEST(CInkFlatBrush, factorIsTakenInSinglePrecision)
{
    // cos and sin of 45 degrees are 0.70710678118654752; the factor of width 10 is 0.2 + 2.98e-9.
    CInkFlatBrush brush;
    feedZigzag(brush);
    const QTransform transform = paintCalls(brush).value(0).transform;
    EXPECT_NEAR(transform.m11(), 0.70710678118654752, 1e-12);
    EXPECT_NEAR(transform.m12(), 0.14142135834465194, 1e-12);
    EXPECT_NEAR(transform.m21(), -0.70710678118654752, 1e-12);
    EXPECT_NEAR(transform.m22(), 0.14142135834465194, 1e-12);
    // The pivot (100,40), the top left of the stroke's bounding box, stays where it is.
    const QPointF pivot = transform.map(QPointF(100, 40));
    EXPECT_NEAR(pivot.x(), 100, 1e-9);
    EXPECT_NEAR(pivot.y(), 40, 1e-9);
}

TEST(CInkFlatBrush, verticalStrokeIsSquashedToTwoWidthsOfItsLength)
{
    CInkFlatBrush brush;
    brush.m_fNibAngle = 0;
    feed(brush, PT_DOWN, 200, 100);
    feed(brush, PT_MOVE, 200, 200);
    const QImage image = drawn(brush);
    // 100 long becomes 20, 10 wide stays 10; the caps are one pixel high.
    EXPECT_EQ(image.pixel(196, 110), 0xff000000);
    EXPECT_EQ(image.pixel(203, 110), 0xff000000);
    EXPECT_EQ(image.pixel(194, 110), 0u);
    EXPECT_EQ(image.pixel(205, 110), 0u);
    EXPECT_EQ(image.pixel(200, 119), 0xff000000);
    EXPECT_EQ(image.pixel(200, 122), 0u);
    EXPECT_EQ(image.pixel(200, 98), 0u);
}

TEST(CInkFlatBrush, widthOfZeroPaintsNothing)
{
    CInkFlatBrush brush;
    feedZigzag(brush);
    brush.SetWidth(0);
    EXPECT_TRUE(isBlank(drawn(brush)));
    brush.FinishGraph();
    EXPECT_TRUE(isBlank(drawn(brush)));
    EXPECT_EDGES(clipAfterDraw(brush, QRect(0, 0, 50, 50)), 0, 0, 4, 4);
}

TEST(CInkFlatBrush, clipIsGivenBack)
{
    CInkFlatBrush brush;
    feedZigzag(brush);
    EXPECT_EDGES(clipAfterDraw(brush, QRect(0, 0, 400, 300)), 0, 0, 4, 4);
    brush.FinishGraph();
    EXPECT_EDGES(clipAfterDraw(brush, QRect(0, 0, 400, 300)), 0, 0, 4, 4);
}

TEST(CInkFlatBrush, clipWhilePaintingHoldsTheHostsRectangleUntilTheCommit)
{
    CInkFlatBrush brush;
    feedZigzag(brush);
    brush.m_fNibAngle = 0;
    brush.SetWidth(2); // the identity, up to the last bits
    EXPECT_EDGES(paintCalls(brush, QRect(0, 0, 50, 50)).value(0).clip.toRect(), 0, 0, 140, 170);
    EXPECT_EDGES(paintCalls(brush, QRect()).value(0).clip.toRect(), 90, 40, 140, 170);
    brush.FinishGraph();
    EXPECT_EDGES(paintCalls(brush, QRect(0, 0, 400, 300)).value(0).clip.toRect(), 68, 8, 232, 182);
}

TEST(CInkFlatBrush, clipIsInTheHostsCoordinatesAndTheStrokeIsNot)
{
    CInkFlatBrush brush;
    feedZigzag(brush);
    const QImage image = painted([&](QPainter &painter) {
        QRect all(0, 0, 400, 300);
        painter.translate(150, 60);
        brush.Draw(painter, all);
    });
    const QImage expected = painted([](QPainter &painter) {
        painter.setClipRect(QRect(150, 60, 400, 300));
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(roundPen(Qt::black, 10));
        painter.setWorldTransform(nib(45, 0.20000000298023224));
        painter.drawPath(zigzagPath());
    });
    EXPECT_TRUE(samePixels(image, expected));
}

TEST(CInkFlatBrush, strokeTakesTheBrushThatThePainterCarries)
{
    CInkFlatBrush brush;
    feedZigzag(brush);
    const QImage image = painted([&](QPainter &painter) {
        QRect all(0, 0, 400, 300);
        painter.setBrush(QColor(0, 200, 0, 90));
        brush.Draw(painter, all);
    });
    const QImage expected = painted([](QPainter &painter) {
        painter.setBrush(QColor(0, 200, 0, 90));
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(roundPen(Qt::black, 10));
        painter.setWorldTransform(nib(45, 0.20000000298023224));
        painter.drawPath(zigzagPath());
    });
    EXPECT_TRUE(samePixels(image, expected));
}

TEST(CInkFlatBrush, painterIsGivenBack)
{
    CInkFlatBrush brush;
    EXPECT_NULL_RECT(clipAfterDrawWithOddPainter(brush));
    feedZigzag(brush);
    EXPECT_NULL_RECT(clipAfterDrawWithOddPainter(brush));
    brush.FinishGraph();
    EXPECT_NULL_RECT(clipAfterDrawWithOddPainter(brush));
}

TEST(CInkFlatBrush, layersFollowTheCommit)
{
    CInkFlatBrush brush;
    feedZigzag(brush);
    brush.SetColor(kTranslucentRed);
    const QImage expected = nibStroke(nib(45, 0.20000000298023224), roundPen(kTranslucentRed, 10));
    Layers growing;
    growing.draw(brush);
    EXPECT_TRUE(samePixels(growing.surface, expected));
    EXPECT_TRUE(isBlank(growing.page));
    EXPECT_TRUE(isBlank(growing.ink));
    brush.FinishGraph();
    Layers finished;
    finished.draw(brush);
    // Cut at the frame of the stroke as it was collected.
    const QImage cut = painted([&](QPainter &painter) {
        painter.setClipRect(QRect(68, 8, 165, 175));
        painter.drawImage(0, 0, expected);
    });
    EXPECT_FALSE(samePixels(cut, expected));
    EXPECT_TRUE(samePixels(finished.surface, cut));
    EXPECT_TRUE(samePixels(finished.ink, cut));
    EXPECT_TRUE(samePixels(finished.page, cut));
    EXPECT_TRUE(isBlank(finished.background));
}

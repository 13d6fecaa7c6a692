// How the pens with a round pen paint their stroke: pencil, brush and highlighter. How they collect it is in
// tst_stroke_pens.cpp.

#include "CInkBrush.h"
#include "CInkHighLightPen.h"
#include "CInkPencil.h"
#include "PenStroke.h"

#include <gtest/gtest.h>

namespace {

template <typename Pen>
class RoundPen : public ::testing::Test
{
};
using RoundPens = ::testing::Types<CInkPencil, CInkBrush, CInkHighLightPen>;
TYPED_TEST_SUITE(RoundPen, RoundPens, );

// Those that have the fields of a style.
template <typename Pen>
class StyledPen : public ::testing::Test
{
};
using StyledPens = ::testing::Types<CInkPencil, CInkBrush>;
TYPED_TEST_SUITE(StyledPen, StyledPens, );

// Those whose clip outlives them, with the finest antialiasing.
template <typename Pen>
class RoundStrokePen : public ::testing::Test
{
};
using RoundStrokePens = ::testing::Types<CInkBrush, CInkHighLightPen>;
TYPED_TEST_SUITE(RoundStrokePen, RoundStrokePens, );

// The pen that they paint a stroke of `color` with.
QPen penOf(const CInkPenGraph & /*pen*/, const QColor &color, int width)
{
    return roundPen(color, width);
}

QPen penOf(const CInkHighLightPen & /*pen*/, const QColor &color, int width)
{
    return roundPen(QColor(color.red(), color.green(), color.blue(), 100), width);
}

// A pixel of a black stroke.
QRgb inkOf(const CInkPenGraph & /*pen*/)
{
    return 0xff000000;
}

QRgb inkOf(const CInkHighLightPen & /*pen*/)
{
    return 0x64000000;
}

// What a stroke of the colour (255,0,0,120) is painted with.
int translucentAlpha(const CInkPenGraph & /*pen*/)
{
    return 120;
}

int translucentAlpha(const CInkHighLightPen & /*pen*/)
{
    return 100;
}

QPainterPath segmentPath(const QPointF &from, const QPointF &to)
{
    QPainterPath path(from);
    path.quadTo(from, to);
    return path;
}

const QColor kTranslucentRed(255, 0, 0, 120);

} // namespace

TYPED_TEST(StyledPen, newPenHasItsStyleFields)
{
    TypeParam pen;
    EXPECT_EQ(pen.m_nPenParam, 32);
    EXPECT_EQ(pen.m_nCapStyle, 32);
    EXPECT_EQ(pen.m_nPenStyle, 1);
    EXPECT_EQ(pen.m_nWidth, 1);
    EXPECT_EQ(pen.m_color, QColor(0, 0, 0, 255));
    EXPECT_TRUE(pen.m_graphData.isEmpty());
    EXPECT_EQ(pen.GetPointCount(), 0);
    EXPECT_EQ(pen.FinishGraph(), 0);
}

TYPED_TEST(StyledPen, styleFieldsStay)
{
    TypeParam pen;
    feedZigzag(pen);
    pen.SetWidth(7);
    pen.FinishGraph();
    EXPECT_EQ(pen.m_nPenParam, 32);
    EXPECT_EQ(pen.m_nCapStyle, 32);
    EXPECT_EQ(pen.m_nPenStyle, 1);
}

TYPED_TEST(StyledPen, styleFieldsAreNotPaintedWith)
{
    TypeParam pen;
    feedZigzag(pen);
    pen.SetWidth(12);
    pen.m_nCapStyle = Qt::FlatCap;
    pen.m_nPenStyle = Qt::DashLine;
    pen.m_nPenParam = 5;
    EXPECT_TRUE(samePixels(drawn(pen), smoothStroke(zigzagPath(), roundPen(Qt::black, 12))));
}

TYPED_TEST(RoundPen, strokeOfTwoPointsIsASegment)
{
    TypeParam pen;
    pen.SetWidth(10);
    feed(pen, PT_DOWN, 100, 80);
    feed(pen, PT_MOVE, 200, 80);
    const QImage image = drawn(pen);
    EXPECT_TRUE(samePixels(image, smoothStroke(segmentPath({100, 80}, {200, 80}), penOf(pen, Qt::black, 10))));
    EXPECT_EQ(image.pixel(150, 75), inkOf(pen));
    EXPECT_EQ(image.pixel(150, 84), inkOf(pen));
    EXPECT_EQ(image.pixel(150, 74), 0u);
    EXPECT_EQ(image.pixel(96, 79), inkOf(pen)); // the round cap
    EXPECT_EQ(image.pixel(95, 75), 0u);
}

TYPED_TEST(RoundPen, strokeIsOnePath)
{
    for (const int width : {0, 1, 2, 9, 25}) {
        SCOPED_TRACE(width);
        TypeParam pen;
        feedZigzag(pen);
        pen.SetWidth(width);
        pen.SetColor(kTranslucentRed); // one path: crossings are no darker
        const QImage expected = smoothStroke(zigzagPath(), penOf(pen, kTranslucentRed, width));
        EXPECT_FALSE(isBlank(expected));
        EXPECT_TRUE(samePixels(drawn(pen), expected));
        pen.FinishGraph();
        EXPECT_TRUE(samePixels(drawn(pen), expected));
        EXPECT_EQ(pen.m_color, QColor(kTranslucentRed));
    }
    TypeParam pen;
    feedZigzag(pen);
    pen.SetWidth(25);
    pen.SetColor(kTranslucentRed);
    EXPECT_EQ(qAlpha(drawn(pen).pixel(115, 70)), translucentAlpha(pen));
}

TYPED_TEST(RoundPen, unfinishedAndFinishedStrokesLookAlike)
{
    TypeParam pen;
    feedZigzag(pen);
    pen.SetWidth(4);
    const QImage growing = drawn(pen);
    pen.FinishGraph();
    EXPECT_TRUE(samePixels(drawn(pen), growing));
    EXPECT_TRUE(samePixels(growing, smoothStroke(zigzagPath(), penOf(pen, Qt::black, 4))));
}

TYPED_TEST(RoundPen, pathRunsThroughUnroundedPoints)
{
    TypeParam pen;
    pen.SetWidth(3);
    pen.m_graphData = {QPointF(100.25, 80.5), QPointF(200.75, 140.125)};
    EXPECT_TRUE(
        samePixels(drawn(pen), smoothStroke(segmentPath({100.25, 80.5}, {200.75, 140.125}), penOf(pen, Qt::black, 3))));
}

TYPED_TEST(RoundPen, painterKeepsItsTransformWhileTheStrokeIsPainted)
{
    TypeParam pen;
    pen.SetWidth(6);
    feed(pen, PT_DOWN, 100, 80);
    feed(pen, PT_MOVE, 200, 140);
    pen.m_fRotateAngle = 45;
    const QImage image = painted([&](QPainter &painter) {
        QRect all(0, 0, 400, 300);
        painter.translate(15, 25);
        pen.Draw(painter, all);
    });
    EXPECT_TRUE(samePixels(image, smoothStroke(segmentPath({115, 105}, {215, 165}), penOf(pen, Qt::black, 6))));
}

TYPED_TEST(RoundPen, painterKeepsItsTransformAndBrush)
{
    TypeParam pen;
    feedZigzag(pen);
    pen.SetColor(kTranslucentRed);
    pen.SetWidth(6);
    pen.m_fRotateAngle = 45;
    const QImage image = painted([&](QPainter &painter) {
        QRect all(0, 0, 400, 300);
        painter.translate(15, 25);
        painter.setBrush(QColor(0, 200, 0, 90));
        pen.Draw(painter, all);
    });
    const QImage expected = painted([&](QPainter &painter) {
        painter.translate(15, 25);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(QColor(0, 200, 0, 90));
        painter.setPen(penOf(pen, kTranslucentRed, 6));
        painter.drawPath(zigzagPath());
    });
    EXPECT_TRUE(samePixels(image, expected));
}

TYPED_TEST(RoundPen, layersFollowTheCommit)
{
    for (const QColor &color : {QColor(Qt::black), kTranslucentRed}) {
        for (const int shown : {0, 1}) {
            TypeParam pen;
            feedZigzag(pen);
            pen.SetWidth(4);
            pen.SetColor(color);
            pen.ShowDrawerName(shown);
            pen.ShowDrawerIcon(shown);
            pen.m_sizeName = QSize(60, 20);
            const QImage expected = smoothStroke(zigzagPath(), penOf(pen, color, 4));
            Layers growing;
            growing.draw(pen);
            EXPECT_TRUE(samePixels(growing.surface, expected));
            EXPECT_TRUE(isBlank(growing.page));
            EXPECT_TRUE(isBlank(growing.background));
            EXPECT_TRUE(isBlank(growing.ink));
            pen.FinishGraph();
            Layers finished;
            finished.draw(pen);
            EXPECT_TRUE(samePixels(finished.surface, expected));
            EXPECT_TRUE(samePixels(finished.ink, expected));
            EXPECT_TRUE(samePixels(finished.page, expected));
            EXPECT_TRUE(isBlank(finished.background));
        }
    }
}

TYPED_TEST(RoundPen, foreignStrokeIsNeverShaded)
{
    TypeParam pen;
    feedZigzag(pen);
    pen.SetWidth(4);
    pen.SetOwnerIP(7);
    pen.FinishGraph();
    pen.m_bHideHotShape = 0;
    EXPECT_TRUE(samePixels(drawn(pen), smoothStroke(zigzagPath(), penOf(pen, Qt::black, 4))));
}

// With such a start Qt divides by zero, or does not come to an end.
TYPED_TEST(RoundPen, strokeBeginsAtTheFirstPointThatIsANumber)
{
    TypeParam plain;
    plain.m_graphData = {{20, 2}, {40, 30}, {70, 60}};
    const QImage expected = drawn(plain);
    EXPECT_FALSE(isBlank(expected));
    for (const double far : {qQNaN(), qInf(), -qInf(), 1.7e308}) {
        TypeParam pen;
        pen.m_graphData = {{far, 9}, {9, far}, {20, 2}, {40, 30}, {70, 60}};
        EXPECT_TRUE(samePixels(drawn(pen), expected)) << far;
        pen.m_graphData = {{far, 9}, {9, far}};
        EXPECT_TRUE(isBlank(drawn(pen))) << far;
    }
}

TYPED_TEST(RoundStrokePen, finishedStrokeWiderThanItsFrameIsCutOnlyByTheHost)
{
    TypeParam pen;
    pen.SetColor(Qt::black);
    pen.SetWidth(100);
    drag(pen, {200, 150}, {200, 160});
    EXPECT_NE(drawn(pen).pixel(155, 155), 0u);
    const QImage cut = painted([&](QPainter &painter) {
        QRect none;
        pen.Draw(painter, none);
    });
    EXPECT_NE(cut.pixel(168, 155), 0u);
    EXPECT_EQ(cut.pixel(167, 155), 0u);
}

TYPED_TEST(RoundStrokePen, painterIsGivenBackButForItsClip)
{
    TypeParam pen;
    EXPECT_EDGES(clipAfterDrawWithOddPainter(pen), 0, 0, -1, -1);
    feedZigzag(pen);
    EXPECT_EDGES(clipAfterDrawWithOddPainter(pen), 0, 0, 399, 299);
    pen.FinishGraph();
    EXPECT_EDGES(clipAfterDrawWithOddPainter(pen), 0, 0, 399, 299);
}

TYPED_TEST(RoundStrokePen, strokeIsPaintedWithTheFinestAntialiasing)
{
    TypeParam pen;
    feedZigzag(pen);
    pen.SetWidth(9);
    const auto calls = paintCalls(pen);
    ASSERT_EQ(calls.size(), 1);
    EXPECT_TRUE(calls[0].isPath);
    EXPECT_TRUE(calls[0].hints.testFlag(QPainter::Antialiasing));
    EXPECT_TRUE(int(calls[0].hints) & 0x08); // high-quality antialiasing, a name that is deprecated
    EXPECT_FALSE(calls[0].hints.testFlag(QPainter::SmoothPixmapTransform));
    EXPECT_TRUE(calls[0].transform.isIdentity());
    EXPECT_EQ(calls[0].pen, penOf(pen, QColor(0, 0, 0), 9));
}

TYPED_TEST(RoundStrokePen, clipHoldsTheHostsRectangleInEveryPhase)
{
    TypeParam pen;
    feedZigzag(pen);
    EXPECT_EDGES(clipAfterDraw(pen, QRect(0, 0, 50, 50)), 0, 0, 140, 170);
    EXPECT_EDGES(clipAfterDraw(pen, QRect()), 90, 40, 140, 170);
    pen.FinishGraph();
    EXPECT_EDGES(clipAfterDraw(pen, QRect(0, 0, 50, 50)), 0, 0, 232, 182);
    EXPECT_EDGES(clipAfterDraw(pen, QRect(0, 0, 400, 300)), 0, 0, 399, 299);
    EXPECT_EDGES(clipAfterDraw(pen, QRect()), 68, 8, 232, 182);
}

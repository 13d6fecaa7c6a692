// The cubic curve as it is painted, in each phase and on each layer.

#include "BoxFrame.h"
#include "CInkBeZier.h"
#include "Canvas.h"
#include "Exact.h"
#include "MessageLog.h"
#include "PainterState.h"

#include <QtGui/QPainterPath>

#include <gtest/gtest.h>

#include <climits>

namespace {

const QColor kTranslucentRed(255, 0, 0, 120);

class Curve : public CInkBeZier
{
public:
    Curve()
        : CInkBeZier(Qt::FlatCap, Qt::RoundCap, Qt::SolidLine)
    {
    }
};

// Start (100,100), first control point (130,150), end (200,150); the second control point is drawn to (170,100).
class BentCurve : public Curve
{
public:
    BentCurve()
    {
        drag(*this, {100, 100}, {200, 150});
        drag(*this, {200, 150}, {130, 150});
        feed(*this, PT_MOVE, 170, 100);
    }
};

// Frame (90,90) to (210,160), centre (150,125).
class EditedCurve : public BentCurve
{
public:
    EditedCurve() { feed(*this, PT_UP, 170, 100); }
};

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

TEST(CInkBeZier, freshCurvePaintsNothingAndSetsNoClip)
{
    Curve curve;
    EXPECT_TRUE(isBlank(drawn(curve)));
    EXPECT_EDGES(clipAfterDraw(curve, QRect(10, 10, 50, 50)), 0, 0, 4, 4);
    BentCurve uncounted;
    uncounted.m_nPointCount = 0;
    EXPECT_TRUE(isBlank(drawn(uncounted)));
    EXPECT_EDGES(clipAfterDraw(uncounted, QRect(10, 10, 50, 50)), 0, 0, 4, 4);
}

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

TEST(CInkBeZier, widthsFromAHairlineUpAreStroked)
{
    for (const int width : {0, 1, 2, 9, 30}) {
        SCOPED_TRACE(width);
        BentCurve curve;
        curve.SetWidth(width);
        curve.SetColor(kTranslucentRed);
        EXPECT_TRUE(samePixels(drawn(curve), outline(squarePen(kTranslucentRed, width))));
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

TEST(CInkBeZier, drawLeavesTheCallersRectangle)
{
    BentCurve curve;
    QImage image = blankCanvas();
    QPainter painter(&image);
    QRect rect(1, 2, 3, 4);
    curve.Draw(painter, rect);
    EXPECT_EDGES(rect, 1, 2, 3, 5);
}

TEST(CInkBeZier, painterIsGivenBackInEachPhase)
{
    Curve fresh;
    BentCurve bent;
    EditedCurve edited, foreign, turned, committed;
    foreign.SetOwnerIP(7);
    turned.m_fRotateAngle = 30;
    committed.FinishGraph();
    for (CInkBeZier *curve :
         std::initializer_list<CInkBeZier *>{&fresh, &bent, &edited, &foreign, &turned, &committed}) {
        QImage image = blankCanvas();
        QPainter painter(&image);
        QRect all = image.rect();
        setOddState(painter);
        curve->Draw(painter, all);
        expectOddState(painter);
        EXPECT_EQ(painter.hasClipping(), curve != &fresh);

        const MessageLog log;
        painter.restore(); // nothing to restore
        EXPECT_EQ(log.lines.size(), 1);
    }
}

TEST(CInkBeZier, transformIsReplacedNotCombined)
{
    BentCurve curve;
    const QImage image = painted([&](QPainter &painter) {
        QRect all(-100, -100, 600, 500);
        painter.translate(50, 60);
        curve.Draw(painter, all);
    });
    EXPECT_TRUE(samePixels(image, outline(squarePen(Qt::black, 4))));
}

TEST(CInkBeZier, handlesLieUnderTheCurveWhileEdited)
{
    for (const float angle : {0.0f, 30.0f, 90.0f, 270.0f}) {
        SCOPED_TRACE(angle);
        EditedCurve curve;
        curve.m_fRotateAngle = angle;
        curve.SetWidth(30); // wide enough to reach over the frame
        curve.SetColor(kTranslucentRed);
        const auto expected = [&](bool handlesFirst) {
            return painted([&](QPainter &painter) {
                painter.setRenderHint(QPainter::Antialiasing);
                painter.setWorldTransform(turnAbout(150, 125, double(angle)));
                if (handlesFirst)
                    paintFrame(painter);
                paintOutline(painter, squarePen(kTranslucentRed, 30));
                if (!handlesFirst)
                    paintFrame(painter);
            });
        };
        EXPECT_TRUE(samePixels(drawn(curve), expected(true)));
        EXPECT_FALSE(samePixels(drawn(curve), expected(false)));
    }
}

TEST(CInkBeZier, drawAsksTheOverriddenHandlesWithItsOwnPen)
{
    class Unhandled : public EditedCurve
    {
    public:
        void DrawHotShape(QPainter &painter) override { pens.append(painter.pen()); }
        QVector<QPen> pens;
    };
    Unhandled curve;
    EXPECT_TRUE(samePixels(drawn(curve), outline(squarePen(Qt::black, 4))));
    ASSERT_EQ(curve.pens.size(), 1);
    EXPECT_EQ(curve.pens[0], squarePen(Qt::black, 4)); // the join of a smooth path shows nowhere else
}

TEST(CInkBeZier, handlesAreShownOnlyWhileEdited)
{
    const QImage plain = outline(squarePen(Qt::black, 4));
    EditedCurve hidden, finished;
    hidden.m_bHideHotShape = 1;
    finished.m_bFinished = 1;
    EXPECT_TRUE(samePixels(drawn(hidden), plain));
    EXPECT_TRUE(samePixels(drawn(finished), plain));
    finished.m_bFinished = 0;
    EXPECT_FALSE(samePixels(drawn(finished), plain));
    BentCurve finishedWhileDrawn;
    finishedWhileDrawn.FinishGraph();
    EXPECT_TRUE(samePixels(drawn(finishedWhileDrawn), plain));
}

TEST(CInkBeZier, foreignCurveIsShadedUnderItsOutline)
{
    EditedCurve curve;
    curve.SetDrawerIP(2);
    curve.SetColor(kTranslucentRed);
    const QImage expected = painted([](QPainter &painter) {
        painter.fillRect(QRect(90, 90, 121, 71), QColor(50, 50, 50, 60));
        painter.setRenderHint(QPainter::Antialiasing);
        paintOutline(painter, squarePen(kTranslucentRed, 4));
    });
    EXPECT_TRUE(samePixels(drawn(curve), expected));
}

TEST(CInkBeZier, bentAndEditedCurvesArePaintedOnTheSurfaceOnly)
{
    BentCurve bent;
    EditedCurve edited;
    for (CInkBeZier *curve : std::initializer_list<CInkBeZier *>{&bent, &edited}) {
        Layers layers;
        layers.draw(*curve);
        EXPECT_FALSE(isBlank(layers.surface));
        EXPECT_TRUE(samePixels(layers.surface, drawn(*curve)));
        EXPECT_TRUE(isBlank(layers.page));
        EXPECT_TRUE(isBlank(layers.background));
        EXPECT_TRUE(isBlank(layers.ink));
    }
}

TEST(CInkBeZier, committedCurveIsPaintedOnSurfaceInkAndPage)
{
    EditedCurve curve;
    curve.SetColor(kTranslucentRed);
    curve.FinishGraph();
    Layers layers, skipped;
    layers.draw(curve);
    const QImage expected = outline(squarePen(kTranslucentRed, 4));
    EXPECT_TRUE(samePixels(layers.surface, expected));
    EXPECT_TRUE(samePixels(layers.ink, expected));
    EXPECT_TRUE(samePixels(layers.page, expected));
    EXPECT_TRUE(isBlank(layers.background));
    skipped.draw(curve, 1);
    EXPECT_TRUE(isBlank(skipped.surface));
    EXPECT_TRUE(isBlank(skipped.ink));
    EXPECT_TRUE(isBlank(skipped.page));
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

TEST(CInkBeZier, paintingLogsNothing)
{
    const MessageLog log;
    EditedCurve curve;
    drawn(curve);
    curve.FinishGraph();
    drawn(curve);
    EXPECT_TRUE(log.lines.isEmpty());
}

// With such a start Qt divides by zero, or does not come to an end.
TEST(CInkBeZier, curveWithAPointThatIsNoNumberIsNotPainted)
{
    for (const double far : {qQNaN(), qInf(), -qInf(), 1.7e308}) {
        for (int i = 0; i < 4; ++i) {
            Curve curve;
            drag(curve, {50, 80}, {150, 180});
            drag(curve, {50, 180}, {150, 80});
            curve.FinishGraph();
            curve.m_graphData = {{29, 5}, {-1, -8.5}, {31.5, 13}, {35, 22}};
            curve.m_graphData[i].setX(far);
            EXPECT_TRUE(isBlank(drawn(curve))) << far << ' ' << i;
        }
    }
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

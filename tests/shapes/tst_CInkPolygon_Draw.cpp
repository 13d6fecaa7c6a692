// The polygon as it is painted, in each phase and on each layer.

#include "BoxFrame.h"
#include "CInkPolygon.h"
#include "Canvas.h"
#include "Exact.h"
#include "MessageLog.h"
#include "PainterState.h"

#include <QtGui/QPainterPath>

#include <gtest/gtest.h>

#include <climits>

namespace {

const QColor kTranslucentRed(255, 0, 0, 120);

// Two vertices, (100,100) and (200,110), with the rubber band drawn to (150,150).
class GrowingPolygon : public CInkPolygon
{
public:
    GrowingPolygon()
    {
        drag(*this, {100, 100}, {200, 110});
        feed(*this, PT_MOVE, 150, 150);
    }
};

// Completed by a double click, the third vertex still on the rubber band: frame (90,90) to (210,160).
class EditedPolygon : public GrowingPolygon
{
public:
    EditedPolygon()
    {
        feed(*this, PT_DBLCLK, 150, 150);
        feed(*this, PT_UP, 150, 150);
    }
};

QPen roundPen(const QColor &color, double width)
{
    return {QBrush(color), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

void paintOutline(QPainter &painter, const QPen &pen, bool closed)
{
    QPainterPath path(QPointF(100, 100));
    path.lineTo(200, 110);
    path.lineTo(150, 150);
    if (closed)
        path.lineTo(100, 100);
    painter.setPen(pen);
    painter.drawPath(path);
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

TEST(CInkPolygon, freshPolygonPaintsNothingAndSetsNoClip)
{
    CInkPolygon polygon;
    EXPECT_TRUE(isBlank(drawn(polygon)));
    EXPECT_EDGES(clipAfterDraw(polygon, QRect(10, 10, 50, 50)), 0, 0, 4, 4);
    GrowingPolygon uncounted;
    uncounted.m_nPointCount = 0;
    EXPECT_TRUE(isBlank(drawn(uncounted)));
    EXPECT_EDGES(clipAfterDraw(uncounted, QRect(10, 10, 50, 50)), 0, 0, 4, 4);
}

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

TEST(CInkPolygon, widthsFromAHairlineUpAreStroked)
{
    for (const int width : {0, 1, 2, 9, 40}) {
        SCOPED_TRACE(width);
        EditedPolygon polygon;
        polygon.SetWidth(width);
        polygon.SetColor(kTranslucentRed);
        polygon.FinishGraph();
        EXPECT_TRUE(samePixels(drawn(polygon), outline(roundPen(kTranslucentRed, width), true)));
    }
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

TEST(CInkPolygon, drawLeavesTheCallersRectangle)
{
    GrowingPolygon polygon;
    QImage image = blankCanvas();
    QPainter painter(&image);
    QRect rect(1, 2, 3, 4);
    polygon.Draw(painter, rect);
    EXPECT_EDGES(rect, 1, 2, 3, 5);
}

TEST(CInkPolygon, painterIsGivenBackInEachPhase)
{
    CInkPolygon fresh;
    GrowingPolygon growing;
    EditedPolygon edited, foreign, turned, committed;
    foreign.SetOwnerIP(7);
    turned.m_fRotateAngle = 30;
    committed.FinishGraph();
    for (CInkPolygon *polygon :
         std::initializer_list<CInkPolygon *>{&fresh, &growing, &edited, &foreign, &turned, &committed}) {
        QImage image = blankCanvas();
        QPainter painter(&image);
        QRect all = image.rect();
        setOddState(painter);
        polygon->Draw(painter, all);
        expectOddState(painter);
        EXPECT_EQ(painter.hasClipping(), polygon != &fresh);

        const MessageLog log;
        painter.restore(); // nothing to restore
        EXPECT_EQ(log.lines.size(), 1);
    }
}

TEST(CInkPolygon, transformIsReplacedNotCombined)
{
    GrowingPolygon polygon;
    const QImage image = painted([&](QPainter &painter) {
        QRect all(-100, -100, 600, 500);
        painter.translate(50, 60);
        polygon.Draw(painter, all);
    });
    EXPECT_TRUE(samePixels(image, outline(roundPen(Qt::black, 4), false)));
}

TEST(CInkPolygon, handlesLieUnderTheOutlineWhileEdited)
{
    for (const float angle : {0.0f, 30.0f, 90.0f, 270.0f}) {
        SCOPED_TRACE(angle);
        EditedPolygon polygon;
        polygon.m_fRotateAngle = angle;
        polygon.SetWidth(24); // wide enough to reach over the frame
        polygon.SetColor(kTranslucentRed);
        const auto expected = [&](bool handlesFirst) {
            return painted([&](QPainter &painter) {
                painter.setRenderHint(QPainter::Antialiasing);
                painter.setWorldTransform(turnAbout(150, 125, double(angle)));
                if (handlesFirst)
                    paintFrame(painter);
                paintOutline(painter, roundPen(kTranslucentRed, 24), true);
                if (!handlesFirst)
                    paintFrame(painter);
            });
        };
        EXPECT_TRUE(samePixels(drawn(polygon), expected(true)));
        EXPECT_FALSE(samePixels(drawn(polygon), expected(false)));
    }
}

TEST(CInkPolygon, drawAsksTheOverriddenHandlesWithItsOwnPen)
{
    class Unhandled : public EditedPolygon
    {
    public:
        void DrawHotShape(QPainter &painter) override { pens.append(painter.pen()); }
        QVector<QPen> pens;
    };
    Unhandled polygon;
    EXPECT_TRUE(samePixels(drawn(polygon), outline(roundPen(Qt::black, 4), true)));
    ASSERT_EQ(polygon.pens.size(), 1);
    EXPECT_EQ(polygon.pens[0], roundPen(Qt::black, 4));
}

TEST(CInkPolygon, handlesAreShownOnlyWhileEdited)
{
    const QImage closed = outline(roundPen(Qt::black, 4), true);
    EditedPolygon finished;
    finished.m_bFinished = 1;
    EXPECT_TRUE(samePixels(drawn(finished), closed));
    finished.m_bFinished = 0;
    EXPECT_FALSE(samePixels(drawn(finished), closed));
    GrowingPolygon finishedWhileDrawn;
    finishedWhileDrawn.FinishGraph();
    EXPECT_TRUE(samePixels(drawn(finishedWhileDrawn), outline(roundPen(Qt::black, 4), false)));
}

TEST(CInkPolygon, foreignPolygonIsShadedUnderItsOutline)
{
    EditedPolygon polygon;
    polygon.SetDrawerIP(2);
    polygon.SetColor(kTranslucentRed);
    const QImage expected = painted([](QPainter &painter) {
        painter.fillRect(QRect(90, 90, 121, 71), QColor(50, 50, 50, 60));
        painter.setRenderHint(QPainter::Antialiasing);
        paintOutline(painter, roundPen(kTranslucentRed, 4), true);
    });
    EXPECT_TRUE(samePixels(drawn(polygon), expected));
}

TEST(CInkPolygon, growingAndEditedPolygonsArePaintedOnTheSurfaceOnly)
{
    GrowingPolygon growing;
    EditedPolygon edited;
    for (CInkPolygon *polygon : std::initializer_list<CInkPolygon *>{&growing, &edited}) {
        Layers layers;
        layers.draw(*polygon);
        EXPECT_FALSE(isBlank(layers.surface));
        EXPECT_TRUE(samePixels(layers.surface, drawn(*polygon)));
        EXPECT_TRUE(isBlank(layers.page));
        EXPECT_TRUE(isBlank(layers.background));
        EXPECT_TRUE(isBlank(layers.ink));
    }
}

TEST(CInkPolygon, committedPolygonIsPaintedOnSurfaceInkAndPage)
{
    EditedPolygon polygon;
    polygon.SetColor(kTranslucentRed);
    polygon.FinishGraph();
    Layers layers, skipped;
    layers.draw(polygon);
    const QImage expected = outline(roundPen(kTranslucentRed, 4), true);
    EXPECT_TRUE(samePixels(layers.surface, expected));
    EXPECT_TRUE(samePixels(layers.ink, expected));
    EXPECT_TRUE(samePixels(layers.page, expected));
    EXPECT_TRUE(isBlank(layers.background));
    skipped.draw(polygon, 1);
    EXPECT_TRUE(isBlank(skipped.surface));
    EXPECT_TRUE(isBlank(skipped.ink));
    EXPECT_TRUE(isBlank(skipped.page));
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

TEST(CInkPolygon, paintingLogsNothing)
{
    const MessageLog log;
    EditedPolygon polygon;
    drawn(polygon);
    polygon.FinishGraph();
    drawn(polygon);
    EXPECT_TRUE(log.lines.isEmpty());
}

// With such vertices Qt divides by zero, or does not come to an end.
TEST(CInkPolygon, outlineWithAVertexThatIsNoNumberIsNotPainted)
{
    for (const double far : {qQNaN(), qInf(), -qInf(), 1.7e308}) {
        for (int i = 0; i < 4; ++i) {
            EditedPolygon polygon;
            polygon.FinishGraph();
            polygon.m_graphData = {{50, 5}, {-4, -8.5}, {16, 13}, {9e15, 22}};
            polygon.m_graphData[i].setX(far);
            EXPECT_TRUE(isBlank(drawn(polygon))) << far << ' ' << i;
        }
    }
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

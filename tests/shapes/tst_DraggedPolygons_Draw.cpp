// What the triangles and the diamond paint alike, where, and how they leave the painter.

#include "BoxFrame.h"
#include "Canvas.h"
#include "DraggedPolygon.h"
#include "Exact.h"
#include "MessageLog.h"
#include "PainterState.h"

#include <gtest/gtest.h>

#include <climits>
#include <limits>

namespace {

const QColor kTranslucentRed(255, 0, 0, 120);

template <typename Polygon>
class DraggedPolygonDraw : public ::testing::Test
{
protected:
    class Dragged : public Polygon
    {
    public:
        Dragged()
        {
            feed(*this, PT_DOWN, 100, 100);
            feed(*this, PT_MOVE, 200, 150);
        }
    };

    class Edited : public Dragged
    {
    public:
        Edited() { feed(*this, PT_UP, 200, 150); }
    };

    static QPen pen(const QColor &color, double width)
    {
        return {QBrush(color), width, Qt::SolidLine, PolygonFacts<Polygon>::kCap, Qt::RoundJoin};
    }

    static void paintOutline(QPainter &painter, const QPen &pen,
                             const QVector<QPointF> &points = PolygonFacts<Polygon>::outline())
    {
        painter.setPen(pen);
        painter.drawPolygon(points.constData(), points.size(), Qt::OddEvenFill);
    }

    static QImage outline(const QPen &pen, const QVector<QPointF> &points = PolygonFacts<Polygon>::outline())
    {
        return painted([&](QPainter &painter) {
            painter.setRenderHint(QPainter::Antialiasing);
            paintOutline(painter, pen, points);
        });
    }

    static QRect clipAfterDraw(Polygon &polygon, QRect rect)
    {
        QImage image = blankCanvas();
        QPainter painter(&image);
        painter.setClipRect(QRect(0, 0, 5, 5));
        polygon.Draw(painter, rect);
        return clipOf(painter);
    }
};

TYPED_TEST_SUITE(DraggedPolygonDraw, DraggedPolygons, PolygonName);

} // namespace

TYPED_TEST(DraggedPolygonDraw, vertexOutlineIsStrokedFromTheFirstMove)
{
    typename TestFixture::Dragged polygon;
    polygon.SetColor(kTranslucentRed);
    for (const int width : {0, 1, 4, 9, 40}) {
        SCOPED_TRACE(width);
        polygon.SetWidth(width);
        EXPECT_TRUE(samePixels(drawn(polygon), this->outline(this->pen(kTranslucentRed, width))));
    }
}

TYPED_TEST(DraggedPolygonDraw, verticesAreNotTruncated)
{
    typename TestFixture::Dragged polygon;
    QVector<QPointF> points = PolygonFacts<TypeParam>::outline();
    points[0] += QPointF(0.4, 0.7);
    points[1] -= QPointF(0.3, 0.2);
    for (int i = 0; i < points.size(); ++i)
        polygon.m_graphData[i] = points[i];
    EXPECT_TRUE(samePixels(drawn(polygon), this->outline(this->pen(Qt::black, 4), points)));
    EXPECT_FALSE(samePixels(drawn(polygon), this->outline(this->pen(Qt::black, 4))));
}

TYPED_TEST(DraggedPolygonDraw, abandonedPolygonIsPaintedOnEveryLayerOfACommittedOne)
{
    TypeParam polygon;
    polygon.SetColor(kTranslucentRed);
    drag(polygon, {100, 100}, {102, 100});
    ASSERT_EQ(polygon.m_bFinished, 1);
    const QVector<QPointF> vertices = polygon.m_graphData.mid(0, PolygonFacts<TypeParam>::kVertices);
    const QImage expected = this->outline(this->pen(kTranslucentRed, 4), vertices);
    EXPECT_EQ(qAlpha(expected.pixel(100, 100)), 120);
    EXPECT_EQ(qAlpha(expected.pixel(102, 100)), 120);
    Layers layers;
    layers.draw(polygon);
    EXPECT_TRUE(samePixels(layers.surface, expected));
    EXPECT_TRUE(samePixels(layers.ink, expected));
    EXPECT_TRUE(samePixels(layers.page, expected));
    EXPECT_TRUE(isBlank(layers.background));
}

TYPED_TEST(DraggedPolygonDraw, onlyTheCounterDecidesWhetherItIsPainted)
{
    TypeParam fresh;
    EXPECT_TRUE(isBlank(drawn(fresh)));
    EXPECT_EDGES(this->clipAfterDraw(fresh, QRect(10, 10, 50, 50)), 0, 0, 4, 4);

    typename TestFixture::Dragged polygon;
    for (const int count : {0, -1}) {
        polygon.m_nPointCount = count;
        EXPECT_TRUE(isBlank(drawn(polygon)));
        EXPECT_EDGES(this->clipAfterDraw(polygon, QRect(10, 10, 50, 50)), 0, 0, 4, 4);
    }
    polygon.m_nPointCount = 1;
    EXPECT_TRUE(samePixels(drawn(polygon), this->outline(this->pen(Qt::black, 4))));
}

TYPED_TEST(DraggedPolygonDraw, polygonWithoutExtentShowsNothing)
{
    TypeParam polygon;
    feed(polygon, PT_DOWN, 100, 100);
    EXPECT_TRUE(isBlank(drawn(polygon)));
    feed(polygon, PT_UP, 100, 100);
    EXPECT_TRUE(isBlank(drawn(polygon)));
}

TYPED_TEST(DraggedPolygonDraw, secondPressGoesOnShowingTheVertices)
{
    typename TestFixture::Dragged polygon;
    feed(polygon, PT_DOWN, 20, 30);
    EXPECT_TRUE(samePixels(drawn(polygon), this->outline(this->pen(Qt::black, 4))));
}

TYPED_TEST(DraggedPolygonDraw, clipStaysOnThePainter)
{
    typename TestFixture::Dragged dragged;
    EXPECT_EDGES(this->clipAfterDraw(dragged, QRect(0, 0, 50, 50)), 0, 0, 212, 162);
    EXPECT_EDGES(this->clipAfterDraw(dragged, QRect()), 88, 88, 212, 162);
    dragged.FinishGraph();
    EXPECT_EDGES(this->clipAfterDraw(dragged, QRect(0, 0, 50, 50)), 0, 0, 212, 162);

    TypeParam pressed;
    feed(pressed, PT_DOWN, 100, 80);
    EXPECT_EDGES(this->clipAfterDraw(pressed, QRect(10, 10, 50, 50)), 10, 10, 111, 91);

    TypeParam abandoned;
    drag(abandoned, {100, 80}, {102, 80});
    EXPECT_EDGES(this->clipAfterDraw(abandoned, QRect(10, 10, 50, 50)), 10, 10, 114, 92);
}

TYPED_TEST(DraggedPolygonDraw, editedPolygonIsClippedToItself)
{
    typename TestFixture::Edited polygon;
    EXPECT_EDGES(this->clipAfterDraw(polygon, QRect(0, 0, 400, 300)), 51, 26, 245, 220);
    polygon.FinishGraph();
    EXPECT_EDGES(this->clipAfterDraw(polygon, QRect(0, 0, 400, 300)), 51, 26, 245, 220);
}

TYPED_TEST(DraggedPolygonDraw, clipIsSetUnderThePaintersOwnTransform)
{
    typename TestFixture::Dragged polygon;
    QImage image = blankCanvas();
    QPainter painter(&image);
    QRect none;
    painter.translate(50, 30);
    polygon.Draw(painter, none);
    EXPECT_EDGES(clipOf(painter), 88, 88, 212, 162);
    painter.end();

    // The polygon itself is painted without it.
    const QImage expected = painted([](QPainter &plain) {
        plain.setClipRect(QRect(138, 118, 125, 75));
        plain.setRenderHint(QPainter::Antialiasing);
        TestFixture::paintOutline(plain, TestFixture::pen(Qt::black, 4));
    });
    EXPECT_FALSE(isBlank(image));
    EXPECT_TRUE(samePixels(image, expected));
}

TYPED_TEST(DraggedPolygonDraw, painterIsGivenBackInEachPhase)
{
    TypeParam fresh;
    typename TestFixture::Dragged dragged;
    typename TestFixture::Edited edited, foreign, turned, committed;
    foreign.SetOwnerIP(7);
    turned.m_fRotateAngle = 30;
    committed.FinishGraph();
    for (TypeParam *polygon :
         std::initializer_list<TypeParam *>{&fresh, &dragged, &edited, &foreign, &turned, &committed}) {
        QImage image = blankCanvas();
        QPainter painter(&image);
        QRect rect(1, 2, 3, 4);
        setOddState(painter);
        polygon->Draw(painter, rect);
        expectOddState(painter);
        EXPECT_EQ(painter.hasClipping(), polygon != &fresh);
        EXPECT_EDGES(rect, 1, 2, 3, 5);

        const MessageLog log;
        painter.restore(); // nothing to restore
        EXPECT_EQ(log.lines.size(), 1);
    }
}

TYPED_TEST(DraggedPolygonDraw, editedPolygonShowsItsHandlesUnderTheOutline)
{
    typename TestFixture::Edited polygon;
    polygon.SetWidth(30); // wide enough to reach over the handles
    polygon.SetColor(kTranslucentRed);
    const QImage under = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        paintFrame(painter);
        TestFixture::paintOutline(painter, TestFixture::pen(kTranslucentRed, 30));
    });
    const QImage over = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        TestFixture::paintOutline(painter, TestFixture::pen(kTranslucentRed, 30));
        paintFrame(painter);
    });
    EXPECT_FALSE(samePixels(under, over));
    EXPECT_TRUE(samePixels(drawn(polygon), under));
}

TYPED_TEST(DraggedPolygonDraw, drawAsksTheOverriddenHandlesWithItsOwnPen)
{
    class Unhandled : public TestFixture::Edited
    {
    public:
        void DrawHotShape(QPainter &painter) override { pens.append(painter.pen()); }
        QVector<QPen> pens;
    };
    Unhandled polygon;
    EXPECT_TRUE(samePixels(drawn(polygon), this->outline(this->pen(Qt::black, 4))));
    ASSERT_EQ(polygon.pens.size(), 1);
    // The cap of a closed solid outline shows nowhere else.
    EXPECT_EQ(polygon.pens[0], this->pen(QColor(0, 0, 0), 4));
}

TYPED_TEST(DraggedPolygonDraw, handlesAreShownOnlyWhileEdited)
{
    const QImage plain = this->outline(this->pen(Qt::black, 4));
    typename TestFixture::Edited hidden, finished, committed, drawing, edited;
    hidden.m_bHideHotShape = 1;
    finished.m_bFinished = 1;
    feed(committed, PT_DOWN, 350, 250);
    drawing.m_bEditMode = 0;
    for (TypeParam *polygon : std::initializer_list<TypeParam *>{&hidden, &finished, &committed, &drawing})
        EXPECT_TRUE(samePixels(drawn(*polygon), plain));
    EXPECT_FALSE(samePixels(drawn(edited), plain));
}

TYPED_TEST(DraggedPolygonDraw, foreignPolygonIsShadedUnderItsOutline)
{
    typename TestFixture::Edited polygon;
    polygon.SetDrawerIP(2);
    polygon.SetWidth(30);
    polygon.SetColor(kTranslucentRed);
    const QImage expected = painted([](QPainter &painter) {
        painter.fillRect(QRect(90, 90, 121, 71), QColor(50, 50, 50, 60));
        painter.setRenderHint(QPainter::Antialiasing);
        TestFixture::paintOutline(painter, TestFixture::pen(kTranslucentRed, 30));
    });
    EXPECT_TRUE(samePixels(drawn(polygon), expected));
}

TYPED_TEST(DraggedPolygonDraw, turnedPolygonIsPaintedInItsFrame)
{
    for (const float angle : {1.0f, 30.0f, 90.0f, 270.0f, 359.0f}) {
        SCOPED_TRACE(angle);
        typename TestFixture::Edited polygon;
        polygon.m_fRotateAngle = angle;
        polygon.SetWidth(16);
        polygon.SetColor(kTranslucentRed);
        const auto frame = [&](bool handles) {
            return painted([&](QPainter &painter) {
                painter.setRenderHint(QPainter::Antialiasing);
                painter.setWorldTransform(turnAbout(150, 125, double(angle)));
                if (handles)
                    paintFrame(painter);
                TestFixture::paintOutline(painter, TestFixture::pen(kTranslucentRed, 16));
            });
        };
        EXPECT_TRUE(samePixels(drawn(polygon), frame(true)));
        polygon.FinishGraph();
        EXPECT_TRUE(samePixels(drawn(polygon), frame(false)));
    }
}

TYPED_TEST(DraggedPolygonDraw, polygonTakesTheBrushThatThePainterCarries)
{
    typename TestFixture::Dragged polygon;
    const QImage image = painted([&](QPainter &painter) {
        QRect all(0, 0, 400, 300);
        painter.setBrush(QColor(0, 200, 0, 90));
        polygon.Draw(painter, all);
    });
    const QImage expected = painted([](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(QColor(0, 200, 0, 90));
        TestFixture::paintOutline(painter, TestFixture::pen(Qt::black, 4));
    });
    EXPECT_TRUE(samePixels(image, expected));
    EXPECT_EQ(qAlpha(image.pixel(130, 135)), 90);
}

TYPED_TEST(DraggedPolygonDraw, polygonInProgressIsPaintedOnTheSurfaceOnly)
{
    typename TestFixture::Dragged dragged;
    dragged.ShowDrawerName(1);
    dragged.ShowDrawerIcon(1);
    dragged.m_sizeName = QSize(60, 20);
    typename TestFixture::Edited edited;
    const QImage plain = this->outline(this->pen(Qt::black, 4));
    const QImage withHandles = drawn(edited);
    for (const auto &[polygon, expected] :
         {std::pair<TypeParam *, const QImage *>(&dragged, &plain), {&edited, &withHandles}}) {
        Layers layers;
        layers.draw(*polygon);
        EXPECT_TRUE(samePixels(layers.surface, *expected));
        EXPECT_TRUE(isBlank(layers.page));
        EXPECT_TRUE(isBlank(layers.background));
        EXPECT_TRUE(isBlank(layers.ink));
    }
}

TYPED_TEST(DraggedPolygonDraw, committedPolygonIsPaintedOnSurfaceInkAndPage)
{
    typename TestFixture::Edited polygon;
    polygon.SetColor(kTranslucentRed);
    polygon.FinishGraph();
    const MessageLog log;
    Layers layers, skipped;
    layers.draw(polygon);
    const QImage expected = this->outline(this->pen(kTranslucentRed, 4));
    EXPECT_TRUE(samePixels(layers.surface, expected));
    EXPECT_TRUE(samePixels(layers.ink, expected));
    EXPECT_TRUE(samePixels(layers.page, expected));
    EXPECT_TRUE(isBlank(layers.background));

    skipped.draw(polygon, 1);
    EXPECT_TRUE(isBlank(skipped.surface));
    EXPECT_TRUE(isBlank(skipped.ink));
    EXPECT_TRUE(isBlank(skipped.page));
    EXPECT_TRUE(log.lines.isEmpty());
}

TYPED_TEST(DraggedPolygonDraw, extremeCoordinatesArePaintedWithoutHarm)
{
    for (const Qt::PenStyle style : {Qt::SolidLine, Qt::DashLine}) {
        for (const int width : {INT_MIN, -7, 0, 1, 10, INT_MAX}) {
            for (const int far : {INT_MIN, -2'000'000'000, 16'777'217, INT_MAX}) {
                TypeParam polygon(style);
                polygon.SetWidth(width);
                polygon.ShowDrawerName(1);
                polygon.ShowDrawerIcon(1);
                feed(polygon, PT_DOWN, far, 80);
                drawn(polygon);
                feed(polygon, PT_MOVE, INT_MAX, far);
                drawn(polygon);
                feed(polygon, PT_UP, 50, far);
                drawn(polygon);
                polygon.SetDrawerIP(1);
                drawn(polygon);
                polygon.FinishGraph();
                drawn(polygon);
            }
        }
    }
}

// With such vertices Qt divides by zero, or does not come to an end.
TYPED_TEST(DraggedPolygonDraw, verticesThatAreNoNumbersPaintNothing)
{
    constexpr double kInfinite = std::numeric_limits<double>::infinity();
    for (const double far : {qQNaN(), kInfinite, -kInfinite, 1.7e308, -1.7e308}) {
        for (const QPointF &vertex : {QPointF(far, 8), QPointF(8, far), QPointF(far, far)}) {
            for (int i = 0; i < PolygonFacts<TypeParam>::kVertices; ++i) {
                typename TestFixture::Edited polygon;
                polygon.FinishGraph();
                polygon.m_graphData = QVector<QPointF>{{-1e10, 13}, {15.5, 0}, {1e100, 16}, {-19.5, -20}};
                polygon.m_graphData[i] = vertex;
                EXPECT_TRUE(isBlank(drawn(polygon))) << far << ' ' << i;
            }
        }
    }
}

TYPED_TEST(DraggedPolygonDraw, handlesAreShownWithVerticesThatAreNoNumbers)
{
    typename TestFixture::Edited polygon;
    const QImage handles = painted([&](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        polygon.DrawHotShape(painter);
    });
    polygon.m_graphData[1].setY(qQNaN());
    EXPECT_TRUE(samePixels(drawn(polygon), handles));
}

TYPED_TEST(DraggedPolygonDraw, dragPointsThatAreNoNumbersAreSurvived)
{
    const MessageLog log; // the paint engine warns
    constexpr double kFar[] = {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
                               -std::numeric_limits<double>::infinity(), 1e308};
    for (const double x : kFar) {
        for (const double y : kFar) {
            TypeParam polygon;
            feed(polygon, PT_DOWN, 100, 80);
            polygon.m_graphData[PolygonFacts<TypeParam>::kVertices] = {x, y};
            feed(polygon, PT_MOVE, 150, 130);
            drawn(polygon);
            feed(polygon, PT_UP, 150, 130);
            drawn(polygon);
            EXPECT_EQ(polygon.FinishGraph(), 1);
            drawn(polygon);
        }
    }
}

// Polygon and curve as they are painted: what they share of it, in each phase and on each layer.

#include "BoxFrame.h"
#include "GestureShape.h"
#include "MessageLog.h"
#include "PainterState.h"

namespace {

const QColor kTranslucentRed(255, 0, 0, 120);

template <typename Facts>
class GestureShapeDraw : public ::testing::Test
{
protected:
    static void paint(QPainter &painter, const QPainterPath &path, const QColor &color, int width)
    {
        painter.setPen(Facts::pen(color, width));
        painter.drawPath(path);
    }

    static QImage stroked(const QPainterPath &path, const QColor &color = Qt::black, int width = 4)
    {
        return painted([&](QPainter &painter) {
            painter.setRenderHint(QPainter::Antialiasing);
            paint(painter, path, color, width);
        });
    }

    static QRect clipAfterDraw(CInkGraph &shape, QRect rect)
    {
        QImage image = blankCanvas();
        QPainter painter(&image);
        painter.setClipRect(QRect(0, 0, 5, 5));
        shape.Draw(painter, rect);
        return clipOf(painter);
    }
};
TYPED_TEST_SUITE(GestureShapeDraw, GestureShapes, GestureShapeName);

} // namespace

TYPED_TEST(GestureShapeDraw, freshShapePaintsNothingAndSetsNoClip)
{
    typename TypeParam::Fresh fresh;
    EXPECT_TRUE(isBlank(drawn(fresh)));
    EXPECT_EDGES(this->clipAfterDraw(fresh, QRect(10, 10, 50, 50)), 0, 0, 4, 4);
    typename TypeParam::Growing uncounted;
    uncounted.m_nPointCount = 0;
    EXPECT_TRUE(isBlank(drawn(uncounted)));
    EXPECT_EDGES(this->clipAfterDraw(uncounted, QRect(10, 10, 50, 50)), 0, 0, 4, 4);
}

TYPED_TEST(GestureShapeDraw, widthsFromAHairlineUpAreStroked)
{
    for (const int width : {0, 1, 2, 9, 30, 40}) {
        SCOPED_TRACE(width);
        typename TypeParam::Growing growing;
        growing.SetWidth(width);
        growing.SetColor(kTranslucentRed);
        EXPECT_TRUE(samePixels(drawn(growing), this->stroked(TypeParam::growingPath(), kTranslucentRed, width)));
        typename TypeParam::Edited committed;
        committed.SetWidth(width);
        committed.SetColor(kTranslucentRed);
        committed.FinishGraph();
        EXPECT_TRUE(samePixels(drawn(committed), this->stroked(TypeParam::editedPath(), kTranslucentRed, width)));
    }
}

TYPED_TEST(GestureShapeDraw, drawLeavesTheCallersRectangle)
{
    typename TypeParam::Growing shape;
    QImage image = blankCanvas();
    QPainter painter(&image);
    QRect rect(1, 2, 3, 4);
    shape.Draw(painter, rect);
    EXPECT_EDGES(rect, 1, 2, 3, 5);
}

TYPED_TEST(GestureShapeDraw, painterIsGivenBackInEachPhase)
{
    typename TypeParam::Fresh fresh;
    typename TypeParam::Growing growing;
    typename TypeParam::Edited edited, foreign, turned, committed;
    foreign.SetOwnerIP(7);
    turned.m_fRotateAngle = 30;
    committed.FinishGraph();
    for (CInkGraph *shape :
         std::initializer_list<CInkGraph *>{&fresh, &growing, &edited, &foreign, &turned, &committed}) {
        QImage image = blankCanvas();
        QPainter painter(&image);
        QRect all = image.rect();
        setOddState(painter);
        shape->Draw(painter, all);
        expectOddState(painter);
        EXPECT_EQ(painter.hasClipping(), shape != &fresh);

        const MessageLog log;
        painter.restore(); // nothing to restore
        EXPECT_EQ(log.lines.size(), 1);
    }
}

TYPED_TEST(GestureShapeDraw, transformIsReplacedNotCombined)
{
    typename TypeParam::Growing shape;
    const QImage image = painted([&](QPainter &painter) {
        QRect all(-100, -100, 600, 500);
        painter.translate(50, 60);
        shape.Draw(painter, all);
    });
    EXPECT_TRUE(samePixels(image, this->stroked(TypeParam::growingPath())));
}

TYPED_TEST(GestureShapeDraw, handlesLieUnderTheOutlineWhileEdited)
{
    for (const int width : {24, 30}) { // wide enough to reach over the frame
        for (const float angle : {0.0f, 30.0f, 90.0f, 270.0f}) {
            SCOPED_TRACE(angle);
            typename TypeParam::Edited shape;
            shape.m_fRotateAngle = angle;
            shape.SetWidth(width);
            shape.SetColor(kTranslucentRed);
            const auto expected = [&](bool handlesFirst) {
                return painted([&](QPainter &painter) {
                    painter.setRenderHint(QPainter::Antialiasing);
                    painter.setWorldTransform(turnAbout(150, 125, double(angle)));
                    if (handlesFirst)
                        paintFrame(painter);
                    this->paint(painter, TypeParam::editedPath(), kTranslucentRed, width);
                    if (!handlesFirst)
                        paintFrame(painter);
                });
            };
            EXPECT_TRUE(samePixels(drawn(shape), expected(true)));
            EXPECT_FALSE(samePixels(drawn(shape), expected(false)));
        }
    }
}

TYPED_TEST(GestureShapeDraw, drawAsksTheOverriddenHandlesWithItsOwnPen)
{
    class Unhandled : public TypeParam::Edited
    {
    public:
        void DrawHotShape(QPainter &painter) override { pens.append(painter.pen()); }
        QVector<QPen> pens;
    };
    Unhandled shape;
    EXPECT_TRUE(samePixels(drawn(shape), this->stroked(TypeParam::editedPath())));
    ASSERT_EQ(shape.pens.size(), 1);
    EXPECT_EQ(shape.pens[0], TypeParam::pen(Qt::black, 4)); // the join of a smooth path shows nowhere else
}

TYPED_TEST(GestureShapeDraw, handlesAreShownOnlyWhileEdited)
{
    const QImage plain = this->stroked(TypeParam::editedPath());
    typename TypeParam::Edited hidden, finished;
    hidden.m_bHideHotShape = 1;
    EXPECT_TRUE(samePixels(drawn(hidden), plain));
    finished.m_bFinished = 1;
    EXPECT_TRUE(samePixels(drawn(finished), plain));
    finished.m_bFinished = 0;
    EXPECT_FALSE(samePixels(drawn(finished), plain));
    typename TypeParam::Growing finishedWhileDrawn;
    finishedWhileDrawn.FinishGraph();
    EXPECT_TRUE(samePixels(drawn(finishedWhileDrawn), this->stroked(TypeParam::growingPath())));
}

TYPED_TEST(GestureShapeDraw, foreignShapeIsShadedUnderItsOutline)
{
    typename TypeParam::Edited shape;
    shape.SetDrawerIP(2);
    shape.SetColor(kTranslucentRed);
    const QImage expected = painted([&](QPainter &painter) {
        painter.fillRect(QRect(90, 90, 121, 71), QColor(50, 50, 50, 60));
        painter.setRenderHint(QPainter::Antialiasing);
        this->paint(painter, TypeParam::editedPath(), kTranslucentRed, 4);
    });
    EXPECT_TRUE(samePixels(drawn(shape), expected));
}

TYPED_TEST(GestureShapeDraw, growingAndEditedShapesArePaintedOnTheSurfaceOnly)
{
    typename TypeParam::Growing growing;
    typename TypeParam::Edited edited;
    for (CInkGraph *shape : std::initializer_list<CInkGraph *>{&growing, &edited}) {
        Layers layers;
        layers.draw(*shape);
        EXPECT_FALSE(isBlank(layers.surface));
        EXPECT_TRUE(samePixels(layers.surface, drawn(*shape)));
        EXPECT_TRUE(isBlank(layers.page));
        EXPECT_TRUE(isBlank(layers.background));
        EXPECT_TRUE(isBlank(layers.ink));
    }
}

TYPED_TEST(GestureShapeDraw, committedShapeIsPaintedOnSurfaceInkAndPage)
{
    typename TypeParam::Edited shape;
    shape.SetColor(kTranslucentRed);
    shape.FinishGraph();
    Layers layers, skipped;
    layers.draw(shape);
    const QImage expected = this->stroked(TypeParam::editedPath(), kTranslucentRed);
    EXPECT_TRUE(samePixels(layers.surface, expected));
    EXPECT_TRUE(samePixels(layers.ink, expected));
    EXPECT_TRUE(samePixels(layers.page, expected));
    EXPECT_TRUE(isBlank(layers.background));
    skipped.draw(shape, 1);
    EXPECT_TRUE(isBlank(skipped.surface));
    EXPECT_TRUE(isBlank(skipped.ink));
    EXPECT_TRUE(isBlank(skipped.page));
}

TYPED_TEST(GestureShapeDraw, paintingLogsNothing)
{
    const MessageLog log;
    typename TypeParam::Edited shape;
    drawn(shape);
    shape.FinishGraph();
    drawn(shape);
    EXPECT_TRUE(log.lines.isEmpty());
}

// With such points Qt divides by zero, or does not come to an end.
TYPED_TEST(GestureShapeDraw, outlineWithAPointThatIsNoNumberIsNotPainted)
{
    const QVector<QPointF> outlines[] = {{{50, 5}, {-4, -8.5}, {16, 13}, {9e15, 22}},
                                         {{29, 5}, {-1, -8.5}, {31.5, 13}, {35, 22}}};
    typename TypeParam::Growing growing;
    typename TypeParam::Edited edited;
    growing.FinishGraph();
    edited.FinishGraph();
    for (const double far : {qQNaN(), qInf(), -qInf(), 1.7e308}) {
        for (const QVector<QPointF> &outline : outlines) {
            for (int i = 0; i < 4; ++i) {
                for (CInkGraph *shape : std::initializer_list<CInkGraph *>{&growing, &edited}) {
                    shape->m_graphData = outline;
                    shape->m_graphData[i].setX(far);
                    EXPECT_TRUE(isBlank(drawn(*shape))) << far << ' ' << i;
                }
            }
        }
    }
}

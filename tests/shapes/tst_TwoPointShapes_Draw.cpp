// Lines and boxes as they are painted: the layers, the handles, the painter that comes back.

#include "MessageLog.h"
#include "PainterState.h"
#include "TwoPointShape.h"

#include <climits>

namespace {

const QColor kTranslucentRed(255, 0, 0, 120);

// The rectangle writes a debug line for each painting, which is of no interest in most cases.
QImage drawnQuietly(CInkGraph &graph)
{
    const MessageLog log;
    return drawn(graph);
}

template <typename Shape>
class TwoPointShapeDraw : public ::testing::Test
{
protected:
    using Facts = TwoPointFacts<Shape>;

    static void paintOutline(QPainter &painter, const QColor &color)
    {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Facts::pen(color));
        Facts::paintShape(painter);
    }

    static QImage outline(const QColor &color = Qt::black)
    {
        return painted([&](QPainter &painter) { paintOutline(painter, color); });
    }

    static QImage outlineWithHandles()
    {
        return painted([](QPainter &painter) {
            painter.setRenderHint(QPainter::Antialiasing);
            if (!Facts::kHandlesLieOver)
                Facts::paintHandles(painter);
            paintOutline(painter, Qt::black);
            if (Facts::kHandlesLieOver)
                Facts::paintHandles(painter);
        });
    }
};

// The arrow line does not give the painter back, see tst_CInk1ArrowLine.cpp.
using GivingShapes = ::testing::Types<CInkLine, CInkRectangle, CInkRoundRect>;
TYPED_TEST_SUITE(TwoPointShapeDraw, GivingShapes, TwoPointName);

} // namespace

TYPED_TEST(TwoPointShapeDraw, drawLeavesTheCallersRectangle)
{
    const MessageLog log;
    TypeParam pressed;
    feed(pressed, PT_DOWN, 100, 80);
    EditedTwoPointShape<TypeParam> edited;
    for (TypeParam *shape : std::initializer_list<TypeParam *>{&pressed, &edited}) {
        QImage image = blankCanvas();
        QPainter painter(&image);
        QRect rect(1, 2, 3, 4);
        shape->Draw(painter, rect);
        EXPECT_EDGES(rect, 1, 2, 3, 5);
    }
}

TYPED_TEST(TwoPointShapeDraw, painterIsGivenBackInEachPhase)
{
    TypeParam fresh, pressed;
    feed(pressed, PT_DOWN, 100, 80);
    DraggedTwoPointShape<TypeParam> dragged;
    EditedTwoPointShape<TypeParam> edited, foreign, turned, committed;
    foreign.SetOwnerIP(7);
    turned.m_fRotateAngle = 30;
    committed.FinishGraph();
    for (TypeParam *shape :
         std::initializer_list<TypeParam *>{&fresh, &pressed, &dragged, &edited, &foreign, &turned, &committed}) {
        MessageLog log;
        QImage image = blankCanvas();
        QPainter painter(&image);
        QRect all = image.rect();
        setOddState(painter);
        shape->Draw(painter, all);
        expectOddState(painter);
        if (shape != &pressed) { // too small a shape to tell
            EXPECT_EQ(painter.hasClipping(), shape != &fresh || TwoPointFacts<TypeParam>::kFreshOneSetsTheClip);
        }

        log.lines.clear();
        painter.restore(); // nothing to restore
        EXPECT_EQ(log.lines.size(), 1);
    }
}

TYPED_TEST(TwoPointShapeDraw, drawAsksTheOverriddenHandlesWithItsOwnPen)
{
    class Unhandled : public EditedTwoPointShape<TypeParam>
    {
    public:
        void DrawHotShape(QPainter &painter) override { pens.append(painter.pen()); }
        QVector<QPen> pens;
    };
    Unhandled shape;
    EXPECT_TRUE(samePixels(drawnQuietly(shape), this->outline()));
    ASSERT_EQ(shape.pens.size(), 1);
    EXPECT_EQ(shape.pens[0], TwoPointFacts<TypeParam>::pen(QColor(0, 0, 0))); // the cap of a box shows nowhere else
    shape.FinishGraph();
    drawnQuietly(shape);
    EXPECT_EQ(shape.pens.size(), 1);
}

TYPED_TEST(TwoPointShapeDraw, handlesAreShownOnlyWhileEdited)
{
    const QImage plain = this->outline();
    EditedTwoPointShape<TypeParam> hidden, finished, committed, edited;
    hidden.m_bHideHotShape = 1;
    EXPECT_TRUE(samePixels(drawnQuietly(hidden), plain));
    finished.m_bFinished = 1;
    EXPECT_TRUE(samePixels(drawnQuietly(finished), plain));
    feed(committed, PT_DOWN, 350, 250);
    EXPECT_TRUE(samePixels(drawnQuietly(committed), plain));
    committed.m_bHideHotShape = 0;
    EXPECT_TRUE(samePixels(drawnQuietly(committed), plain));
    DraggedTwoPointShape<TypeParam> finishedWhileDrawn;
    finishedWhileDrawn.FinishGraph();
    EXPECT_TRUE(samePixels(drawnQuietly(finishedWhileDrawn), plain));
    EXPECT_FALSE(samePixels(drawnQuietly(edited), plain));
    EXPECT_TRUE(samePixels(drawnQuietly(edited), this->outlineWithHandles()));
}

TYPED_TEST(TwoPointShapeDraw, shapeInProgressIsPaintedOnTheSurfaceOnly)
{
    DraggedTwoPointShape<TypeParam> shape;
    shape.ShowDrawerName(1);
    shape.ShowDrawerIcon(1);
    shape.m_sizeName = QSize(60, 20);
    const MessageLog log;
    Layers layers;
    layers.draw(shape);
    EXPECT_TRUE(samePixels(layers.surface, this->outline()));
    EXPECT_TRUE(isBlank(layers.page));
    EXPECT_TRUE(isBlank(layers.background));
    EXPECT_TRUE(isBlank(layers.ink));
}

TYPED_TEST(TwoPointShapeDraw, editedShapeIsPaintedOnTheSurfaceOnly)
{
    EditedTwoPointShape<TypeParam> shape;
    const MessageLog log;
    Layers layers;
    layers.draw(shape);
    EXPECT_TRUE(samePixels(layers.surface, this->outlineWithHandles()));
    EXPECT_TRUE(isBlank(layers.page));
    EXPECT_TRUE(isBlank(layers.background));
    EXPECT_TRUE(isBlank(layers.ink));
}

TYPED_TEST(TwoPointShapeDraw, committedShapeIsPaintedOnSurfaceInkAndPage)
{
    EditedTwoPointShape<TypeParam> shape;
    shape.SetColor(kTranslucentRed);
    shape.FinishGraph();
    const MessageLog log;
    Layers layers;
    layers.draw(shape);
    const QImage expected = this->outline(kTranslucentRed);
    EXPECT_TRUE(samePixels(layers.surface, expected));
    EXPECT_TRUE(samePixels(layers.ink, expected));
    EXPECT_TRUE(samePixels(layers.page, expected));
    EXPECT_TRUE(isBlank(layers.background));
}

TYPED_TEST(TwoPointShapeDraw, skipSuppressesAllPainting)
{
    EditedTwoPointShape<TypeParam> shape;
    shape.FinishGraph();
    const MessageLog log;
    for (const int skip : {1, -1, 7}) {
        Layers layers;
        layers.draw(shape, skip);
        EXPECT_TRUE(isBlank(layers.surface));
        EXPECT_TRUE(isBlank(layers.page));
        EXPECT_TRUE(isBlank(layers.background));
        EXPECT_TRUE(isBlank(layers.ink));
    }
    EXPECT_TRUE(log.lines.isEmpty());
}

TYPED_TEST(TwoPointShapeDraw, extremeCoordinatesArePaintedWithoutHarm)
{
    for (const int width : {-7, 0, 1, 10}) {
        for (const int far : {INT_MIN, -2'000'000'000, 16'777'217, INT_MAX}) {
            for (const int x : {100, INT_MAX}) {
                TypeParam shape;
                shape.SetWidth(width);
                feed(shape, PT_DOWN, far, 80);
                drawnQuietly(shape);
                feed(shape, PT_MOVE, x, far);
                drawnQuietly(shape);
                feed(shape, PT_UP, 50, far);
                drawnQuietly(shape);
                shape.SetDrawerIP(1);
                drawnQuietly(shape);
                shape.FinishGraph();
                drawnQuietly(shape);
            }
        }
    }
}

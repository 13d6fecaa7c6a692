// The stencil as it is painted, in each phase and on each layer.

#include "CInk4Stars.h"
#include "CInk5Stars.h"
#include "CInkUpArrow.h"
#include "Canvas.h"
#include "Exact.h"
#include "HandleFrame.h"
#include "MessageLog.h"
#include "PainterState.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

const QColor kTranslucentRed(255, 0, 0, 120);
const QRect kFrame(90, 90, 133, 77);

// From (100,100) to (212,156), which is exact.
const QPolygonF
    kStar({{156, 100}, {146.5, 122.75}, {100, 128}, {146.5, 133}, {156, 156}, {166, 133}, {212, 128}, {166, 122.75}});

QPen starPen(const QColor &color, double width, Qt::PenStyle style = Qt::SolidLine)
{
    return {QBrush(color), width, style, Qt::SquareCap, Qt::RoundJoin};
}

QImage outline(const QPen &pen, const QPolygonF &polygon = kStar)
{
    return painted([&](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(pen);
        painter.drawPolygon(polygon);
    });
}

class PressedStar : public CInk4Stars
{
public:
    PressedStar() { feed(*this, PT_DOWN, 100, 100); }
};

class DraggedStar : public PressedStar
{
public:
    DraggedStar() { feed(*this, PT_MOVE, 212, 156); }
};

class EditedStar : public DraggedStar
{
public:
    EditedStar() { feed(*this, PT_UP, 212, 156); }
};

class AbandonedStar : public DraggedStar
{
public:
    AbandonedStar() { feed(*this, PT_UP, 104, 100); }
};

} // namespace

TEST(CInkSignGraph, freshStencilPaintsNothingAndLeavesTheClip)
{
    CInk4Stars star, styled(Qt::DashLine);
    for (CInk4Stars *graph : {&star, &styled}) {
        EXPECT_TRUE(isBlank(drawn(*graph)));
        EXPECT_EDGES(clipAfterDraw(*graph, QRect(10, 10, 50, 50)), 0, 0, 4, 4);
        graph->m_nPointCount = -1;
        EXPECT_TRUE(isBlank(drawn(*graph)));
        EXPECT_EDGES(clipAfterDraw(*graph, QRect(10, 10, 50, 50)), 0, 0, 4, 4);
    }
}

TEST(CInkSignGraph, pressedStencilPaintsNothingButSetsTheClip)
{
    PressedStar star;
    EXPECT_TRUE(isBlank(drawn(star)));
    EXPECT_EDGES(clipAfterDraw(star, QRect(10, 10, 50, 50)), 10, 10, 101, 101);
    EXPECT_EDGES(clipAfterDraw(star, QRect()), 99, 99, 101, 101);
}

TEST(CInkSignGraph, previewIsStroked)
{
    DraggedStar star;
    star.SetColor(kTranslucentRed);
    star.SetWidth(6);
    EXPECT_TRUE(samePixels(drawn(star), outline(starPen(kTranslucentRed, 6))));
}

TEST(CInkSignGraph, previewAndFormedShapeLookAlike)
{
    for (const auto &[x, y] : {std::pair(217, 171), std::pair(31, 33), std::pair(101, 222)}) {
        PressedStar star;
        star.SetWidth(3);
        feed(star, PT_MOVE, x, y);
        const QImage preview = drawn(star);
        EXPECT_FALSE(isBlank(preview));
        feed(star, PT_UP, x, y);
        EXPECT_FALSE(samePixels(drawn(star), preview)); // with handles
        star.FinishGraph();
        EXPECT_TRUE(samePixels(drawn(star), preview));
    }
}

TEST(CInkSignGraph, formedShapeIsTheListNotThePreview)
{
    EditedStar star;
    star.FinishGraph();
    star.m_previewData.clear();
    EXPECT_TRUE(samePixels(drawn(star), outline(starPen(Qt::black, 1))));
    star.m_previewData.fill(QPointF(50, 60), 10);
    EXPECT_TRUE(samePixels(drawn(star), outline(starPen(Qt::black, 1))));
    DraggedStar dragged;
    dragged.m_previewData.clear();
    EXPECT_TRUE(isBlank(drawn(dragged)));
    EXPECT_EDGES(clipAfterDraw(dragged, QRect()), 90, 90, 222, 166);
}

TEST(CInkSignGraph, onlyTheOutlineOfThePreviewIsPainted)
{
    DraggedStar star;
    star.m_previewData[8] = QPointF(300, 20);
    star.m_previewData[9] = QPointF(20, 250);
    EXPECT_TRUE(samePixels(drawn(star), outline(starPen(Qt::black, 1))));
    star.m_nOutlinePointCount = 5;
    EXPECT_TRUE(samePixels(drawn(star), outline(starPen(Qt::black, 1), kStar.mid(0, 5))));
}

TEST(CInkSignGraph, secondPressStillShowsTheOldPreview)
{
    DraggedStar star;
    feed(star, PT_DOWN, 160, 130);
    EXPECT_TRUE(samePixels(drawn(star), outline(starPen(Qt::black, 1))));
    EXPECT_EDGES(clipAfterDraw(star, QRect()), 159, 129, 161, 131);
}

TEST(CInkSignGraph, unmovedUpArrowIsPaintedInItsOwnSize)
{
    CInkUpArrow arrow;
    feed(arrow, PT_DOWN, 100, 100);
    feed(arrow, PT_MOVE, 100, 100);
    const QPolygonF expected({{140, 100}, {100, 110}, {125, 110}, {125, 130}, {155, 130}, {155, 110}, {180, 110}});
    EXPECT_EDGES(clipAfterDraw(arrow, QRect()), 90, 90, 110, 110); // only the box of the drag is covered
    EXPECT_TRUE(samePixels(drawn(arrow), outline(starPen(Qt::black, 1), expected)));
}

TEST(CInkSignGraph, abandonedStencilPaintsNothingAndLeavesTheClip)
{
    AbandonedStar abandoned;
    DraggedStar finishedInMidDrag;
    finishedInMidDrag.FinishGraph();
    PressedStar finishedAtThePress;
    finishedAtThePress.FinishGraph();
    for (CInkSignGraph *star :
         std::initializer_list<CInkSignGraph *>{&abandoned, &finishedInMidDrag, &finishedAtThePress}) {
        EXPECT_EDGES(clipAfterDraw(*star, QRect(10, 10, 50, 50)), 0, 0, 4, 4);
        Layers layers;
        layers.draw(*star);
        EXPECT_TRUE(isBlank(layers.surface));
        EXPECT_TRUE(isBlank(layers.page));
        EXPECT_TRUE(isBlank(layers.background));
        EXPECT_TRUE(isBlank(layers.ink));
    }
}

TEST(CInkSignGraph, onlyTheCountsDecideWhetherAFinishedStencilIsPainted)
{
    AbandonedStar star;
    star.m_nPointCount = 8;
    star.m_previewData = kStar;
    EXPECT_TRUE(samePixels(drawn(star), outline(starPen(Qt::black, 1))));
    EditedStar edited;
    edited.FinishGraph();
    edited.m_nPointCount = 7;
    EXPECT_TRUE(isBlank(drawn(edited)));
    edited.m_bFinished = 0;
    EXPECT_TRUE(samePixels(drawn(edited), outline(starPen(Qt::black, 1))));
}

TEST(CInkSignGraph, clipAlwaysUnitesTheCallersRectangle)
{
    DraggedStar dragged;
    EXPECT_EDGES(clipAfterDraw(dragged, QRect(0, 0, 50, 50)), 0, 0, 222, 166);
    EXPECT_EDGES(clipAfterDraw(dragged, QRect()), 90, 90, 222, 166);
    EditedStar edited;
    EXPECT_EDGES(clipAfterDraw(edited, QRect(0, 0, 50, 50)), 0, 0, 246, 218);
    EXPECT_EDGES(clipAfterDraw(edited, QRect()), 62, 34, 246, 218);
    edited.FinishGraph();
    EXPECT_EDGES(clipAfterDraw(edited, QRect(0, 0, 50, 50)), 0, 0, 246, 218);
    EXPECT_EDGES(clipAfterDraw(edited, QRect()), 62, 34, 246, 218);
}

TEST(CInkSignGraph, clipIsSetUnderThePaintersOwnTransform)
{
    DraggedStar star;
    QImage image = blankCanvas();
    QPainter painter(&image);
    QRect none;
    painter.translate(50, 60);
    star.Draw(painter, none);
    EXPECT_EDGES(clipOf(painter), 90, 90, 222, 166);
    painter.end();
    const QImage expected = painted([](QPainter &plain) {
        plain.setClipRect(QRect(140, 150, 133, 77));
        plain.setRenderHint(QPainter::Antialiasing);
        plain.setPen(starPen(Qt::black, 1));
        plain.drawPolygon(kStar);
    });
    EXPECT_FALSE(isBlank(image));
    EXPECT_TRUE(samePixels(image, expected));
}

TEST(CInkSignGraph, drawLeavesTheCallersRectangle)
{
    EditedStar star;
    QImage image = blankCanvas();
    QPainter painter(&image);
    QRect rect(1, 2, 3, 4);
    star.Draw(painter, rect);
    EXPECT_EDGES(rect, 1, 2, 3, 5);
}

TEST(CInkSignGraph, painterIsGivenBackInEachPhase)
{
    CInk4Stars fresh;
    PressedStar pressed;
    DraggedStar dragged;
    EditedStar edited, foreign, turned, committed;
    AbandonedStar abandoned;
    foreign.SetOwnerIP(7);
    turned.m_fRotateAngle = 30;
    committed.FinishGraph();
    for (CInkSignGraph *star : std::initializer_list<CInkSignGraph *>{&fresh, &pressed, &dragged, &edited, &foreign,
                                                                      &turned, &committed, &abandoned}) {
        MessageLog log;
        QImage image = blankCanvas();
        QPainter painter(&image);
        QRect all = image.rect();
        setOddState(painter);
        star->Draw(painter, all);
        expectOddState(painter);
        EXPECT_EQ(painter.hasClipping(), star != &fresh && star != &abandoned);
        EXPECT_TRUE(log.lines.isEmpty());
        painter.restore(); // nothing to restore
        EXPECT_EQ(log.lines.size(), 1);
    }
}

TEST(CInkSignGraph, handlesLieUnderTheOutline)
{
    EditedStar star;
    star.SetWidth(16); // wide enough to reach over the handles
    star.SetColor(kTranslucentRed);
    const auto expected = [](bool under) {
        return painted([&](QPainter &painter) {
            painter.setRenderHint(QPainter::Antialiasing);
            if (under)
                paintHandleFrame(painter, kFrame);
            painter.setPen(starPen(kTranslucentRed, 16));
            painter.drawPolygon(kStar);
            if (!under)
                paintHandleFrame(painter, kFrame);
        });
    };
    EXPECT_FALSE(samePixels(expected(true), expected(false)));
    EXPECT_TRUE(samePixels(drawn(star), expected(true)));
}

TEST(CInkSignGraph, handlesAreShownOnlyWhileEdited)
{
    const QImage plain = outline(starPen(Qt::black, 1));
    EditedStar hidden, finished, committed, edited;
    hidden.m_bHideHotShape = 1;
    EXPECT_TRUE(samePixels(drawn(hidden), plain));
    finished.m_bFinished = 1;
    EXPECT_TRUE(samePixels(drawn(finished), plain));
    feed(committed, PT_DOWN, 350, 250);
    EXPECT_TRUE(samePixels(drawn(committed), plain));
    EXPECT_FALSE(samePixels(drawn(edited), plain));
}

TEST(CInkSignGraph, drawAsksTheOverriddenHandlesWithItsOwnPen)
{
    class Unhandled : public EditedStar
    {
    public:
        void DrawHotShape(QPainter &painter) override
        {
            pens.append(painter.pen());
            EXPECT_TRUE(painter.testRenderHint(QPainter::Antialiasing));
        }
        QVector<QPen> pens;
    };
    Unhandled star;
    star.m_penStyle = Qt::DotLine;
    star.SetWidth(5);
    EXPECT_TRUE(samePixels(drawn(star), outline(starPen(Qt::black, 5, Qt::DotLine))));
    ASSERT_EQ(star.pens.size(), 1);
    EXPECT_EQ(star.pens[0], starPen(QColor(0, 0, 0), 5, Qt::DotLine));
}

TEST(CInkSignGraph, foreignStencilIsShadedUnderItsOutline)
{
    EditedStar star;
    star.SetDrawerIP(2);
    star.SetColor(kTranslucentRed);
    const QImage expected = painted([](QPainter &painter) {
        painter.fillRect(kFrame, QColor(50, 50, 50, 60));
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(starPen(kTranslucentRed, 1));
        painter.drawPolygon(kStar);
    });
    EXPECT_TRUE(samePixels(drawn(star), expected));
}

TEST(CInkSignGraph, turnedStencilIsPaintedInItsFrame)
{
    for (const float angle : {1.0f, 30.0f, 90.0f, 180.0f, 271.0f}) {
        SCOPED_TRACE(angle);
        EditedStar star;
        star.m_fRotateAngle = angle;
        star.SetWidth(16);
        star.SetColor(kTranslucentRed);
        for (const bool edited : {true, false}) {
            if (!edited)
                star.FinishGraph();
            const QImage expected = painted([&](QPainter &painter) {
                painter.setRenderHint(QPainter::Antialiasing);
                painter.setWorldTransform(turnAbout(156, 128, double(angle)));
                if (edited)
                    paintHandleFrame(painter, kFrame);
                painter.setPen(starPen(kTranslucentRed, 16));
                painter.drawPolygon(kStar);
            });
            EXPECT_TRUE(samePixels(drawn(star), expected));
        }
    }
}

TEST(CInkSignGraph, crossingOutlineIsFilledOddEven)
{
    CInk5Stars star;
    const QVector<QPointF> crossing{{100, 100}, {200, 100}, {200, 200}, {100, 200}, {100, 100},
                                    {150, 100}, {150, 150}, {100, 150}, {120, 130}, {120, 120}};
    feed(star, PT_DOWN, 100, 100);
    feed(star, PT_MOVE, 200, 200);
    for (int i = 0; i < 10; ++i)
        star.m_previewData[i] = crossing[i];
    const auto filled = [&](Qt::FillRule rule) {
        return painted([&](QPainter &painter) {
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setBrush(QColor(0, 200, 0, 90));
            painter.setPen(starPen(Qt::black, 1));
            painter.drawPolygon(QPolygonF(crossing), rule);
        });
    };
    const QImage image = painted([&](QPainter &painter) {
        QRect all(0, 0, 400, 300);
        painter.setBrush(QColor(0, 200, 0, 90));
        star.Draw(painter, all);
    });
    EXPECT_FALSE(samePixels(filled(Qt::OddEvenFill), filled(Qt::WindingFill)));
    EXPECT_TRUE(samePixels(image, filled(Qt::OddEvenFill)));
}

TEST(CInkSignGraph, penStyleIsUsed)
{
    for (const Qt::PenStyle style : {Qt::NoPen, Qt::DashLine, Qt::DotLine, Qt::DashDotLine, Qt::DashDotDotLine}) {
        for (const int width : {1, 6}) {
            DraggedStar star;
            star.m_penStyle = style;
            star.SetWidth(width);
            star.SetColor(kTranslucentRed);
            EXPECT_TRUE(samePixels(drawn(star), outline(starPen(kTranslucentRed, width, style)))) << style;
        }
    }
}

TEST(CInkSignGraph, widthsFromAHairlineUpAreStroked)
{
    EditedStar star;
    star.FinishGraph();
    for (const int width : {0, 1, 2, 9, 40}) {
        star.SetWidth(width);
        EXPECT_TRUE(samePixels(drawn(star), outline(starPen(Qt::black, width)))) << width;
    }
}

TEST(CInkSignGraph, dragIsPaintedOnTheSurfaceOnly)
{
    DraggedStar star;
    star.ShowDrawerName(1);
    star.ShowDrawerIcon(1);
    star.m_sizeName = QSize(60, 20);
    Layers layers;
    layers.draw(star);
    EXPECT_TRUE(samePixels(layers.surface, outline(starPen(Qt::black, 1))));
    EXPECT_TRUE(isBlank(layers.page));
    EXPECT_TRUE(isBlank(layers.background));
    EXPECT_TRUE(isBlank(layers.ink));
}

TEST(CInkSignGraph, committedStencilIsPaintedOnSurfaceInkAndPage)
{
    EditedStar star;
    star.FinishGraph();
    star.SetColor(kTranslucentRed);
    Layers layers;
    layers.draw(star);
    const QImage expected = outline(starPen(kTranslucentRed, 1));
    EXPECT_TRUE(samePixels(layers.surface, expected));
    EXPECT_TRUE(samePixels(layers.ink, expected));
    EXPECT_TRUE(samePixels(layers.page, expected));
    EXPECT_TRUE(isBlank(layers.background));
    Layers skipped;
    skipped.draw(star, 1);
    EXPECT_TRUE(isBlank(skipped.surface));
}

TEST(CInkSignGraph, shortenedListPaintsNothing)
{
    for (const int size : {0, 1, 7}) {
        EditedStar star;
        star.m_graphData.resize(size);
        star.FinishGraph();
        EXPECT_TRUE(isBlank(drawn(star)));
        DraggedStar dragged;
        dragged.m_previewData.resize(size);
        EXPECT_TRUE(isBlank(drawn(dragged)));
    }
    for (const int count : {INT_MIN, -1, 0, 9, INT_MAX}) {
        EditedStar star;
        star.m_bHideHotShape = 1;
        star.m_nOutlinePointCount = count;
        EXPECT_TRUE(isBlank(drawn(star)));
    }
}

// With such points Qt divides by zero, or does not come to an end.
TEST(CInkSignGraph, outlineWithWhatIsNoNumberIsNotPainted)
{
    for (const double far : {qQNaN(), qInf(), -qInf(), 1.7e308, -1.7e308}) {
        for (int i = 0; i < 8; ++i) {
            EditedStar star;
            star.FinishGraph();
            star.m_graphData[(i + 3) % 8] = {1e100, -16};
            star.m_graphData[i] = {double(i), far};
            EXPECT_TRUE(isBlank(drawn(star))) << far << ' ' << i;
        }
    }
    EditedStar star;
    star.FinishGraph();
    star.m_graphData.append({qQNaN(), qQNaN()}); // behind the outline
    EXPECT_TRUE(samePixels(drawn(star), outline(starPen(QColor(0, 0, 0), 1))));
}

// Dashes of a negative width would run backwards, for ever, and dashes of points too far away would stay in place.
TEST(CInkSignGraph, endlessDashesAreSolid)
{
    DraggedStar star;
    star.m_penStyle = Qt::DotLine;
    star.SetWidth(-3);
    EXPECT_TRUE(samePixels(drawn(star), outline(starPen(QColor(0, 0, 0), -3))));

    QPolygonF far = kStar;
    far[2] = {1e20, 128};
    star.SetWidth(3);
    star.m_previewData = far;
    EXPECT_TRUE(samePixels(drawn(star), outline(starPen(QColor(0, 0, 0), 3), far)));
}

TEST(CInkSignGraph, dashesOfPointsNearTheLimitsStay)
{
    DraggedStar star;
    star.m_penStyle = Qt::DotLine;
    star.m_previewData[2] = {-1e6, 128};
    QPolygonF far = kStar;
    far[2] = {-1e6, 128};
    EXPECT_TRUE(samePixels(drawn(star), outline(starPen(QColor(0, 0, 0), 1, Qt::DotLine), far)));
}

// The eraser on its layers.

#include "CInkEraser.h"
#include "PenStroke.h"

#include <QtGui/QBrush>
#include <QtGui/QPen>
#include <QtGui/QPicture>

#include <gtest/gtest.h>

#include <climits>

namespace {

const QColor kTransparent(0, 0, 0, 0);

// A background of which no two neighbouring pixels are alike, translucent in its lower half.
QImage motley(int seed = 0)
{
    QImage image(400, 300, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < 300; ++y) {
        for (int x = 0; x < 400; ++x)
            image.setPixelColor(x, y,
                                QColor((7 * x + seed) % 256, (5 * y) % 256, (x * y + seed) % 256, y < 150 ? 255 : 140));
    }
    return image;
}

// Ink in three columns: opaque, translucent and none.
QImage inked()
{
    QImage image = blankCanvas();
    QPainter painter(&image);
    painter.fillRect(0, 0, 130, 300, QColor(20, 60, 220));
    painter.fillRect(130, 0, 40, 300, QColor(220, 60, 20, 120));
    return image;
}

// Layers with ink on all but the background.
struct InkedLayers
{
    explicit InkedLayers(const QImage &picture = motley())
        : background(picture)
    {
    }

    void draw(CInkEraser &eraser, int rebuildPen = 0, int skip = 0, QRect rc = {0, 0, 400, 300})
    {
        QPainter p1(&page), p2(&surface), p3(&background), p4(&ink);
        eraser.Draw(p1, p2, p3, p4, rc, rebuildPen, skip);
        clips = {clipOf(p1), clipOf(p2), clipOf(p3), clipOf(p4)};
    }

    bool isUntouched() const
    {
        return samePixels(page, inked()) && samePixels(surface, inked()) && samePixels(ink, inked());
    }

    QImage page = inked(), surface = inked(), ink = inked(), background;
    QVector<QRect> clips;
};

// What `paint(QPainter &)` makes of ink with antialiasing.
template <typename Paint>
QImage overInk(QPainter::CompositionMode mode, Paint paint)
{
    QImage image = inked();
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setCompositionMode(mode);
    paint(painter);
    painter.end();
    return image;
}

constexpr auto kOver = QPainter::CompositionMode_SourceOver;
constexpr auto kIn = QPainter::CompositionMode_SourceIn;

// Across all three columns of ink and both halves of the background, with sharp turns.
QPainterPath strokePath()
{
    QPainterPath path(QPointF(60, 100));
    path.lineTo(230, 120);
    path.lineTo(70, 150);
    path.lineTo(240, 200);
    return path;
}

QPen texturePen(const QImage &texture, double width)
{
    return {QBrush(texture), width, Qt::SolidLine, Qt::RoundCap, Qt::BevelJoin};
}

QImage strokeOverInk(QPainter::CompositionMode mode, const QPen &pen)
{
    return overInk(mode, [&](QPainter &painter) {
        painter.setPen(pen);
        painter.drawPath(strokePath());
    });
}

QImage discOverInk(QPainter::CompositionMode mode, const QRectF &box, const QBrush &brush)
{
    return overInk(mode, [&](QPainter &painter) {
        QPainterPath disc;
        disc.addEllipse(box);
        painter.fillPath(disc, brush);
    });
}

class Stroke : public CInkEraser
{
public:
    explicit Stroke(int width = 16)
    {
        CInkEraser::SetWidth(width);
        feed(*this, PT_DOWN, 60, 100);
        feed(*this, PT_MOVE, 230, 120);
        feed(*this, PT_MOVE, 70, 150);
    }
};

class GrowingStroke : public Stroke
{
public:
    explicit GrowingStroke(int width = 16)
        : Stroke(width)
    {
        feed(*this, PT_MOVE, 240, 200);
    }
};

class FinishedStroke : public Stroke
{
public:
    explicit FinishedStroke(int width = 16)
        : Stroke(width)
    {
        feed(*this, PT_UP, 240, 200);
    }
};

} // namespace

TEST(CInkEraserDraw, growingStrokeShowsTheBackgroundOnTheSurface)
{
    GrowingStroke eraser;
    InkedLayers layers;
    layers.draw(eraser);
    EXPECT_TRUE(samePixels(layers.surface, strokeOverInk(kOver, texturePen(motley(), 16))));
    EXPECT_TRUE(samePixels(layers.page, inked()));
    EXPECT_TRUE(samePixels(layers.ink, inked()));
    EXPECT_TRUE(samePixels(layers.background, motley()));
    EXPECT_EQ(layers.surface.pixel(90, 104), motley().pixel(90, 104)); // texture at its own place
}

TEST(CInkEraserDraw, finishedStrokeErasesSurfacePageAndInk)
{
    for (const int width : {16, 7, 1, 0}) {
        SCOPED_TRACE(width);
        FinishedStroke eraser(width);
        InkedLayers layers;
        layers.draw(eraser);
        // The frame of a hairline cuts the stroke's ends, so clip as it does.
        const auto within = [&](const QImage &whole) {
            QImage image = inked();
            QPainter painter(&image);
            painter.setCompositionMode(QPainter::CompositionMode_Source);
            painter.setClipRect(eraser.m_rcHot.adjusted(-1, -1, 1, 1));
            painter.drawImage(0, 0, whole);
            painter.end();
            return image;
        };
        EXPECT_TRUE(samePixels(layers.surface, within(strokeOverInk(kOver, texturePen(motley(), width)))));
        EXPECT_TRUE(samePixels(layers.page, within(strokeOverInk(kIn, texturePen(motley(), width)))));
        EXPECT_TRUE(samePixels(layers.ink, within(strokeOverInk(kIn, roundPen(kTransparent, width)))));
        EXPECT_TRUE(samePixels(layers.background, motley()));
        EXPECT_FALSE(samePixels(layers.ink, inked()));
    }
}

TEST(CInkEraserDraw, pageTakesTheBackgroundOnlyWhereItHasInk)
{
    CInkEraser eraser;
    eraser.SetWidth(20);
    feed(eraser, PT_DOWN, 40, 100);
    feed(eraser, PT_UP, 220, 100);
    InkedLayers layers(blankCanvas({400, 300}, QColor(0, 200, 0)));
    layers.draw(eraser);
    EXPECT_EQ(layers.page.pixel(100, 100), 0xff00c800);  // opaque ink
    EXPECT_EQ(layers.page.pixel(150, 100), 0x78005e00u); // translucent ink keeps its alpha of 120; premultiplied
    EXPECT_EQ(layers.page.pixel(200, 100), 0u);          // no ink
    EXPECT_EQ(layers.page.pixel(100, 120), inked().pixel(100, 120)); // beside the stroke
    for (const int x : {100, 150, 200}) {
        EXPECT_EQ(layers.ink.pixel(x, 100), 0u);
        EXPECT_EQ(layers.ink.pixel(x, 120), inked().pixel(x, 120));
        EXPECT_EQ(layers.surface.pixel(x, 100), 0xff00c800);
    }
}

TEST(CInkEraserDraw, jointsAreBevelledInTheTextureAndRoundInTheInk)
{
    FinishedStroke eraser(30);
    InkedLayers layers;
    layers.draw(eraser);
    QPen roundJoin = texturePen(motley(), 30);
    roundJoin.setJoinStyle(Qt::RoundJoin);
    QPen bevelJoin = roundPen(kTransparent, 30);
    bevelJoin.setJoinStyle(Qt::BevelJoin);
    EXPECT_FALSE(samePixels(strokeOverInk(kIn, roundJoin), strokeOverInk(kIn, texturePen(motley(), 30))));
    EXPECT_FALSE(samePixels(strokeOverInk(kIn, bevelJoin), strokeOverInk(kIn, roundPen(kTransparent, 30))));
    EXPECT_TRUE(samePixels(layers.page, strokeOverInk(kIn, texturePen(motley(), 30))));
    EXPECT_TRUE(samePixels(layers.ink, strokeOverInk(kIn, roundPen(kTransparent, 30))));
}

TEST(CInkEraserDraw, singlePointIsADiscHalvedTowardsTheTopLeft)
{
    const struct
    {
        int width;
        QRectF box;
    } cases[] = {{10, {135, 145, 10, 10}}, {11, {135, 145, 11, 11}}, {1, {140, 150, 1, 1}}, {30, {125, 135, 30, 30}}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.width);
        CInkEraser growing, finished, released;
        for (CInkEraser *eraser : {&growing, &finished, &released})
            eraser->SetWidth(c.width);
        feed(growing, PT_DOWN, 140, 150);
        feed(finished, PT_DOWN, 140, 150);
        finished.FinishGraph();
        feed(released, PT_UP, 140, 150);
        const QImage covered = discOverInk(kOver, c.box, QBrush(motley()));

        InkedLayers live;
        live.draw(growing);
        EXPECT_TRUE(samePixels(live.surface, covered));
        EXPECT_TRUE(samePixels(live.page, inked()));
        EXPECT_TRUE(samePixels(live.ink, inked()));
        for (CInkEraser *eraser : {&finished, &released}) {
            InkedLayers layers;
            layers.draw(*eraser);
            EXPECT_TRUE(samePixels(layers.surface, covered));
            EXPECT_TRUE(samePixels(layers.page, discOverInk(kIn, c.box, QBrush(motley()))));
            EXPECT_TRUE(samePixels(layers.ink, discOverInk(kIn, c.box, QBrush(kTransparent))));
            EXPECT_FALSE(samePixels(layers.ink, inked()));
        }
    }
}

TEST(CInkEraserDraw, singlePointIsTruncated)
{
    CInkEraser eraser;
    eraser.SetWidth(10);
    feed(eraser, PT_DOWN, 0, 0);
    eraser.m_graphData = {QPointF(140.9, 150.9)};
    InkedLayers layers;
    layers.draw(eraser);
    EXPECT_TRUE(samePixels(layers.surface, discOverInk(kOver, QRectF(135, 145, 10, 10), QBrush(motley()))));
}

TEST(CInkEraserDraw, pressAndReleaseAtOnePlaceEraseNothing)
{
    CInkEraser eraser;
    eraser.SetWidth(20);
    feed(eraser, PT_DOWN, 100, 100);
    feed(eraser, PT_UP, 100, 100);
    EXPECT_EQ(eraser.GetPointCount(), 2);
    InkedLayers layers;
    layers.draw(eraser);
    EXPECT_TRUE(layers.isUntouched());
}

TEST(CInkEraserDraw, finishedDiscWiderThanItsFrameIsCut)
{
    CInkEraser eraser;
    eraser.SetWidth(100);
    feed(eraser, PT_DOWN, 100, 150);
    eraser.FinishGraph(); // a frame (68,118) to (132,182), grown by one pixel
    InkedLayers layers;
    layers.draw(eraser);
    EXPECT_EQ(layers.ink.pixel(67, 150), 0u);
    EXPECT_EQ(layers.ink.pixel(66, 150), inked().pixel(66, 150));
    EXPECT_EQ(layers.ink.pixel(133, 150), 0u);
    EXPECT_EQ(layers.ink.pixel(134, 150), inked().pixel(134, 150));
}

TEST(CInkEraserDraw, emptyStrokeAndSkipPaintNothing)
{
    CInkEraser empty;
    InkedLayers layers;
    layers.draw(empty, 1);
    EXPECT_TRUE(layers.isUntouched());
    EXPECT_EQ(layers.clips, QVector<QRect>(4));
    EXPECT_EQ(empty.m_pErasePen, nullptr);

    FinishedStroke eraser;
    for (const int skip : {1, -1, 7}) {
        layers.draw(eraser, 1, skip);
        EXPECT_TRUE(layers.isUntouched());
        EXPECT_EQ(layers.clips, QVector<QRect>(4));
        EXPECT_EQ(eraser.m_pErasePen, nullptr);
    }
}

TEST(CInkEraserDraw, penIsKeptUntilItIsAskedFor)
{
    FinishedStroke eraser;
    InkedLayers first;
    first.draw(eraser);
    const QPen *pen = eraser.m_pErasePen;
    const QBrush *brush = eraser.m_pEraseBrush;
    ASSERT_NE(pen, nullptr);

    // The background has changed: the old picture is painted without a rebuild, the new one with it.
    InkedLayers stale(motley(99));
    stale.draw(eraser);
    EXPECT_EQ(eraser.m_pErasePen, pen);
    EXPECT_EQ(eraser.m_pEraseBrush, brush);
    EXPECT_TRUE(samePixels(stale.page, first.page));
    EXPECT_TRUE(samePixels(stale.surface, first.surface));
    for (const int rebuild : {1, -1}) {
        InkedLayers fresh(motley(99 + rebuild));
        fresh.draw(eraser, rebuild);
        EXPECT_TRUE(samePixels(fresh.page, strokeOverInk(kIn, texturePen(motley(99 + rebuild), 16))));
        EXPECT_TRUE(samePixels(fresh.surface, strokeOverInk(kOver, texturePen(motley(99 + rebuild), 16))));
    }
}

TEST(CInkEraserDraw, discOfAnOldPenShowsTheOldBackground)
{
    CInkEraser eraser;
    eraser.SetWidth(20);
    feed(eraser, PT_UP, 100, 100);
    InkedLayers first, stale(motley(99)), fresh(motley(99));
    first.draw(eraser);
    stale.draw(eraser);
    EXPECT_TRUE(samePixels(stale.surface, first.surface));
    fresh.draw(eraser, 1);
    EXPECT_TRUE(samePixels(fresh.surface, discOverInk(kOver, QRectF(90, 90, 20, 20), QBrush(motley(99)))));
}

TEST(CInkEraserDraw, widthReachesThePenOnlyWhenItIsRebuilt)
{
    FinishedStroke eraser;
    InkedLayers first;
    first.draw(eraser);
    eraser.SetWidth(6);
    InkedLayers stale;
    stale.draw(eraser);
    EXPECT_TRUE(samePixels(stale.page, strokeOverInk(kIn, texturePen(motley(), 16))));
    EXPECT_TRUE(samePixels(stale.ink, strokeOverInk(kIn, roundPen(kTransparent, 6)))); // has no pen to keep
    InkedLayers fresh;
    fresh.draw(eraser, 1);
    EXPECT_TRUE(samePixels(fresh.page, strokeOverInk(kIn, texturePen(motley(), 6))));
    EXPECT_TRUE(samePixels(fresh.surface, strokeOverInk(kOver, texturePen(motley(), 6))));
}

TEST(CInkEraserDraw, clipIsGrownByOneAndStaysOnThreePainters)
{
    GrowingStroke eraser; // newest segment (70,150) to (240,200), margin 48
    InkedLayers layers;
    layers.draw(eraser, 0, 0, QRect());
    const QRect segment(QPoint(21, 101), QPoint(289, 249));
    EXPECT_EQ(layers.clips, (QVector<QRect>{segment, segment, QRect(), segment}));
    layers.draw(eraser, 0, 0, QRect(0, 0, 50, 50));
    const QRect united(QPoint(-1, -1), QPoint(289, 249));
    EXPECT_EQ(layers.clips, (QVector<QRect>{united, united, QRect(), united}));

    // Once formed, the frame alone.
    eraser.FinishGraph();
    layers.draw(eraser, 0, 0, QRect(0, 0, 400, 300));
    const QRect frame(QPoint(27, 67), QPoint(273, 233));
    EXPECT_EQ(layers.clips, (QVector<QRect>{frame, frame, QRect(), frame}));
    // The edit mode decides, not the commit.
    eraser.m_bEditMode = 0;
    layers.draw(eraser, 0, 0, QRect(0, 0, 400, 300));
    const QRect all(QPoint(-1, -1), QPoint(400, 300));
    EXPECT_EQ(layers.clips, (QVector<QRect>{all, all, QRect(), all}));
}

TEST(CInkEraserDraw, clipIsObserved)
{
    GrowingStroke eraser; // of which (60,100) to (230,120) lies outside the newest segment's rectangle
    InkedLayers layers;
    layers.draw(eraser, 0, 0, QRect());
    EXPECT_EQ(layers.surface.pixel(75, 100), inked().pixel(75, 100)); // above y = 101
    EXPECT_EQ(layers.surface.pixel(75, 101), motley().pixel(75, 101));
}

TEST(CInkEraserDraw, commitDecidesBetweenTheBranches)
{
    GrowingStroke eraser;
    eraser.m_bEditMode = 1; // formed, but not committed
    eraser.m_rcHot = QRect(0, 0, 400, 300);
    InkedLayers live;
    live.draw(eraser);
    EXPECT_TRUE(samePixels(live.surface, strokeOverInk(kOver, texturePen(motley(), 16))));
    EXPECT_TRUE(samePixels(live.page, inked()));
    eraser.m_bEditMode = 0;
    eraser.m_bFinished = 1;
    InkedLayers committed;
    committed.draw(eraser);
    EXPECT_TRUE(samePixels(committed.page, strokeOverInk(kIn, texturePen(motley(), 16))));
}

TEST(CInkEraserDraw, labelAndIconPaintNothing)
{
    GrowingStroke eraser;
    eraser.m_sizeName = QSize(60, 20);
    eraser.ShowDrawerName(1);
    eraser.ShowDrawerIcon(1);
    InkedLayers layers;
    layers.draw(eraser);
    EXPECT_TRUE(samePixels(layers.surface, strokeOverInk(kOver, texturePen(motley(), 16))));
}

TEST(CInkEraserDraw, paintersAreGivenBackButForTheClip)
{
    GrowingStroke growing;
    FinishedStroke finished;
    CInkEraser disc;
    feed(disc, PT_UP, 100, 100);
    for (CInkEraser *eraser : std::initializer_list<CInkEraser *>{&growing, &finished, &disc}) {
        InkedLayers layers;
        QPainter p1(&layers.page), p2(&layers.surface), p3(&layers.background), p4(&layers.ink);
        for (QPainter *painter : {&p1, &p2, &p3, &p4})
            setOddState(*painter);
        eraser->Draw(p1, p2, p3, p4, QRect(0, 0, 400, 300), 1, 0);
        for (QPainter *painter : {&p1, &p2, &p3, &p4}) {
            expectOddState(*painter);
            EXPECT_EQ(painter->hasClipping(), painter != &p3);
            const MessageLog log;
            painter->restore(); // nothing to restore
            EXPECT_EQ(log.lines.size(), 1);
        }
        EXPECT_TRUE(samePixels(layers.background, motley()));
    }
}

TEST(CInkEraserDraw, hostsCompositionModeHoldsOnTheSurfaceOnly)
{
    FinishedStroke eraser;
    InkedLayers layers;
    {
        QPainter p1(&layers.page), p2(&layers.surface), p3(&layers.background), p4(&layers.ink);
        for (QPainter *painter : {&p1, &p2, &p4})
            painter->setCompositionMode(QPainter::CompositionMode_Xor);
        eraser.Draw(p1, p2, p3, p4, QRect(), 0, 0);
    }
    EXPECT_TRUE(samePixels(layers.surface, strokeOverInk(QPainter::CompositionMode_Xor, texturePen(motley(), 16))));
    EXPECT_TRUE(samePixels(layers.page, strokeOverInk(kIn, texturePen(motley(), 16))));
    EXPECT_TRUE(samePixels(layers.ink, strokeOverInk(kIn, roundPen(kTransparent, 16))));
}

TEST(CInkEraserDraw, strokeTakesTheBrushThatAPainterCarries)
{
    FinishedStroke eraser;
    InkedLayers layers;
    const QColor green(0, 200, 0, 90);
    {
        QPainter p1(&layers.page), p2(&layers.surface), p3(&layers.background), p4(&layers.ink);
        for (QPainter *painter : {&p1, &p2, &p4})
            painter->setBrush(green);
        eraser.Draw(p1, p2, p3, p4, QRect(), 0, 0);
    }
    const auto filled = [&](QPainter::CompositionMode mode, const QPen &pen) {
        return overInk(mode, [&](QPainter &painter) {
            painter.setBrush(green);
            painter.setPen(pen);
            painter.drawPath(strokePath());
        });
    };
    EXPECT_TRUE(samePixels(layers.surface, filled(kOver, texturePen(motley(), 16))));
    EXPECT_TRUE(samePixels(layers.page, filled(kIn, texturePen(motley(), 16))));
    EXPECT_TRUE(samePixels(layers.ink, filled(kIn, roundPen(kTransparent, 16))));
}

TEST(CInkEraserDraw, backgroundThatIsNoImagePaintsNothingOver)
{
    GrowingStroke growing;
    FinishedStroke finished;
    CInkEraser disc;
    feed(disc, PT_UP, 100, 100);
    for (CInkEraser *eraser : std::initializer_list<CInkEraser *>{&growing, &finished, &disc}) {
        InkedLayers layers;
        QPicture picture;
        QPainter p1(&layers.page), p2(&layers.surface), p3(&picture), p4(&layers.ink);
        eraser->Draw(p1, p2, p3, p4, QRect(0, 0, 400, 300), 0, 0);
        QPainter idle;
        eraser->Draw(p1, p2, idle, p4, QRect(0, 0, 400, 300), 1, 0);
        EXPECT_TRUE(samePixels(layers.page, inked()));
        EXPECT_TRUE(samePixels(layers.surface, inked()));
    }
}

TEST(CInkEraserDraw, smallBackgroundIsRepeated)
{
    QImage tile(2, 1, QImage::Format_ARGB32_Premultiplied);
    tile.setPixel(0, 0, 0xffff0000);
    tile.setPixel(1, 0, 0xff0000ff);
    FinishedStroke eraser;
    InkedLayers layers(tile);
    layers.draw(eraser);
    EXPECT_EQ(layers.page.pixel(90, 104), 0xffff0000);
    EXPECT_EQ(layers.page.pixel(91, 104), 0xff0000ff);
}

TEST(CInkEraserDraw, drawingLogsNothing)
{
    const MessageLog log;
    GrowingStroke growing;
    FinishedStroke finished;
    for (CInkEraser *eraser : std::initializer_list<CInkEraser *>{&growing, &finished}) {
        InkedLayers layers;
        layers.draw(*eraser, 1);
    }
    EXPECT_TRUE(log.lines.isEmpty());
}

TEST(CInkEraserDraw, hostileValuesAreSurvived)
{
    for (const int width : {-7, 0, 1, 1000}) {
        for (const int far : {INT_MIN, 16'777'217, INT_MAX}) {
            const MessageLog log; // Qt may remark on coordinates
            CInkEraser eraser;
            eraser.SetWidth(width);
            const auto paint = [&eraser] {
                Layers layers;
                layers.draw(eraser);
            };
            feed(eraser, PT_DOWN, far, 80);
            paint();
            feed(eraser, PT_MOVE, 10, far);
            paint();
            feed(eraser, PT_UP, far, far);
            paint();
            eraser.m_graphData = {QPointF(20, 20)};
            paint();
        }
    }
}

// A host's own pen: its dashes would run backwards, or stay in place, for ever.
TEST(CInkEraserDraw, endlessDashesOfAHostsPenAreSolid)
{
    for (const double width : {-4.0, 1e300}) {
        const QVector<QPointF> points{{100, 100}, {200, 150}};
        CInkEraser eraser;
        eraser.m_graphData = points;
        eraser.m_pErasePen = new QPen(Qt::red, width, Qt::DashLine);
        InkedLayers layers;
        layers.draw(eraser);

        QPainterPath path(points[0]);
        path.lineTo(points[0]);
        path.lineTo(points[1]);
        const QImage expected = overInk(QPainter::CompositionMode_SourceOver, [&](QPainter &painter) {
            painter.setPen(QPen(Qt::red, width));
            painter.drawPath(path);
        });
        EXPECT_TRUE(samePixels(layers.surface, expected)) << width;
    }
}

// No painter can begin on an indexed image, but it remains the device. Without colours it cannot be painted, either.
TEST(CInkEraserDraw, backgroundWithoutColorsLeavesTheLayersAlone)
{
    QImage background(400, 300, QImage::Format_Indexed8);
    background.fill(7);
    InkedLayers layers(background);
    CInkEraser eraser;
    eraser.m_graphData = {{100, 100}, {200, 150}};
    eraser.m_nWidth = 10;
    const MessageLog log; // of Qt's complaints
    layers.draw(eraser);
    EXPECT_TRUE(layers.isUntouched());
}

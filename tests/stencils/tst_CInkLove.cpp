// The heart, of which only the handles are ever seen.

#include "CInkLove.h"
#include "Canvas.h"
#include "Exact.h"
#include "HandleFrame.h"
#include "MessageLog.h"
#include "PainterState.h"

#include <gtest/gtest.h>

namespace {

class DraggedHeart : public CInkLove
{
public:
    DraggedHeart()
    {
        feed(*this, PT_DOWN, 100, 100);
        feed(*this, PT_MOVE, 160, 160);
    }
};

// Frame (90,90) to (170,170), covers (34,34) to (222,222).
class EditedHeart : public DraggedHeart
{
public:
    EditedHeart() { feed(*this, PT_UP, 160, 160); }
};

QImage handles(double angle = 0)
{
    return painted([&](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setWorldTransform(turnAbout(130, 130, angle));
        paintHandleFrame(painter, QRect(90, 90, 81, 81));
    });
}

} // namespace

TEST(CInkLove, dragShowsNothing)
{
    CInkLove fresh;
    EXPECT_TRUE(isBlank(drawn(fresh)));
    feed(fresh, PT_DOWN, 100, 100);
    EXPECT_TRUE(isBlank(drawn(fresh)));
    DraggedHeart heart;
    heart.SetWidth(20);
    EXPECT_FALSE(heart.m_previewData.isEmpty());
    EXPECT_TRUE(isBlank(drawn(heart)));
    EXPECT_EDGES(heart.GetUpdateRect(), 40, 40, 220, 220);
}

TEST(CInkLove, formedHeartShowsItsHandlesAlone)
{
    EditedHeart heart;
    heart.SetWidth(20);
    heart.SetColor(Qt::red);
    EXPECT_TRUE(samePixels(drawn(heart), handles()));
    EXPECT_FALSE(isBlank(drawn(heart)));
    heart.m_fRotateAngle = 30;
    EXPECT_TRUE(samePixels(drawn(heart), handles(30)));
    heart.m_bHideHotShape = 1;
    EXPECT_TRUE(isBlank(drawn(heart)));
}

TEST(CInkLove, foreignHeartIsShaded)
{
    EditedHeart heart;
    heart.SetOwnerIP(4);
    const QImage expected =
        painted([](QPainter &painter) { painter.fillRect(QRect(90, 90, 81, 81), QColor(50, 50, 50, 60)); });
    EXPECT_TRUE(samePixels(drawn(heart), expected));
}

TEST(CInkLove, committedHeartPaintsNothingOnAnyLayer)
{
    EditedHeart finished, released;
    finished.FinishGraph();
    feed(released, PT_DOWN, 350, 20);
    for (CInkLove *heart : {&finished, &released}) {
        Layers layers;
        layers.draw(*heart);
        EXPECT_TRUE(isBlank(layers.surface));
        EXPECT_TRUE(isBlank(layers.page));
        EXPECT_TRUE(isBlank(layers.background));
        EXPECT_TRUE(isBlank(layers.ink));
    }
}

TEST(CInkLove, noClipIsSet)
{
    CInkLove fresh;
    DraggedHeart dragged;
    EditedHeart edited, committed;
    committed.FinishGraph();
    for (CInkLove *heart : std::initializer_list<CInkLove *>{&fresh, &dragged, &edited, &committed})
        EXPECT_EDGES(clipAfterDraw(*heart, QRect(0, 0, 400, 300)), 0, 0, 4, 4);
    // What lies outside the clip that the painter carries is not painted.
    const QImage image = painted([&](QPainter &painter) {
        QRect all(0, 0, 400, 300);
        painter.setClipRect(QRect(80, 80, 30, 30));
        edited.Draw(painter, all);
    });
    EXPECT_EQ(image.pixel(170, 166), 0u);
    EXPECT_NE(image.pixel(90, 86), 0u);
}

TEST(CInkLove, painterIsGivenBackInEachPhase)
{
    CInkLove fresh;
    DraggedHeart dragged;
    EditedHeart edited, turned, committed;
    turned.m_fRotateAngle = 30;
    committed.FinishGraph();
    for (CInkLove *heart : std::initializer_list<CInkLove *>{&fresh, &dragged, &edited, &turned, &committed}) {
        MessageLog log;
        QImage image = blankCanvas();
        QPainter painter(&image);
        QRect all = image.rect();
        setOddState(painter);
        heart->Draw(painter, all);
        expectOddState(painter);
        EXPECT_FALSE(painter.hasClipping());
        EXPECT_TRUE(log.lines.isEmpty());
        painter.restore(); // nothing to restore
        EXPECT_EQ(log.lines.size(), 1);
    }
}

TEST(CInkLove, handlesAreAskedForWithTheRoundSolidPen)
{
    class Watched : public EditedHeart
    {
    public:
        void DrawHotShape(QPainter &painter) override
        {
            pens.append(painter.pen());
            EXPECT_TRUE(painter.testRenderHint(QPainter::Antialiasing));
            EXPECT_EQ(painter.worldTransform(), turnAbout(130, 130, 30));
        }
        QVector<QPen> pens;
    };
    Watched heart;
    heart.m_penStyle = Qt::DotLine;
    heart.m_fRotateAngle = 30;
    heart.SetWidth(6);
    EXPECT_TRUE(isBlank(drawn(heart)));
    ASSERT_EQ(heart.pens.size(), 1);
    EXPECT_EQ(heart.pens[0], QPen(QBrush(QColor(0, 0, 0)), 6.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    heart.FinishGraph();
    drawn(heart);
    EXPECT_EQ(heart.pens.size(), 1);
}

TEST(CInkLove, transformIsReplacedForTheHandles)
{
    EditedHeart heart;
    const QImage image = painted([&](QPainter &painter) {
        QRect all(0, 0, 400, 300);
        painter.translate(50, 60);
        heart.Draw(painter, all);
    });
    EXPECT_TRUE(samePixels(image, handles()));
}

TEST(CInkLove, updateRectanglesAreThoseOfEveryStencil)
{
    CInkLove heart;
    EXPECT_EDGES(feed(heart, PT_DOWN, 100, 100), 99, 99, 101, 101);
    EXPECT_EDGES(feed(heart, PT_MOVE, 160, 160), 90, 90, 170, 170);
    EXPECT_EDGES(feed(heart, PT_UP, 160, 160), 34, 34, 222, 222);
}

TEST(CInkLove, abandonedOrEmptiedHeartPaintsNothing)
{
    DraggedHeart heart;
    feed(heart, PT_UP, 103, 101);
    EXPECT_EQ(heart.m_bFinished, 1);
    EXPECT_TRUE(isBlank(drawn(heart)));
    EditedHeart emptied;
    emptied.m_graphData.clear();
    EXPECT_TRUE(samePixels(drawn(emptied), handles()));
    emptied.FinishGraph();
    EXPECT_TRUE(isBlank(drawn(emptied)));
}

// The paint bucket on its layers: when it fills, and where it shows what it filled.

#include "CInkFloodFill.h"
#include "Exact.h"
#include "Flood.h"
#include "MessageLog.h"
#include "PainterState.h"

#include <QtGui/QPicture>

#include <gtest/gtest.h>

namespace {

const QColor kRed(255, 0, 0);

// Pressed on a canvas of the given size.
class Fill : public CInkFloodFill
{
public:
    Fill(const QSize &canvas, int x, int y, const QColor &color = kRed)
        : CInkFloodFill(canvas)
    {
        SetColor(color);
        feed(*this, PT_DOWN, x, y);
    }
};

} // namespace

TEST(CInkFloodFill, everyDrawFillsAnewInTheSameBitmap)
{
    Fill fill({4, 2}, 0, 0);
    const QImage page = picture({"..#.", "..#."});
    const FilledLayers first(fill, page);
    const QImage *bitmap = fill.m_pImage;
    EXPECT_EQ(joined(rowsOf(first.surface)), "oo  \noo  ");

    // The page holds the colour at the seed now: nothing is left to fill, and the bitmap is empty.
    const FilledLayers second(fill, first.page);
    EXPECT_EQ(fill.m_pImage, bitmap);
    EXPECT_EQ(joined(rowsOf(second.page)), "oo#.\noo#.");
    EXPECT_TRUE(isBlank(second.surface));
    EXPECT_TRUE(isBlank(second.ink));
    EXPECT_EQ(joined(rowsOf(*fill.m_pImage)), "    \n    ");
    EXPECT_EQ(fill.m_bFilled, 1);
    EXPECT_EDGES(fill.m_rcFillBounds, 0, 0, 1, 1);

    const FilledLayers third(fill, picture({"...#", "####"}));
    EXPECT_EQ(joined(rowsOf(third.page)), "ooo#\n####");
    EXPECT_EQ(joined(rowsOf(third.ink)), "ooo \n    ");
    EXPECT_EDGES(fill.m_rcFillBounds, 0, 0, 2, 1);
}

TEST(CInkFloodFill, translucentFillIsFilledAgainAtEveryRepaint)
{
    Fill fill({3, 1}, 0, 0, QColor(255, 0, 0, 100));
    QImage page = picture({"..#"});
    for (int i = 0; i < 3; ++i) {
        const FilledLayers layers(fill, page);
        page = layers.page;
        EXPECT_EQ(joined(rowsOf(layers.page)), "oo#");
        EXPECT_EQ(joined(rowsOf(layers.surface)), "oo ");
        EXPECT_EQ(fill.m_bFilled, 1);
    }
}

TEST(CInkFloodFill, bitmapFollowsTheCanvasSize)
{
    Fill fill({4, 2}, 0, 0);
    const FilledLayers first(fill, picture({"....", "...."}));
    fill.SetCanvasSize({2, 2});
    const FilledLayers second(fill, picture({"....", "...."}));
    EXPECT_EQ(fill.m_pImage->size(), QSize(2, 2));
    EXPECT_EQ(joined(rowsOf(second.page)), "oo..\noo..");
    EXPECT_EQ(joined(rowsOf(second.ink)), "oo  \noo  ");
}

TEST(CInkFloodFill, skipAndUnfinishedFillsDoNothing)
{
    const QImage page = picture({"...", "..."});
    for (const int way : {0, 1, 2, 3, 4}) {
        SCOPED_TRACE(way);
        Fill fill({3, 2}, 0, 0);
        fill.m_bFinished = way == 0 ? 0 : 1;
        fill.m_nPointCount = way == 1 ? 0 : way == 2 ? -1 : 1;
        const FilledLayers layers(fill, page, QRect(0, 0, 3, 2), way == 3 ? 1 : way == 4 ? -1 : 0);
        EXPECT_TRUE(samePixels(layers.page, page));
        EXPECT_TRUE(isBlank(layers.surface));
        EXPECT_TRUE(isBlank(layers.ink));
        EXPECT_EQ(fill.m_pImage, nullptr);
        EXPECT_EQ(fill.m_bFilled, 0);
    }
}

TEST(CInkFloodFill, areaIsNotLookedAtAndNoStateIsTouched)
{
    Fill fill({4, 2}, 0, 0);
    QImage page = picture({"....", "...."});
    QImage surface = blankCanvas({4, 2}), background = surface, ink = surface;
    {
        QPainter p1(&page), p2(&surface), p3(&background), p4(&ink);
        for (QPainter *painter : {&p1, &p2, &p3, &p4})
            setOddState(*painter);
        p2.setClipRect(QRect(-3, -5, 2, 1));
        fill.Draw(p1, p2, p3, p4, QRect(3, 1, 1, 1), 77, 0);
        for (const QPainter *painter : {&p1, &p2, &p3, &p4})
            expectOddState(*painter);
        EXPECT_EDGES(clipOf(p2), -3, -5, -2, -5);
        for (const QPainter *painter : {&p1, &p3, &p4})
            EXPECT_FALSE(painter->hasClipping());
    }
    EXPECT_EQ(joined(rowsOf(page)), "oooo\noooo");
}

TEST(CInkFloodFill, clipsBoundThePaintingButNotTheFill)
{
    Fill fill({4, 1}, 0, 0);
    QImage page = picture({"...."});
    QImage surface = blankCanvas({4, 1}), background = surface, ink = surface;
    {
        QPainter p1(&page), p2(&surface), p3(&background), p4(&ink);
        p1.setClipRect(QRect(0, 0, 1, 1));
        p2.setClipRect(QRect(1, 0, 2, 1));
        p4.translate(1, 0);
        fill.Draw(p1, p2, p3, p4, QRect(), 0, 0);
    }
    EXPECT_EQ(joined(rowsOf(page)), "oooo");
    EXPECT_EQ(joined(rowsOf(surface)), " oo ");
    EXPECT_EQ(joined(rowsOf(ink)), " ooo");
}

TEST(CInkFloodFill, bitmapIsPaintedOnThePageToo)
{
    Fill fill({4, 1}, 0, 0);
    QImage page = picture({"..#."});
    QImage surface = blankCanvas({4, 1}), background = surface, ink = surface;
    {
        QPainter p1(&page), p2(&surface), p3(&background), p4(&ink);
        p1.translate(2, 0); // shows what is painted beside what is filled
        fill.Draw(p1, p2, p3, p4, QRect(), 0, 0);
    }
    EXPECT_EQ(joined(rowsOf(page)), "oooo");
}

TEST(CInkFloodFill, ownDrawPaintsNothing)
{
    Fill fill({400, 300}, 5, 5);
    EXPECT_TRUE(isBlank(drawn(fill)));
    EXPECT_EQ(fill.m_pImage, nullptr);
}

TEST(CInkFloodFill, pageThatIsNoImageIsNotFilled)
{
    const MessageLog log;
    QImage surface = blankCanvas({4, 1}), background = surface, ink = surface;
    QPicture recording;
    QPainter p2(&surface), p3(&background), p4(&ink), recorder(&recording), idle;
    for (QPainter *p1 : {&recorder, &idle}) {
        Fill fill({4, 1}, 0, 0);
        fill.Draw(*p1, p2, p3, p4, QRect(0, 0, 4, 1), 0, 0);
        EXPECT_EQ(fill.m_bFilled, 0);
        EXPECT_EDGES(fill.m_rcFillBounds, 0, 0, 0, 0);
        ASSERT_NE(fill.m_pImage, nullptr);
        EXPECT_EQ(joined(rowsOf(*fill.m_pImage)), "    ");
    }
    EXPECT_TRUE(isBlank(surface));
}

TEST(CInkFloodFill, filledImageIsShownWhereOtherLayersAreNoImages)
{
    Fill fill({4, 1}, 0, 0);
    QImage page = picture({"...#"});
    QPicture recording;
    {
        QPainter p1(&page), recorder(&recording), idle;
        fill.Draw(p1, recorder, idle, idle, QRect(), 0, 0);
    }
    EXPECT_EQ(joined(rowsOf(page)), "ooo#");
    const QImage replayed = painted([&](QPainter &painter) { painter.drawPicture(0, 0, recording); }, {4, 1});
    EXPECT_EQ(joined(rowsOf(replayed)), "ooo ");
}

// No painter can begin on an indexed image, but it remains the device.
TEST(CInkFloodFill, layersThatCannotBePaintedAreLeftAlone)
{
    const MessageLog log; // of Qt's complaints
    QImage page = picture({"..#"}), surface(3, 1, QImage::Format_Indexed8), ink = surface;
    surface.fill(5);
    ink.fill(5);
    {
        QPainter p1(&page), p2(&surface), p4(&ink);
        Fill fill({3, 1}, 0, 0);
        fill.Draw(p1, p2, p1, p4, QRect(0, 0, 3, 1), 0, 0);
    }
    EXPECT_EQ(joined(rowsOf(page)), "oo#");
    EXPECT_EQ(surface.pixelIndex(0, 0), 5);
    EXPECT_EQ(ink.pixelIndex(0, 0), 5);
}

// The pencil: its room, and the clip that it paints in. What it shares with other pens is in tst_stroke_pens.cpp and
// tst_round_pens.cpp.

#include "CInkPencil.h"
#include "PenStroke.h"

#include <gtest/gtest.h>

namespace {

class Zigzag : public CInkPencil
{
public:
    Zigzag() { feedZigzag(*this); }
};

} // namespace

TEST(CInkPencil, newPencilHasRoomForTenPoints)
{
    CInkPencil pencil;
    EXPECT_GE(pencil.m_graphData.capacity(), 10);
}

TEST(CInkPencil, strokeOfOnePointPaintsNothing)
{
    CInkPencil pencil;
    pencil.SetWidth(20);
    feed(pencil, PT_DOWN, 100, 80);
    EXPECT_TRUE(isBlank(drawn(pencil)));
    EXPECT_EDGES(clipAfterDraw(pencil, QRect(10, 10, 50, 50)), 10, 10, 59, 59);
    pencil.FinishGraph();
    EXPECT_TRUE(isBlank(drawn(pencil)));
    EXPECT_EDGES(clipAfterDraw(pencil, QRect(10, 10, 50, 50)), 68, 48, 132, 112);
}

TEST(CInkPencil, clipOfAGrowingStrokeHoldsTheNewestSegment)
{
    Zigzag pencil;
    EXPECT_EDGES(clipAfterDraw(pencil, QRect(0, 0, 50, 50)), 0, 0, 140, 170);
    EXPECT_EDGES(clipAfterDraw(pencil, QRect()), 90, 40, 140, 170);
}

TEST(CInkPencil, clipOfAFinishedStrokeIsItsFrame)
{
    Zigzag pencil;
    pencil.FinishGraph();
    EXPECT_EDGES(clipAfterDraw(pencil, QRect(0, 0, 400, 300)), 68, 8, 232, 182);
    EXPECT_EDGES(clipAfterDraw(pencil, QRect()), 68, 8, 232, 182);
}

TEST(CInkPencil, finishedStrokeWiderThanItsFrameIsCut)
{
    CInkPencil pencil;
    pencil.SetWidth(100);
    drag(pencil, {200, 150}, {200, 160});
    const QImage image = drawn(pencil);
    EXPECT_EQ(image.pixel(168, 150), 0xff000000);
    EXPECT_EQ(image.pixel(167, 150), 0u);
    EXPECT_EQ(image.pixel(232, 150), 0xff000000);
    EXPECT_EQ(image.pixel(233, 150), 0u);
    EXPECT_EQ(image.pixel(200, 118), 0xff000000);
    EXPECT_EQ(image.pixel(200, 117), 0u);
}

TEST(CInkPencil, painterIsGivenBackButForItsClip)
{
    CInkPencil empty;
    EXPECT_EDGES(clipAfterDrawWithOddPainter(empty), 0, 0, -1, -1);
    Zigzag pencil;
    EXPECT_EDGES(clipAfterDrawWithOddPainter(pencil), 0, 0, 399, 299);
    pencil.FinishGraph();
    EXPECT_EDGES(clipAfterDrawWithOddPainter(pencil), 68, 8, 232, 182);
}

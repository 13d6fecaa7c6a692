// The rectangle while it is edited: what a press picks, and what a drag of it does.

#include "CInkRectangle.h"
#include "Canvas.h"
#include "Exact.h"

#include <gtest/gtest.h>

namespace {

// From (100,100) to (200,150), frame (90,90) to (210,160), centre (150,125), covers (51,26) to (245,220).
class EditedBox : public CInkRectangle
{
public:
    EditedBox() { drag(*this, {100, 100}, {200, 150}); }
};

// Answers every press alike and writes down what is asked of it.
class ScriptedBox : public EditedBox
{
public:
    bool IsPtInModifyZone(QPoint) override
    {
        calls += "zone ";
        return inside;
    }
    ModifyType DecideModiFyType(QPoint) override
    {
        calls += "decide ";
        return answer;
    }
    void AdjustGraph(float angle) override
    {
        calls += "adjust ";
        adjustedBy = angle;
    }
    void ModifyGraph(QPoint pt, ModifyType type) override
    {
        calls += "modify ";
        modifiedTo = pt;
        modifiedBy = type;
    }

    bool inside = true;
    ModifyType answer = MT_MOVE;
    std::string calls;
    float adjustedBy = -1;
    QPoint modifiedTo;
    int modifiedBy = 0;
};

void expectCorners(const CInkRectangle &box, double x0, double y0, double x1, double y1)
{
    EXPECT_POINT(box.m_graphData[0], x0, y0);
    EXPECT_POINT(box.m_graphData[1], x1, y1);
}

// Turned by 90 degrees, then stretched by its bottom right handle to twice its size about (90,90) of its own frame.
class TurnedAndStretchedBox : public EditedBox
{
public:
    TurnedAndStretchedBox()
    {
        drag(*this, {150, 60}, {250, 125});
        drag(*this, {115, 185}, {45, 305});
    }
};

} // namespace

TEST(CInkRectangle, pressPicksTheHandleUnderIt)
{
    const int types[][3] = {
        {90, 90, 2},   {150, 90, 3},  {210, 90, 4},  {90, 125, 5},   {210, 125, 6}, {90, 160, 7},
        {150, 160, 8}, {210, 160, 9}, {150, 60, 11}, {150, 125, 10}, {101, 90, 10}, {210, 105, 10},
    };
    for (const auto &[x, y, type] : types) {
        SCOPED_TRACE(::testing::Message() << "at " << x << ',' << y);
        EditedBox box;
        feed(box, PT_DOWN, x, y);
        EXPECT_EQ(box.m_modifyType, type);
        EXPECT_EQ(box.GetModifyType(), type);
        EXPECT_EQ(box.IsSparePoint(), 0);
        EXPECT_EQ(box.m_bFinished, 0);
        expectCorners(box, 100, 100, 200, 150);
    }
}

TEST(CInkRectangle, pressTenPixelsAwayHitsAHandle)
{
    const int hits[][3] = {{100, 90, 2}, {90, 80, 2}, {80, 90, 2}, {150, 50, 11}, {160, 60, 11}, {220, 160, 9}};
    for (const auto &[x, y, type] : hits) {
        SCOPED_TRACE(::testing::Message() << "at " << x << ',' << y);
        EditedBox box;
        feed(box, PT_DOWN, x, y);
        EXPECT_EQ(box.m_modifyType, type);
        EXPECT_EQ(box.m_bFinished, 0);
    }
    const int misses[][2] = {{79, 90}, {90, 79}, {150, 49}, {161, 60}, {221, 160}, {211, 105}, {98, 83}};
    for (const auto &[x, y] : misses) {
        SCOPED_TRACE(::testing::Message() << "at " << x << ',' << y);
        EditedBox box;
        feed(box, PT_DOWN, x, y);
        EXPECT_EQ(box.m_modifyType, 1);
        EXPECT_EQ(box.m_bFinished, 1);
    }
}

TEST(CInkRectangle, hoverReportsWhatAPressWouldDo)
{
    CInkRectangle box;
    EXPECT_EQ(box.AroundHotPts(QPoint(0, 0)), 1);
    feed(box, PT_DOWN, 100, 100);
    feed(box, PT_MOVE, 200, 150);
    EXPECT_EQ(box.AroundHotPts(QPoint(150, 125)), 1);
    feed(box, PT_UP, 200, 150);
    EXPECT_EQ(box.AroundHotPts(QPoint(90, 90)), 2);
    EXPECT_EQ(box.AroundHotPts(QPoint(150, 60)), 11);
    EXPECT_EQ(box.AroundHotPts(QPoint(150, 125)), 10);
    EXPECT_EQ(box.AroundHotPts(QPoint(300, 125)), 1);
    EXPECT_EQ(box.m_modifyType, 1);
}

TEST(CInkRectangle, hoverAsksTheOverriddenHitTest)
{
    ScriptedBox box;
    box.answer = MT_BOTTOM;
    EXPECT_EQ(box.AroundHotPts(QPoint(0, 0)), 8);
    EXPECT_EQ(box.calls, "decide ");
}

TEST(CInkRectangle, pressElsewhereCommits)
{
    EditedBox box;
    feed(box, PT_DOWN, 150, 125);
    feed(box, PT_UP, 150, 125);
    box.m_bSparePoint = 1;
    EXPECT_EDGES(feed(box, PT_DOWN, 300, 250), 51, 26, 245, 220);
    EXPECT_EQ(box.m_bFinished, 1);
    EXPECT_EQ(box.m_bHideHotShape, 1);
    EXPECT_EQ(box.m_modifyType, 1);
    EXPECT_EQ(box.m_bEditMode, 1);
    EXPECT_EQ(box.IsSparePoint(), 0);
    EXPECT_POINT(box.m_ptLast, 150.0, 125.0);
    expectCorners(box, 100, 100, 200, 150);

    QRect update;
    for (const int code : {1, 2, 4, 5})
        box.AddPoint(code, QPoint(150, 125), update);
    EXPECT_NULL_RECT(update);
    EXPECT_EQ(box.m_modifyType, 1);
}

TEST(CInkRectangle, boxIsMovedWithItsHandles)
{
    EditedBox box;
    feed(box, PT_DOWN, 150, 125);
    EXPECT_EQ(box.m_modifyType, 10);
    EXPECT_POINT(box.m_ptLast, 150.0, 125.0);

    EXPECT_EDGES(feed(box, PT_MOVE, 155, 127), 51, 26, 250, 222);
    EXPECT_EQ(box.IsSparePoint(), 1);
    EXPECT_POINT(box.m_ptLast, 155.0, 127.0);
    expectCorners(box, 105, 102, 205, 152);
    EXPECT_EDGES(box.m_rcHot, 95, 92, 215, 162);
    EXPECT_POINT(box.m_ptCenter, 155.0, 127.0);
    EXPECT_POINT(box.m_hotPts[4], 95.0, 92.0);
    EXPECT_POINT(box.m_hotPts[8], 155.0, 62.0);

    EXPECT_EDGES(feed(box, PT_UP, 160, 130), 56, 28, 255, 225);
    EXPECT_EQ(box.IsSparePoint(), 0);
    expectCorners(box, 110, 105, 210, 155);
    EXPECT_EDGES(box.m_rcHot, 100, 95, 220, 165);
    EXPECT_POINT(box.m_ptCenter, 160.0, 130.0);
    EXPECT_EQ(box.m_bFinished, 0);
}

TEST(CInkRectangle, moveAfterTheReleaseGoesOnDragging)
{
    EditedBox box;
    drag(box, {150, 125}, {155, 127});
    feed(box, PT_MOVE, 160, 130);
    expectCorners(box, 110, 105, 210, 155);
}

TEST(CInkRectangle, eachHandleStretchesAboutTheOppositeOne)
{
    struct Case
    {
        QPoint press, to;
        int frame[4];
        double corners[4];
    };
    // Every drag doubles the box in the direction of its handle.
    const Case cases[] = {
        {{90, 90}, {-30, 20}, {-30, 20, 210, 160}, {-10, 40, 190, 140}},
        {{150, 90}, {999, 20}, {90, 20, 210, 160}, {100, 40, 200, 140}},
        {{210, 90}, {330, 20}, {90, 20, 330, 160}, {110, 40, 310, 140}},
        {{90, 125}, {-30, 7}, {-30, 90, 210, 160}, {-10, 100, 190, 150}},
        {{210, 125}, {330, 5}, {90, 90, 330, 160}, {110, 100, 310, 150}},
        {{90, 160}, {-30, 230}, {-30, 90, 210, 230}, {-10, 110, 190, 210}},
        {{150, 160}, {5, 230}, {90, 90, 210, 230}, {100, 110, 200, 210}},
        {{210, 160}, {330, 230}, {90, 90, 330, 230}, {110, 110, 310, 210}},
    };
    for (const Case &c : cases) {
        EditedBox box;
        feed(box, PT_DOWN, c.press.x(), c.press.y());
        SCOPED_TRACE(::testing::Message() << "type " << box.m_modifyType);
        feed(box, PT_MOVE, c.to.x(), c.to.y());
        EXPECT_EQ(box.IsSparePoint(), 1);
        expectCorners(box, c.corners[0], c.corners[1], c.corners[2], c.corners[3]);
        EXPECT_EDGES(box.m_rcHot, c.frame[0], c.frame[1], c.frame[2], c.frame[3]);
        EXPECT_POINT(box.m_ptCenter, 150.0, 125.0); // until the next move or rotation begins

        feed(box, PT_UP, c.to.x(), c.to.y());
        EXPECT_EQ(box.IsSparePoint(), 0);
        expectCorners(box, c.corners[0], c.corners[1], c.corners[2], c.corners[3]);
        EXPECT_POINT(box.m_ptCenter, 150.0, 125.0);
    }
}

TEST(CInkRectangle, stretchReportsBothRectangles)
{
    EditedBox box;
    feed(box, PT_DOWN, 210, 160);
    // Frame (90,90) to (330,230): 249 x 149 with its margin, diagonal 290.2, a square of 290 around (209,159).
    EXPECT_EDGES(feed(box, PT_MOVE, 330, 230), 45, -5, 370, 320);
}

TEST(CInkRectangle, stretchStopsAtFifteenPixels)
{
    CInkRectangle box;
    drag(box, {100, 100}, {200, 140}); // frame (90,90) to (210,150)
    feed(box, PT_DOWN, 210, 150);
    feed(box, PT_MOVE, 95, 20);
    EXPECT_EDGES(box.m_rcHot, 90, 90, 105, 105);
    expectCorners(box, 91.25, 92.5, 103.75, 102.5);
}

TEST(CInkRectangle, rotationFollowsThePointersBearing)
{
    EditedBox box;
    feed(box, PT_DOWN, 150, 60);
    EXPECT_EQ(box.m_modifyType, 11);
    EXPECT_EQ(box.GetRotateAngle(), 0.0f);
    feed(box, PT_MOVE, 250, 125);
    EXPECT_EQ(box.GetRotateAngle(), 90.0f);
    EXPECT_EQ(box.IsSparePoint(), 1);
    expectCorners(box, 100, 100, 200, 150);
    EXPECT_EDGES(box.m_rcHot, 90, 90, 210, 160);
    feed(box, PT_UP, 250, 225);
    EXPECT_EQ(box.GetRotateAngle(), 135.0f);
    EXPECT_EQ(box.IsSparePoint(), 0);
}

TEST(CInkRectangle, turnedBoxIsHitInItsOwnFrame)
{
    EditedBox box;
    drag(box, {150, 60}, {250, 125});
    EXPECT_EQ(box.AroundHotPts(QPoint(185, 65)), 2);
    EXPECT_EQ(box.AroundHotPts(QPoint(185, 125)), 3);
    EXPECT_EQ(box.AroundHotPts(QPoint(185, 185)), 4);
    EXPECT_EQ(box.AroundHotPts(QPoint(115, 185)), 9);
    EXPECT_EQ(box.AroundHotPts(QPoint(215, 125)), 11);
    EXPECT_EQ(box.AroundHotPts(QPoint(150, 125)), 10);
    EXPECT_EQ(box.AroundHotPts(QPoint(90, 90)), 1);
}

TEST(CInkRectangle, turnedBoxIsStretchedInItsOwnFrame)
{
    TurnedAndStretchedBox box;
    EXPECT_EQ(box.GetRotateAngle(), 90.0f);
    expectCorners(box, 110, 110, 310, 210);
    EXPECT_EDGES(box.m_rcHot, 90, 90, 330, 230);
    EXPECT_POINT(box.m_ptCenter, 150.0, 125.0);
}

TEST(CInkRectangle, stretchedBoxSettlesWhenAMoveBegins)
{
    TurnedAndStretchedBox box;
    feed(box, PT_DOWN, 115, 185);
    EXPECT_EQ(box.m_modifyType, 10);
    EXPECT_POINT(box.m_ptLast, 115.0, 185.0);
    expectCorners(box, 85, 15, 285, 115);
    EXPECT_EDGES(box.m_rcHot, 65, -5, 305, 135);
    EXPECT_POINT(box.m_ptCenter, 185.0, 65.0);
    EXPECT_POINT(box.m_hotPts[4], 65.0, -5.0);
    EXPECT_POINT(box.m_hotPts[8], 185.0, -35.0);

    feed(box, PT_MOVE, 116, 187);
    expectCorners(box, 86, 17, 286, 117);
}

TEST(CInkRectangle, stretchedBoxSettlesWhenARotationBegins)
{
    TurnedAndStretchedBox box;
    feed(box, PT_DOWN, 215, 185);
    EXPECT_EQ(box.m_modifyType, 11);
    expectCorners(box, 85, 15, 285, 115);
    EXPECT_POINT(box.m_ptCenter, 185.0, 65.0);
    EXPECT_EQ(box.GetRotateAngle(), 90.0f);
}

TEST(CInkRectangle, stretchedBoxDoesNotSettleWhenAStretchBegins)
{
    TurnedAndStretchedBox box;
    feed(box, PT_DOWN, 45, 305);
    EXPECT_EQ(box.m_modifyType, 9);
    expectCorners(box, 110, 110, 310, 210);
    EXPECT_POINT(box.m_ptCenter, 150.0, 125.0);
}

TEST(CInkRectangle, uprightBoxOnlyMovesItsCentreWhenItSettles)
{
    EditedBox box;
    drag(box, {210, 160}, {330, 230});
    EXPECT_POINT(box.m_ptCenter, 150.0, 125.0);
    feed(box, PT_DOWN, 210, 180);
    EXPECT_EQ(box.m_modifyType, 10);
    EXPECT_POINT(box.m_ptCenter, 210.0, 160.0);
    expectCorners(box, 110, 110, 310, 210);
    EXPECT_EDGES(box.m_rcHot, 90, 90, 330, 230);
}

TEST(CInkRectangle, settlingDependsOnTheTypeBeforeThePress)
{
    for (int before = 1; before <= 11; ++before) {
        for (int after = 1; after <= 11; ++after) {
            SCOPED_TRACE(::testing::Message() << "from " << before << " to " << after);
            ScriptedBox box;
            box.m_modifyType = before;
            box.m_fRotateAngle = 30;
            box.answer = ModifyType(after);
            box.m_ptLast = QPointF(7, 8);
            feed(box, PT_DOWN, 120, 110);
            const bool settles = (after == 10 || after == 11) && before != 1 && before != 10;
            EXPECT_EQ(box.calls, settles ? "zone decide adjust " : "zone decide ");
            EXPECT_EQ(box.adjustedBy, settles ? 30.0f : -1.0f);
            EXPECT_EQ(box.m_modifyType, after);
            EXPECT_POINT(box.m_ptLast, after == 10 ? 120.0 : 7.0, after == 10 ? 110.0 : 8.0);
        }
    }
}

TEST(CInkRectangle, pressOutsideAsksForNoType)
{
    ScriptedBox box;
    box.inside = false;
    box.m_modifyType = 9;
    feed(box, PT_DOWN, 150, 125);
    EXPECT_EQ(box.calls, "zone ");
    EXPECT_EQ(box.m_bFinished, 1);
    EXPECT_EQ(box.m_modifyType, 1);
}

TEST(CInkRectangle, moveAndReleaseModifyThroughTheSlot)
{
    for (const int code : {PT_MOVE, PT_UP}) {
        ScriptedBox box;
        box.m_modifyType = 7;
        feed(box, code, 33, 44);
        EXPECT_EQ(box.calls, "modify ");
        EXPECT_EQ(box.modifiedTo, QPoint(33, 44));
        EXPECT_EQ(box.modifiedBy, 7);
        EXPECT_EQ(box.IsSparePoint(), code == PT_MOVE ? 1 : 0);
    }
}

TEST(CInkRectangle, pressStoresItsPositionThroughSinglePrecision)
{
    ScriptedBox box;
    feed(box, PT_DOWN, 16'777'217, -16'777'217);
    EXPECT_POINT(box.m_ptLast, 16'777'216.0, -16'777'216.0);
}

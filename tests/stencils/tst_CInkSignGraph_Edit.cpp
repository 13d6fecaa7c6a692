// The stencil while it is edited: what a press picks, and what a drag of it does.

#include "CInk4Stars.h"
#include "CInkLove.h"
#include "Canvas.h"
#include "Exact.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

const int kOtherCodes[] = {0, 3, PT_DBLCLK, 6, 99, -1, INT_MIN, INT_MAX};

// From (100,100) to (212,156), frame (90,90) to (222,166), centre (156,128), covers (62,34) to (246,218).
class EditedStar : public CInk4Stars
{
public:
    EditedStar() { drag(*this, {100, 100}, {212, 156}); }
};

// Answers every press alike and writes down what is asked of it.
class ScriptedStar : public EditedStar
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
    QRect FormGraphData(int, QPoint, QRect &) override
    {
        calls += "form ";
        return {};
    }

    bool inside = true;
    ModifyType answer = MT_MOVE;
    std::string calls;
    float adjustedBy = -1;
    QPoint modifiedTo;
    int modifiedBy = 0;
};

} // namespace

TEST(CInkSignGraph, pressPicksTheHandleUnderIt)
{
    const int types[][3] = {
        {90, 90, 2},   {156, 90, 3},  {222, 90, 4},  {90, 128, 5},   {222, 128, 6}, {90, 166, 7},
        {156, 166, 8}, {222, 166, 9}, {156, 60, 11}, {156, 128, 10}, {101, 90, 10}, {222, 107, 10},
    };
    for (const auto &[x, y, type] : types) {
        EditedStar star;
        EXPECT_EDGES(feed(star, PT_DOWN, x, y), 62, 34, 246, 218);
        EXPECT_EQ(star.m_modifyType, type) << x << ',' << y;
        EXPECT_EQ(star.IsSparePoint(), 0);
        EXPECT_EQ(star.m_bFinished, 0);
    }
}

TEST(CInkSignGraph, pressOutsideCommits)
{
    for (const auto &[x, y] : {std::pair(79, 128), std::pair(156, 178), std::pair(156, 48), std::pair(390, 290)}) {
        EditedStar star;
        star.m_modifyType = MT_MOVE;
        EXPECT_EDGES(feed(star, PT_DOWN, x, y), 62, 34, 246, 218);
        EXPECT_EQ(star.m_bFinished, 1);
        EXPECT_EQ(star.m_bHideHotShape, 1);
        EXPECT_EQ(star.m_modifyType, MT_NONE);
        EXPECT_EQ(star.m_bEditMode, 1);
        EXPECT_EQ(star.GetPointCount(), 8);
    }
}

TEST(CInkSignGraph, pressAsksTheOverriddenHitTests)
{
    ScriptedStar star;
    star.inside = false;
    feed(star, PT_DOWN, 156, 128);
    EXPECT_EQ(star.calls, "zone ");
    EXPECT_EQ(star.m_bFinished, 1);

    ScriptedStar moved;
    feed(moved, PT_DOWN, 390, 290);
    EXPECT_EQ(moved.calls, "zone decide ");
    EXPECT_EQ(moved.m_modifyType, MT_MOVE);
    EXPECT_POINT(moved.m_ptLast, 390.0, 290.0);
    EXPECT_EQ(moved.m_bFinished, 0);

    ScriptedStar none;
    none.answer = MT_NONE;
    none.m_modifyType = MT_ROTATE;
    feed(none, PT_DOWN, 156, 128);
    EXPECT_EQ(none.calls, "zone decide ");
    EXPECT_EQ(none.m_modifyType, MT_NONE);
    EXPECT_EQ(none.m_bFinished, 0);
}

TEST(CInkSignGraph, onlyAMoveOrARotationSettlesWhatWasStretchedOrTurned)
{
    for (int before = MT_NONE; before <= MT_ROTATE; ++before) {
        for (int now = MT_NONE; now <= MT_ROTATE; ++now) {
            SCOPED_TRACE(testing::Message() << before << " then " << now);
            ScriptedStar star;
            star.m_modifyType = before;
            star.m_fRotateAngle = 33;
            star.m_ptLast = QPointF(1, 2);
            star.answer = ModifyType(now);
            feed(star, PT_DOWN, 150, 120);
            const bool settles = now >= 10 && before != 1 && before != 10;
            EXPECT_EQ(star.calls, settles ? "zone decide adjust " : "zone decide ");
            EXPECT_EQ(star.adjustedBy, settles ? 33.0f : -1.0f);
            EXPECT_EQ(star.m_modifyType, now);
            EXPECT_EQ(star.m_ptLast.x(), now == 10 ? 150.0 : 1.0);
        }
    }
}

TEST(CInkSignGraph, moveAndReleaseModifyByTheTypeOfThePress)
{
    ScriptedStar star;
    star.m_modifyType = MT_LEFT;
    feed(star, PT_MOVE, 70, 71);
    EXPECT_EQ(star.calls, "modify ");
    EXPECT_EQ(star.modifiedTo, QPoint(70, 71));
    EXPECT_EQ(star.modifiedBy, MT_LEFT);
    EXPECT_EQ(star.IsSparePoint(), 1);
    feed(star, PT_UP, 72, 73);
    EXPECT_EQ(star.calls, "modify modify ");
    EXPECT_EQ(star.modifiedTo, QPoint(72, 73));
    EXPECT_EQ(star.IsSparePoint(), 0);
    EXPECT_EQ(star.m_modifyType, MT_LEFT);
}

TEST(CInkSignGraph, otherCodesChangeNothingWhileEdited)
{
    for (const int code : kOtherCodes) {
        ScriptedStar star;
        star.m_modifyType = MT_MOVE;
        star.m_bSparePoint = 1;
        EXPECT_EDGES(feed(star, code, 156, 128), 62, 34, 246, 218);
        EXPECT_EQ(star.calls, "");
        EXPECT_EQ(star.IsSparePoint(), 0);
        EXPECT_EQ(star.m_modifyType, MT_MOVE);
        EXPECT_EQ(star.m_bFinished, 0);
    }
}

TEST(CInkSignGraph, hoverAnswersFromTheHandles)
{
    CInk4Stars fresh;
    EXPECT_EQ(fresh.AroundHotPts(QPoint(0, 0)), MT_NONE);
    EditedStar star;
    EXPECT_EQ(star.AroundHotPts(QPoint(156, 60)), MT_ROTATE);
    EXPECT_EQ(star.AroundHotPts(QPoint(156, 128)), MT_MOVE);
    EXPECT_EQ(star.AroundHotPts(QPoint(156, 190)), MT_NONE);
}

TEST(CInkSignGraph, moveShiftsPointsAndFrame)
{
    EditedStar star;
    feed(star, PT_DOWN, 150, 120);
    EXPECT_EDGES(feed(star, PT_MOVE, 155, 122), 62, 34, 251, 220);
    EXPECT_EQ(star.IsSparePoint(), 1);
    EXPECT_POINT(star.m_graphData[0], 161.0, 102.0);
    EXPECT_POINT(star.m_graphData[7], 171.0, 124.75);
    EXPECT_EDGES(star.m_rcHot, 95, 92, 227, 168);
    EXPECT_POINT(star.m_ptCenter, 161.0, 130.0);
    EXPECT_POINT(star.m_ptLast, 155.0, 122.0);
    EXPECT_EDGES(feed(star, PT_UP, 150, 120), 62, 34, 251, 220);
    EXPECT_POINT(star.m_graphData[0], 156.0, 100.0);
    EXPECT_EDGES(star.m_rcHot, 90, 90, 222, 166);
}

TEST(CInkSignGraph, stretchKeepsTheOppositeHandle)
{
    EditedStar star;
    feed(star, PT_DOWN, 222, 166);
    EXPECT_EQ(star.m_modifyType, MT_RIGHT_BOTTOM);
    EXPECT_EDGES(feed(star, PT_MOVE, 354, 242), 52, -4, 387, 331);
    EXPECT_POINT(star.m_graphData[0], 222.0, 110.0);
    EXPECT_POINT(star.m_graphData[2], 110.0, 166.0);
    EXPECT_POINT(star.m_graphData[7], 242.0, 155.5);
    EXPECT_EDGES(star.m_rcHot, 90, 90, 354, 242);
    EXPECT_POINT(star.m_ptCenter, 156.0, 128.0);
    feed(star, PT_UP, 354, 242);
    EXPECT_POINT(star.m_ptCenter, 156.0, 128.0); // until the next move or rotation
    feed(star, PT_DOWN, 200, 150);
    EXPECT_EQ(star.m_modifyType, MT_MOVE);
    EXPECT_POINT(star.m_ptCenter, 222.0, 166.0);
    EXPECT_POINT(star.m_graphData[0], 222.0, 110.0);
}

TEST(CInkSignGraph, rotationTurnsInWholeDegrees)
{
    EditedStar star;
    feed(star, PT_DOWN, 156, 60);
    EXPECT_EQ(star.m_modifyType, MT_ROTATE);
    feed(star, PT_MOVE, 256, 128);
    EXPECT_EQ(star.GetRotateAngle(), 90.0f);
    EXPECT_EDGES(star.GetUpdateRect(), 62, 34, 246, 218);
    feed(star, PT_UP, 166, 118);
    EXPECT_EQ(star.GetRotateAngle(), 45.0f);
    EXPECT_POINT(star.m_graphData[0], 156.0, 100.0);
    EXPECT_EDGES(star.m_rcHot, 90, 90, 222, 166);
}

TEST(CInkSignGraph, heartIsEditedLikeEveryStencil)
{
    CInkLove heart;
    drag(heart, {100, 100}, {160, 160});
    EXPECT_EDGES(heart.m_rcHot, 90, 90, 170, 170);
    EXPECT_EDGES(heart.GetUpdateRect(), 34, 34, 222, 222);
    drag(heart, {125, 125}, {130, 127});
    EXPECT_POINT(heart.m_graphData[2], 135.0, 162.0);
    drag(heart, {135, 62}, {235, 132});
    EXPECT_EQ(heart.GetRotateAngle(), 90.0f);
    feed(heart, PT_DOWN, 10, 290);
    EXPECT_EQ(heart.m_bFinished, 1);
}

TEST(CInkSignGraph, emptiedListIsEditedWithoutHarm)
{
    for (const int size : {0, 1, 7}) {
        EditedStar star;
        star.m_graphData.resize(size);
        drag(star, {222, 166}, {300, 250});
        drag(star, {156, 60}, {300, 250});
        drag(star, {150, 120}, {160, 125});
        drawn(star);
        EXPECT_EQ(star.m_graphData.size(), size);
        EXPECT_TRUE(star.FinishGraph()); // it counts its points once
        drawn(star);
    }
}

TEST(CInkSignGraph, farEditsDoNoHarm)
{
    for (const int far : {INT_MIN, -2'000'000'000, 16'777'217, INT_MAX}) {
        for (const auto &[x, y] : {std::pair(222, 166), std::pair(90, 90), std::pair(156, 60), std::pair(150, 120)}) {
            EditedStar star;
            drag(star, {x, y}, {far, far});
            drawn(star);
            drag(star, {far, far}, {0, INT_MAX});
            drawn(star);
        }
    }
}

// The ellipse while it is edited: what a press picks, what a drag of it does and how it settles.

#include "CInkEllipse.h"
#include "Canvas.h"
#include "Exact.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

namespace {

const int kOtherCodes[] = {0, 3, PT_DBLCLK, 6, 99, -1, INT_MIN, INT_MAX};

// From (100,100) to (200,150), frame (90,90) to (210,160), centre (150,125), covers (59,34) to (237,212).
class EditedEllipse : public CInkEllipse
{
public:
    EditedEllipse() { drag(*this, {100, 100}, {200, 150}); }
};

// Answers every press alike and writes down what is asked of it.
class ScriptedEllipse : public EditedEllipse
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
    void ModifyGraph(QPoint pt, ModifyType type) override
    {
        calls += "modify ";
        modifiedTo = pt;
        modifiedBy = type;
        m_fRotateAngle = 70;
    }
    void AdjustGraph(float angle) override
    {
        calls += "adjust ";
        adjustedBy = angle;
    }

    bool inside = true;
    ModifyType answer = MT_MOVE;
    std::string calls;
    QPoint modifiedTo;
    int modifiedBy = 0;
    float adjustedBy = -1;
};

void expectCorners(const CInkEllipse &ellipse, double x0, double y0, double x1, double y1)
{
    ASSERT_EQ(ellipse.m_graphData.size(), 2);
    EXPECT_POINT(ellipse.m_graphData[0], x0, y0);
    EXPECT_POINT(ellipse.m_graphData[1], x1, y1);
}

} // namespace

TEST(CInkEllipse, pressInsidePicksAndNeverSettles)
{
    for (int before = 1; before <= 11; ++before) {
        for (int after = 1; after <= 11; ++after) {
            SCOPED_TRACE(::testing::Message() << "from " << before << " to " << after);
            ScriptedEllipse ellipse;
            ellipse.m_modifyType = before;
            ellipse.m_bSparePoint = 1;
            ellipse.answer = ModifyType(after);
            ellipse.m_ptLast = QPointF(7, 8);
            feed(ellipse, PT_DOWN, 16'777'217, 110);
            EXPECT_EQ(ellipse.calls, "zone decide ");
            EXPECT_EQ(ellipse.m_modifyType, after);
            EXPECT_EQ(ellipse.IsSparePoint(), 0);
            EXPECT_EQ(ellipse.m_bFinished, 0);
            EXPECT_POINT(ellipse.m_ptLast, after == 10 ? 16'777'216.0 : 7.0, after == 10 ? 110.0 : 8.0);
        }
    }
}

TEST(CInkEllipse, pressOutsideCommits)
{
    ScriptedEllipse ellipse;
    ellipse.inside = false;
    ellipse.m_modifyType = 9;
    ellipse.m_ptLast = QPointF(7, 8);
    EXPECT_EDGES(feed(ellipse, PT_DOWN, 150, 125), 59, 34, 237, 212);
    EXPECT_EQ(ellipse.calls, "zone ");
    EXPECT_EQ(ellipse.m_bFinished, 1);
    EXPECT_EQ(ellipse.m_bHideHotShape, 1);
    EXPECT_EQ(ellipse.m_modifyType, 1);
    EXPECT_EQ(ellipse.m_bEditMode, 1);
    EXPECT_POINT(ellipse.m_ptLast, 7.0, 8.0);
}

TEST(CInkEllipse, everyReleaseOfAnEditSettlesAfterModifying)
{
    for (int type = 1; type <= 11; ++type) {
        SCOPED_TRACE(type);
        ScriptedEllipse ellipse;
        ellipse.m_modifyType = type;
        ellipse.m_bSparePoint = 1;
        ellipse.m_fRotateAngle = 30;
        feed(ellipse, PT_UP, 33, 44);
        EXPECT_EQ(ellipse.calls, "modify adjust ");
        EXPECT_EQ(ellipse.modifiedTo, QPoint(33, 44));
        EXPECT_EQ(ellipse.modifiedBy, type);
        EXPECT_EQ(ellipse.adjustedBy, 70.0f); // the angle that the modification left
        EXPECT_EQ(ellipse.IsSparePoint(), 0);
        EXPECT_EQ(ellipse.m_modifyType, type);
    }
}

TEST(CInkEllipse, moveWhileEditingModifiesWithoutSettling)
{
    ScriptedEllipse ellipse;
    ellipse.m_modifyType = 7;
    feed(ellipse, PT_MOVE, 33, 44);
    EXPECT_EQ(ellipse.calls, "modify ");
    EXPECT_EQ(ellipse.modifiedTo, QPoint(33, 44));
    EXPECT_EQ(ellipse.modifiedBy, 7);
    EXPECT_EQ(ellipse.IsSparePoint(), 1);
}

TEST(CInkEllipse, releaseOfTheDrawingDoesNotSettle)
{
    class Counting : public CInkEllipse
    {
    public:
        void AdjustGraph(float) override { ++adjusted; }
        int adjusted = 0;
    };
    Counting ellipse;
    drag(ellipse, {100, 100}, {200, 150});
    EXPECT_EQ(ellipse.adjusted, 0);
    drag(ellipse, {150, 60}, {250, 125});
    EXPECT_EQ(ellipse.adjusted, 1);
    feed(ellipse, PT_DOWN, 350, 250);
    feed(ellipse, PT_UP, 350, 250);
    EXPECT_EQ(ellipse.m_bFinished, 1);
    EXPECT_EQ(ellipse.adjusted, 1);
}

TEST(CInkEllipse, otherCodesWhileEditingOnlyClearTheFlag)
{
    for (const int code : kOtherCodes) {
        SCOPED_TRACE(code);
        ScriptedEllipse ellipse;
        ellipse.m_modifyType = 9;
        ellipse.m_bSparePoint = 1;
        EXPECT_EDGES(feed(ellipse, code, 300, 250), 59, 34, 237, 212);
        EXPECT_EQ(ellipse.calls, "");
        EXPECT_EQ(ellipse.IsSparePoint(), 0);
        EXPECT_EQ(ellipse.m_modifyType, 9);
        EXPECT_EQ(ellipse.m_bFinished, 0);
        expectCorners(ellipse, 100, 100, 200, 150);
    }
}

TEST(CInkEllipse, ellipseIsMovedWithItsHandles)
{
    EditedEllipse ellipse;
    feed(ellipse, PT_DOWN, 150, 125);
    EXPECT_EQ(ellipse.m_modifyType, 10);
    EXPECT_EDGES(feed(ellipse, PT_MOVE, 155, 127), 59, 34, 242, 214);
    EXPECT_POINT(ellipse.m_ptLast, 155.0, 127.0);
    EXPECT_EDGES(feed(ellipse, PT_UP, 160, 130), 64, 36, 247, 217);
    expectCorners(ellipse, 110, 105, 210, 155);
    EXPECT_EDGES(ellipse.m_rcHot, 100, 95, 220, 165);
    EXPECT_POINT(ellipse.m_ptCenter, 160.0, 130.0);
}

TEST(CInkEllipse, uprightStretchCentresAtTheRelease)
{
    EditedEllipse ellipse;
    feed(ellipse, PT_DOWN, 210, 160);
    feed(ellipse, PT_MOVE, 330, 230);
    expectCorners(ellipse, 110, 110, 310, 210);
    EXPECT_POINT(ellipse.m_ptCenter, 150.0, 125.0);
    feed(ellipse, PT_UP, 330, 230);
    expectCorners(ellipse, 110, 110, 310, 210);
    EXPECT_EDGES(ellipse.m_rcHot, 90, 90, 330, 230);
    EXPECT_POINT(ellipse.m_ptCenter, 210.0, 160.0);
}

TEST(CInkEllipse, turnedStretchSettlesAtTheRelease)
{
    EditedEllipse ellipse;
    drag(ellipse, {150, 60}, {250, 125});
    EXPECT_EQ(ellipse.GetRotateAngle(), 90.0f);
    expectCorners(ellipse, 100, 100, 200, 150);

    feed(ellipse, PT_DOWN, 115, 185);
    EXPECT_EQ(ellipse.m_modifyType, 9);
    feed(ellipse, PT_MOVE, 45, 305);
    expectCorners(ellipse, 110, 110, 310, 210);
    EXPECT_EDGES(ellipse.m_rcHot, 90, 90, 330, 230);
    EXPECT_POINT(ellipse.m_ptCenter, 150.0, 125.0);

    feed(ellipse, PT_UP, 45, 305);
    expectCorners(ellipse, 85, 15, 285, 115);
    EXPECT_EDGES(ellipse.m_rcHot, 65, -5, 305, 135);
    EXPECT_POINT(ellipse.m_ptCenter, 185.0, 65.0);
    EXPECT_POINT(ellipse.m_hotPts[8], 185.0, -35.0);
}

TEST(CInkEllipse, listsTooShortAreSurvived)
{
    for (const int count : {1, 2}) {
        for (const int size : {0, 1}) {
            for (const int code : {1, 2, 5, 99}) {
                EditedEllipse edited;
                CInkEllipse dragged;
                feed(dragged, PT_DOWN, 100, 80);
                for (CInkEllipse *ellipse : std::initializer_list<CInkEllipse *>{&edited, &dragged}) {
                    ellipse->m_graphData.resize(size);
                    ellipse->m_nPointCount = count;
                    ellipse->ShowDrawerName(1);
                    ellipse->ShowDrawerIcon(1);
                    drawn(*ellipse);
                    feed(*ellipse, code, 150, 125);
                    drawn(*ellipse);
                    ellipse->GetUpdateRect();
                    EXPECT_TRUE(ellipse->FinishGraph());
                }
                EXPECT_EQ(dragged.m_graphData.size(), code == 1 ? 2 : size);
            }
        }
    }
}

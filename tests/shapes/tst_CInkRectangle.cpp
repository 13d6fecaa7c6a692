// The rectangle: its constructors, the frame of the box, the commit and the width. What it shares with lines is in
// tst_TwoPointShapes.cpp.

#include "CInkRectangle.h"
#include "Canvas.h"
#include "Exact.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

const int kAllCodes[] = {PT_DOWN, PT_UP, PT_MOVE, 0, 3, PT_DBLCLK, 6, 99, -1, INT_MIN, INT_MAX};

void expectAbandoned(const CInkRectangle &box)
{
    EXPECT_EQ(box.m_bFinished, 1);
    EXPECT_EQ(box.m_bHideHotShape, 1);
    EXPECT_EQ(box.m_bEditMode, 0);
    EXPECT_EQ(box.m_bSparePoint, 0);
    EXPECT_NULL_RECT(box.m_rcHot);
}

void expectSelected(const CInkRectangle &box)
{
    EXPECT_EQ(box.m_bFinished, 0);
    EXPECT_EQ(box.m_bHideHotShape, 0);
    EXPECT_EQ(box.m_bEditMode, 1);
    EXPECT_EQ(box.m_bSparePoint, 0);
}

void expectUncommitted(const CInkRectangle &box)
{
    EXPECT_EQ(box.m_bFinished, 0);
    EXPECT_EQ(box.m_bHideHotShape, 0);
    EXPECT_EQ(box.m_bEditMode, 0);
}

// A box dragged from (100,80) whose first corner is then put at `x`, released at (106,80).
void releaseBoxFrom(CInkRectangle &box, double x)
{
    feed(box, PT_DOWN, 100, 80);
    box.m_graphData[0] = QPointF(x, 80);
    feed(box, PT_UP, 106, 80);
}

} // namespace

TEST(CInkRectangle, defaultConstructorGivesWidthFourAndTwoPoints)
{
    CInkRectangle box;
    EXPECT_EQ(box.m_nWidth, 4);
    EXPECT_EQ(box.m_penStyle, Qt::SolidLine);
    ASSERT_EQ(box.m_graphData.size(), 2);
    EXPECT_POINT(box.m_graphData[0], 0.0, 0.0);
    EXPECT_POINT(box.m_graphData[1], 0.0, 0.0);
    EXPECT_EQ(box.GetPointCount(), 0);
    EXPECT_EQ(box.m_modifyType, 1);
    EXPECT_NULL_RECT(box.m_rcHot);
    expectUncommitted(box);
}

TEST(CInkRectangle, penStyleConstructorGivesWidthOneAndNoPoints)
{
    CInkRectangle box(Qt::DashDotLine);
    EXPECT_EQ(box.m_nWidth, 1);
    EXPECT_EQ(box.m_penStyle, Qt::DashDotLine);
    EXPECT_EQ(box.m_graphData.size(), 0);
    EXPECT_EQ(box.GetPointCount(), 0);
    expectUncommitted(box);
}

TEST(CInkRectangle, penStyleBoxGetsItsPointsAtThePress)
{
    CInkRectangle box(Qt::DashLine);
    for (const int code : kAllCodes) {
        if (code == PT_DOWN)
            continue;
        EXPECT_EDGES(feed(box, code, 100, 80), -2, -2, 1, 1);
        EXPECT_EQ(box.m_graphData.size(), 0);
        EXPECT_EQ(box.GetPointCount(), 0);
    }
    EXPECT_EQ(box.FinishGraph(), 0);

    feed(box, PT_DOWN, 100, 80);
    ASSERT_EQ(box.m_graphData.size(), 2);
    EXPECT_POINT(box.m_graphData[0], 100.0, 80.0);
    EXPECT_POINT(box.m_graphData[1], 100.0, 80.0);
    feed(box, PT_UP, 150, 130);
    EXPECT_EQ(box.m_nWidth, 1);
    EXPECT_EQ(box.GetPointCount(), 2);
    expectSelected(box);
    EXPECT_EDGES(box.m_rcHot, 90, 70, 160, 140);
}

TEST(CInkRectangle, sparePointFollowsTheEvents)
{
    CInkRectangle box;
    feed(box, PT_DOWN, 100, 80);
    EXPECT_EQ(box.IsSparePoint(), 0);
    feed(box, PT_MOVE, 150, 130);
    EXPECT_EQ(box.IsSparePoint(), 1);
    feed(box, PT_UP, 160, 140);
    EXPECT_EQ(box.IsSparePoint(), 0);
    feed(box, PT_DOWN, 130, 110);
    EXPECT_EQ(box.IsSparePoint(), 0);
    feed(box, PT_MOVE, 131, 110);
    EXPECT_EQ(box.IsSparePoint(), 1);
    feed(box, 99, 131, 110);
    EXPECT_EQ(box.IsSparePoint(), 0);
    feed(box, PT_MOVE, 132, 110);
    EXPECT_EQ(box.IsSparePoint(), 1);
    feed(box, PT_UP, 133, 110);
    EXPECT_EQ(box.IsSparePoint(), 0);
}

TEST(CInkRectangle, releaseSelectsTheBoxWithItsHandles)
{
    CInkRectangle box;
    drag(box, {100, 80}, {150, 130});
    expectSelected(box);
    EXPECT_EQ(box.GetPointCount(), 2);
    EXPECT_EQ(box.m_modifyType, 1);
    EXPECT_EDGES(box.m_rcHot, 90, 70, 160, 140);
    EXPECT_POINT(box.m_ptCenter, 125.0, 105.0);
    EXPECT_POINT(box.m_hotPts[0], 125.0, 70.0);
    EXPECT_POINT(box.m_hotPts[1], 125.0, 140.0);
    EXPECT_POINT(box.m_hotPts[2], 90.0, 105.0);
    EXPECT_POINT(box.m_hotPts[3], 160.0, 105.0);
    EXPECT_POINT(box.m_hotPts[4], 90.0, 70.0);
    EXPECT_POINT(box.m_hotPts[5], 90.0, 140.0);
    EXPECT_POINT(box.m_hotPts[6], 160.0, 70.0);
    EXPECT_POINT(box.m_hotPts[7], 160.0, 140.0);
    EXPECT_POINT(box.m_hotPts[8], 125.0, 40.0);
}

TEST(CInkRectangle, everyDirectionGivesTheSameFrame)
{
    for (const auto &[from, to] :
         {std::pair(QPoint(150, 130), QPoint(100, 80)), std::pair(QPoint(100, 130), QPoint(150, 80)),
          std::pair(QPoint(150, 80), QPoint(100, 130))}) {
        CInkRectangle box;
        drag(box, from, to);
        expectSelected(box);
        EXPECT_EDGES(box.m_rcHot, 90, 70, 160, 140);
        EXPECT_POINT(box.m_ptCenter, 125.0, 105.0);
    }
}

TEST(CInkRectangle, distanceOfTheCornersIsMeasuredInSinglePrecision)
{
    CInkRectangle abandoned; // 6.00000001 is 6 in single precision
    releaseBoxFrom(abandoned, 99.99999999);
    expectAbandoned(abandoned);

    CInkRectangle kept; // 6.000001 is more
    releaseBoxFrom(kept, 99.999999);
    expectSelected(kept);
}

TEST(CInkRectangle, onlyTheReleaseMeasuresTheDistance)
{
    CInkRectangle box;
    feed(box, PT_DOWN, 100, 80);
    feed(box, PT_MOVE, 102, 80);
    expectUncommitted(box);
    feed(box, PT_MOVE, 150, 130);
    feed(box, PT_UP, 101, 81);
    expectAbandoned(box);
}

TEST(CInkRectangle, formingGoesThroughTheVirtualSlot)
{
    class Former : public CInkRectangle
    {
    public:
        QRect FormGraphData(int code, QPoint pt, QRect &update) override
        {
            codes.append(code);
            return CInkRectangle::FormGraphData(code, pt, update);
        }
        QVector<int> codes;
    };
    Former box;
    drag(box, {100, 80}, {150, 130});
    EXPECT_EQ(box.codes, (QVector<int>{1, 5, 2}));
    drag(box, {125, 105}, {126, 105});
    EXPECT_EQ(box.codes.size(), 3);
}

TEST(CInkRectangle, formingReturnsTheUpdate)
{
    CInkRectangle box;
    QRect update(QPoint(300, 300), QPoint(310, 310));
    EXPECT_EDGES(box.FormGraphData(PT_DOWN, QPoint(100, 80), update), -8, -8, 310, 310);
    EXPECT_EDGES(update, -8, -8, 310, 310);
}

TEST(CInkRectangle, finishAfterThePressEndsABoxWithoutSize)
{
    CInkRectangle box;
    feed(box, PT_DOWN, 100, 80);
    EXPECT_EQ(box.FinishGraph(), 1);
    EXPECT_EQ(box.m_bFinished, 1);
    EXPECT_EQ(box.m_bHideHotShape, 1);
    EXPECT_EQ(box.m_bEditMode, 0);
    EXPECT_EQ(box.GetPointCount(), 1);
    EXPECT_EDGES(box.m_rcHot, 90, 70, 110, 90);
    EXPECT_POINT(box.m_ptCenter, 100.0, 80.0);
    EXPECT_POINT(box.m_hotPts[8], 100.0, 40.0);
}

TEST(CInkRectangle, finishWhileDraggedKeepsTheSparePoint)
{
    CInkRectangle box;
    feed(box, PT_DOWN, 100, 80);
    feed(box, PT_MOVE, 150, 130);
    EXPECT_EQ(box.FinishGraph(), 1);
    EXPECT_EQ(box.m_bFinished, 1);
    EXPECT_EQ(box.m_bHideHotShape, 1);
    EXPECT_EQ(box.m_bEditMode, 0);
    EXPECT_EQ(box.IsSparePoint(), 1);
    EXPECT_EDGES(box.m_rcHot, 90, 70, 160, 140);
}

TEST(CInkRectangle, finishWhileEditedLaysTheFrameOutAnew)
{
    CInkRectangle box;
    drag(box, {100, 100}, {200, 150});
    drag(box, {210, 160}, {330, 230}); // twice as wide and high about (90,90)
    EXPECT_EDGES(box.m_rcHot, 90, 90, 330, 230);
    EXPECT_POINT(box.m_ptCenter, 150.0, 125.0);
    EXPECT_EQ(box.FinishGraph(), 1);
    EXPECT_EQ(box.m_bFinished, 1);
    EXPECT_EQ(box.m_bHideHotShape, 1);
    EXPECT_EQ(box.m_bEditMode, 1);
    EXPECT_EQ(box.m_modifyType, 9);
    EXPECT_POINT(box.m_graphData[0], 110.0, 110.0);
    EXPECT_POINT(box.m_graphData[1], 310.0, 210.0);
    EXPECT_EDGES(box.m_rcHot, 100, 100, 320, 220);
    EXPECT_POINT(box.m_ptCenter, 210.0, 160.0);
    EXPECT_EQ(box.FinishGraph(), 1);
}

TEST(CInkRectangle, finishKeepsTheAngle)
{
    CInkRectangle box;
    drag(box, {100, 100}, {200, 150});
    drag(box, {150, 60}, {250, 125});
    EXPECT_EQ(box.FinishGraph(), 1);
    EXPECT_EQ(box.GetRotateAngle(), 90.0f);
}

TEST(CInkRectangle, widthIsStored)
{
    CInkRectangle box;
    for (const int width : {1, 4, 10, 20, 0, -3}) {
        box.SetWidth(width);
        EXPECT_EQ(box.m_nWidth, width);
    }
}

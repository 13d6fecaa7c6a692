// The straight line: its constructor, its region, the commit and the width. What it shares with boxes is in
// tst_TwoPointShapes.cpp.

#include "CInkLine.h"
#include "Canvas.h"
#include "Exact.h"

#include <gtest/gtest.h>

namespace {

void expectCommitted(const CInkLine &line)
{
    EXPECT_EQ(line.m_bFinished, 1);
    EXPECT_EQ(line.m_bHideHotShape, 1);
}

void expectUncommitted(const CInkLine &line)
{
    EXPECT_EQ(line.m_bFinished, 0);
    EXPECT_EQ(line.m_bHideHotShape, 0);
}

} // namespace

TEST(CInkLine, newLineHasWidthTenAndHandlesOfRadiusThree)
{
    CInkLine line;
    EXPECT_EQ(line.m_nWidth, 10);
    EXPECT_EQ(line.m_nHotRadius, 3);
    EXPECT_EQ(line.m_nPenStyle, 1);
    EXPECT_EQ(line.m_nCapStyle, 32);
    EXPECT_NULL_RECT(line.m_rcRegion);
    EXPECT_EQ(line.m_color, QColor(0, 0, 0, 255));
    EXPECT_EQ(line.m_bEditMode, 0);
    EXPECT_EQ(line.m_modifyType, 1);
    expectUncommitted(line);
}

TEST(CInkLine, releaseEntersEditingWithItsRegion)
{
    CInkLine line;
    feed(line, PT_DOWN, 100, 80);
    EXPECT_NULL_RECT(line.m_rcRegion);
    feed(line, PT_MOVE, 150, 120);
    EXPECT_NULL_RECT(line.m_rcRegion);
    feed(line, PT_UP, 130, 100);
    EXPECT_POINT(line.m_graphData[0], 100.0, 80.0);
    EXPECT_POINT(line.m_graphData[1], 130.0, 100.0);
    EXPECT_EQ(line.GetPointCount(), 2);
    EXPECT_EQ(line.m_bEditMode, 1);
    EXPECT_EQ(line.IsSparePoint(), 0);
    EXPECT_EQ(line.m_modifyType, 1);
    EXPECT_EDGES(line.m_rcRegion, 90, 70, 140, 110);
    expectUncommitted(line);
}

TEST(CInkLine, releaseNeedsNoMoveBeforeIt)
{
    CInkLine line;
    feed(line, PT_DOWN, 100, 80);
    feed(line, PT_UP, 100, 140);
    EXPECT_EQ(line.m_bEditMode, 1);
    EXPECT_EQ(line.GetPointCount(), 2);
    EXPECT_POINT(line.m_graphData[1], 100.0, 140.0);
}

TEST(CInkLine, releaseOneAndAHalfPixelsAwayEntersEditing)
{
    CInkLine line;
    feed(line, PT_DOWN, 100, 80);
    line.m_graphData[0] = QPointF(98.5, 80);
    feed(line, PT_UP, 100, 80);
    EXPECT_EQ(line.m_bEditMode, 1);
    expectUncommitted(line);
}

TEST(CInkLine, lengthIsMeasuredInSinglePrecision)
{
    CInkLine line;
    feed(line, PT_DOWN, 100, 80);
    line.m_graphData[0] = QPointF(98.99999999, 80); // 1.00000001, which is 1 in single precision
    feed(line, PT_UP, 100, 80);
    expectCommitted(line);

    CInkLine longer;
    feed(longer, PT_DOWN, 100, 80);
    longer.m_graphData[0] = QPointF(98.9999998, 80); // 1.0000002, which single precision tells from 1
    feed(longer, PT_UP, 100, 80);
    expectUncommitted(longer);
    EXPECT_EQ(longer.m_bEditMode, 1);
}

TEST(CInkLine, finishWhileDrawnLaysOutNoRegion)
{
    CInkLine line;
    feed(line, PT_DOWN, 100, 80);
    feed(line, PT_MOVE, 150, 120);
    EXPECT_TRUE(line.FinishGraph());
    EXPECT_NULL_RECT(line.m_rcRegion);
}

TEST(CInkLine, finishWhileEditedKeepsTheType)
{
    CInkLine line;
    drag(line, {100, 80}, {200, 140});
    feed(line, PT_DOWN, 200, 140);
    EXPECT_TRUE(line.FinishGraph());
    expectCommitted(line);
    EXPECT_EQ(line.m_bEditMode, 1);
    EXPECT_EQ(line.m_modifyType, 9);

    EXPECT_TRUE(line.FinishGraph());
    expectCommitted(line);
}

TEST(CInkLine, widthDecidesTheRadiusOfTheHandles)
{
    const int radii[][2] = {{-3, 5}, {0, 5}, {1, 5}, {4, 5}, {5, 5}, {6, 6}, {7, 7}, {8, 7}, {9, 7}, {11, 7}, {20, 7}};
    for (const auto &[width, radius] : radii) {
        SCOPED_TRACE(width);
        CInkLine line;
        line.SetWidth(width);
        EXPECT_EQ(line.m_nWidth, width);
        EXPECT_EQ(line.m_nHotRadius, radius);
        EXPECT_NULL_RECT(line.m_rcRegion);
    }
}

TEST(CInkLine, sameWidthKeepsTheRadius)
{
    CInkLine line;
    line.SetWidth(10);
    EXPECT_EQ(line.m_nWidth, 10);
    EXPECT_EQ(line.m_nHotRadius, 3);

    line.SetWidth(20);
    line.SetWidth(10);
    EXPECT_EQ(line.m_nHotRadius, 7);
}

TEST(CInkLine, widthWhileEditingLaysTheRegionOutAnew)
{
    CInkLine line;
    drag(line, {100, 80}, {130, 100});
    line.SetWidth(20);
    EXPECT_EDGES(line.m_rcRegion, 80, 60, 150, 120);
    line.SetWidth(6);
    EXPECT_EDGES(line.m_rcRegion, 94, 74, 136, 106);
    line.SetWidth(5);
    EXPECT_EDGES(line.m_rcRegion, 95, 75, 135, 105);
    line.SetWidth(4);
    EXPECT_EDGES(line.m_rcRegion, 95, 75, 135, 105);
    line.SetWidth(-8);
    EXPECT_EDGES(line.m_rcRegion, 95, 75, 135, 105);
}

TEST(CInkLine, sameWidthWhileEditingKeepsTheRegion)
{
    CInkLine line;
    drag(line, {100, 80}, {130, 100});
    line.m_graphData[1] = QPointF(300, 200);
    line.SetWidth(10);
    EXPECT_EDGES(line.m_rcRegion, 90, 70, 140, 110);
}

TEST(CInkLine, widthWhileDrawingLeavesTheRegionNull)
{
    CInkLine line;
    feed(line, PT_DOWN, 100, 80);
    feed(line, PT_MOVE, 130, 100);
    line.SetWidth(20);
    EXPECT_NULL_RECT(line.m_rcRegion);
}

TEST(CInkLine, regionOfAShortenedListIsSurvived)
{
    for (const int size : {0, 1}) {
        for (const int edit : {0, 1}) {
            CInkLine line;
            drag(line, {100, 80}, {200, 140});
            line.m_bEditMode = edit;
            line.m_graphData.resize(size);
            line.SetWidth(3);
            line.SetRegion();
            line.IsPtInModifyZone(QPoint(150, 110));
            drawn(line);
        }
    }
}

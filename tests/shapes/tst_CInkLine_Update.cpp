// What the straight line covers in each phase, with the drawer's name and icon.

#include "CInkLine.h"
#include "Canvas.h"
#include "Exact.h"

#include <gtest/gtest.h>

TEST(CInkLine, freshLineCoversItsPointsAtTheOrigin)
{
    CInkLine line;
    EXPECT_EDGES(line.GetUpdateRect(), -60, -60, 60, 60);
}

TEST(CInkLine, marginIsSixTimesTheWidthOrTheRadiusWhicheverIsLarger)
{
    const int edgesByWidth[][5] = {
        {-3, 70, 50, 180, 150}, // radius 5
        {0, 70, 50, 180, 150},  {4, 70, 50, 180, 150}, {5, 70, 50, 180, 150},
        {6, 64, 44, 186, 156},  {7, 58, 38, 192, 162}, {8, 52, 32, 198, 168}, // radius 7, width 8
    };
    for (const auto &[width, left, top, right, bottom] : edgesByWidth) {
        SCOPED_TRACE(width);
        CInkLine line;
        line.SetWidth(width);
        feed(line, PT_DOWN, 100, 80);
        feed(line, PT_MOVE, 150, 120);
        EXPECT_EDGES(line.GetUpdateRect(), left, top, right, bottom);
    }
}

TEST(CInkLine, reversedLineCoversTheSame)
{
    CInkLine line;
    drag(line, {150, 120}, {100, 80});
    EXPECT_EDGES(line.GetUpdateRect(), 40, 20, 210, 180);
    CInkLine rising;
    drag(rising, {100, 120}, {150, 80});
    EXPECT_EDGES(rising.GetUpdateRect(), 40, 20, 210, 180);
}

TEST(CInkLine, lineOnePixelToTheLeftIsNotNormalised)
{
    CInkLine line;
    feed(line, PT_DOWN, 100, 100);
    feed(line, PT_MOVE, 99, 140);
    EXPECT_EDGES(line.GetUpdateRect(), 40, 40, 159, 200);
}

TEST(CInkLine, coveredRectangleTruncatesTowardZero)
{
    CInkLine line;
    line.m_graphData = {QPointF(-10.7, -0.9), QPointF(20.9, 30.2)};
    EXPECT_EDGES(line.GetUpdateRect(), -70, -60, 80, 90);
}

TEST(CInkLine, nameLabelHangsAtTheSecondEndpoint)
{
    CInkLine line;
    line.m_sizeName = QSize(80, 20);
    line.ShowDrawerName(1);
    feed(line, PT_DOWN, 100, 80);
    EXPECT_EDGES(feed(line, PT_MOVE, 150, 120), 40, 20, 229, 180);
    EXPECT_EDGES(line.m_rcName, 150, 120, 229, 139);
    EXPECT_NULL_RECT(line.m_rcIcon);

    // Still shown while editing.
    feed(line, PT_UP, 200, 120);
    EXPECT_EDGES(line.m_rcName, 200, 120, 279, 139);
    EXPECT_EDGES(line.GetUpdateRect(), 40, 20, 279, 180);

    line.ShowDrawerName(0);
    EXPECT_EDGES(line.GetUpdateRect(), 40, 20, 260, 180);
    EXPECT_NULL_RECT(line.m_rcName);
}

TEST(CInkLine, nameLabelWithoutSizeAddsNothing)
{
    CInkLine line;
    line.ShowDrawerName(1);
    feed(line, PT_DOWN, 100, 80);
    feed(line, PT_MOVE, 150, 120);
    EXPECT_EDGES(line.GetUpdateRect(), 40, 20, 210, 180);
    EXPECT_EDGES(line.m_rcName, 150, 120, 149, 119);
}

TEST(CInkLine, iconSurroundsTheTipUntilTheLineIsEdited)
{
    CInkLine line;
    line.ShowDrawerIcon(1);
    line.m_nWidth = 1;
    line.m_nHotRadius = 1; // so that the icon reaches out of the margin of 6
    feed(line, PT_DOWN, 100, 80);
    feed(line, PT_MOVE, 150, 120);
    EXPECT_EDGES(line.GetUpdateRect(), 94, 74, 164, 134);
    EXPECT_EDGES(line.m_rcIcon, 135, 105, 164, 134);
    EXPECT_NULL_RECT(line.m_rcName);

    line.ShowDrawerIcon(0);
    EXPECT_EDGES(line.GetUpdateRect(), 94, 74, 156, 126);
    EXPECT_NULL_RECT(line.m_rcIcon);

    line.ShowDrawerIcon(1);
    EXPECT_EDGES(feed(line, PT_UP, 150, 120), 94, 74, 164, 134);
    EXPECT_EDGES(line.GetUpdateRect(), 94, 74, 156, 126);
    EXPECT_NULL_RECT(line.m_rcIcon);
}

TEST(CInkLine, nameAndIconAreBothUnited)
{
    CInkLine line;
    line.m_sizeName = QSize(40, 90);
    line.ShowDrawerName(1);
    line.ShowDrawerIcon(1);
    line.m_nWidth = 1;
    line.m_nHotRadius = 1;
    line.m_graphData = {QPointF(100, 80), QPointF(50.9, 20.9)};
    EXPECT_EDGES(line.GetUpdateRect(), 35, 5, 106, 109);
    EXPECT_EDGES(line.m_rcName, 50, 20, 89, 109);
    EXPECT_EDGES(line.m_rcIcon, 35, 5, 64, 34);
}

TEST(CInkLine, committedLineKeepsWhatItCoveredWhileEdited)
{
    CInkLine line;
    line.ShowDrawerIcon(1);
    line.m_nWidth = 1;
    line.m_nHotRadius = 1;
    drag(line, {100, 80}, {150, 120});
    line.FinishGraph();
    EXPECT_EDGES(line.GetUpdateRect(), 94, 74, 156, 126);

    CInkLine finishedWhileDrawn;
    finishedWhileDrawn.ShowDrawerIcon(1);
    finishedWhileDrawn.m_nWidth = 1;
    finishedWhileDrawn.m_nHotRadius = 1;
    feed(finishedWhileDrawn, PT_DOWN, 100, 80);
    feed(finishedWhileDrawn, PT_MOVE, 150, 120);
    finishedWhileDrawn.FinishGraph();
    EXPECT_EDGES(finishedWhileDrawn.GetUpdateRect(), 94, 74, 164, 134);
}

TEST(CInkLine, negativeMarginIsNormalised)
{
    CInkLine line;
    line.m_nWidth = -5;
    line.m_nHotRadius = -1;
    line.m_graphData = {QPointF(100, 80), QPointF(100, 80)};
    EXPECT_EDGES(line.GetUpdateRect(), 94, 74, 106, 86);
}

TEST(CInkLine, listOfOnePointIsCoveredOffCentre)
{
    CInkLine line;
    line.m_graphData = {QPointF(100.9, 80.9)};
    EXPECT_EDGES(line.GetUpdateRect(), 80, 60, 139, 119);
}

TEST(CInkLine, emptiedListCoversNothing)
{
    CInkLine line;
    line.m_graphData.clear();
    EXPECT_NULL_RECT(line.GetUpdateRect());
}

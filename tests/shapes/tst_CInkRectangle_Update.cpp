// What the rectangle covers in each phase, with the drawer's name and icon.

#include "CInkRectangle.h"
#include "Canvas.h"
#include "Exact.h"

#include <gtest/gtest.h>

TEST(CInkRectangle, freshBoxCoversTwiceItsWidthAroundNothing)
{
    CInkRectangle box;
    EXPECT_EDGES(box.GetUpdateRect(), -8, -8, 7, 7);
    CInkRectangle thin(Qt::DashLine);
    EXPECT_EDGES(thin.GetUpdateRect(), -2, -2, 1, 1);
    box.SetWidth(0);
    EXPECT_NULL_RECT(box.GetUpdateRect());
}

TEST(CInkRectangle, pressedBoxIsCoveredAroundItsLastButOnePoint)
{
    CInkRectangle box;
    box.m_nPointCount = 1;
    box.m_graphData = {QPointF(50.9, 60.9), QPointF(70, 80)};
    EXPECT_EDGES(box.GetUpdateRect(), 38, 48, 61, 71);
    box.m_graphData = {QPointF(1, 1), QPointF(50.9, 60.9), QPointF(70, 80)};
    EXPECT_EDGES(box.GetUpdateRect(), 38, 48, 61, 71);
}

TEST(CInkRectangle, draggedBoxIsCoveredThroughItsLastTwoPoints)
{
    CInkRectangle box;
    box.m_nPointCount = 2;
    box.m_graphData = {QPointF(1, 1), QPointF(50.9, 60.9), QPointF(70.9, 80.9)};
    EXPECT_EDGES(box.GetUpdateRect(), 38, 48, 82, 92);
}

TEST(CInkRectangle, coveredRectangleTruncatesTowardZero)
{
    CInkRectangle box;
    box.m_nPointCount = 2;
    box.m_graphData = {QPointF(-10.7, -0.9), QPointF(20.9, 30.2)};
    EXPECT_EDGES(box.GetUpdateRect(), -22, -12, 32, 42);
    box.m_nPointCount = 1;
    EXPECT_EDGES(box.GetUpdateRect(), -22, -12, 1, 11);
}

TEST(CInkRectangle, everyDirectionCoversTheSame)
{
    for (const auto &[from, to] :
         {std::pair(QPoint(150, 130), QPoint(100, 80)), std::pair(QPoint(100, 130), QPoint(150, 80)),
          std::pair(QPoint(150, 80), QPoint(100, 130))}) {
        CInkRectangle box;
        feed(box, PT_DOWN, from.x(), from.y());
        feed(box, PT_MOVE, to.x(), to.y());
        EXPECT_EDGES(box.GetUpdateRect(), 88, 68, 162, 142);
    }
}

TEST(CInkRectangle, boxOnePixelToTheLeftIsNotNormalised)
{
    CInkRectangle box;
    feed(box, PT_DOWN, 100, 100);
    feed(box, PT_MOVE, 99, 150);
    EXPECT_EDGES(box.GetUpdateRect(), 88, 88, 111, 162);
    feed(box, PT_MOVE, 98, 150);
    EXPECT_EDGES(box.GetUpdateRect(), 86, 88, 112, 162);
}

TEST(CInkRectangle, negativeWidthShrinks)
{
    CInkRectangle box;
    box.SetWidth(-4);
    feed(box, PT_DOWN, 100, 80);
    feed(box, PT_MOVE, 150, 130);
    EXPECT_EDGES(box.GetUpdateRect(), 112, 92, 138, 118);
}

TEST(CInkRectangle, iconTakesItsCornerForItsSize)
{
    CInkRectangle box;
    box.ShowDrawerIcon(1);
    feed(box, PT_DOWN, 20, 20);
    EXPECT_NULL_RECT(box.m_rcIcon); // not before the first move
    EXPECT_EDGES(feed(box, PT_MOVE, 100, 50), 8, 8, 207, 107);
    EXPECT_EDGES(box.m_rcIcon, 85, 35, 199, 99);
    EXPECT_EQ(box.m_rcIcon.width(), 115);
    EXPECT_EQ(box.m_rcIcon.height(), 65);
    EXPECT_NULL_RECT(box.m_rcName);

    box.ShowDrawerIcon(0);
    EXPECT_EDGES(box.GetUpdateRect(), 8, 8, 112, 62);
    EXPECT_NULL_RECT(box.m_rcIcon);
}

TEST(CInkRectangle, iconOfANegativeCornerHasANegativeSize)
{
    CInkRectangle box;
    box.ShowDrawerIcon(1);
    feed(box, PT_DOWN, 20, 20);
    feed(box, PT_MOVE, -50, -20);
    EXPECT_EDGES(box.GetUpdateRect(), -109, -49, 32, 32);
    EXPECT_EDGES(box.m_rcIcon, -65, -35, -101, -41);
}

TEST(CInkRectangle, nameLabelHangsAtTheDraggedCorner)
{
    CInkRectangle box;
    box.ShowDrawerName(1);
    box.m_sizeName = QSize(60, 10);
    feed(box, PT_DOWN, 20, 20);
    EXPECT_NULL_RECT(box.m_rcName);
    feed(box, PT_MOVE, 100, 50);
    EXPECT_EDGES(box.GetUpdateRect(), 8, 8, 167, 67);
    EXPECT_EDGES(box.m_rcName, 100, 50, 159, 59);
    EXPECT_NULL_RECT(box.m_rcIcon);

    box.ShowDrawerName(0);
    EXPECT_EDGES(box.GetUpdateRect(), 8, 8, 112, 62);
    EXPECT_NULL_RECT(box.m_rcName);
}

TEST(CInkRectangle, nameLabelWithoutSizeAddsNothing)
{
    CInkRectangle box;
    box.ShowDrawerName(1);
    feed(box, PT_DOWN, 20, 20);
    feed(box, PT_MOVE, 100, 50);
    EXPECT_EDGES(box.GetUpdateRect(), 8, 8, 112, 62);
    EXPECT_EDGES(box.m_rcName, 100, 50, 99, 49);
}

TEST(CInkRectangle, nameAndIconAreBothUnited)
{
    CInkRectangle box;
    box.ShowDrawerName(1);
    box.ShowDrawerIcon(1);
    box.m_sizeName = QSize(300, 10);
    box.m_nPointCount = 2;
    box.m_graphData = {QPointF(20, 20), QPointF(100.9, 50.9)};
    EXPECT_EDGES(box.GetUpdateRect(), 8, 8, 407, 107);
    EXPECT_EDGES(box.m_rcName, 100, 50, 399, 59);
    EXPECT_EDGES(box.m_rcIcon, 85, 35, 199, 99);
}

TEST(CInkRectangle, editedBoxCoversItselfAtAnyAngle)
{
    CInkRectangle box;
    drag(box, {100, 100}, {200, 150});
    EXPECT_EDGES(box.GetUpdateRect(), 51, 26, 245, 220);

    // Where the diagonal reaches farther than the rotation handle.
    CInkRectangle large;
    drag(large, {0, 0}, {300, 200});
    EXPECT_EDGES(large.GetUpdateRect(), -69, -119, 366, 316);
}

TEST(CInkRectangle, marginOfAnEditedBoxHasAFloorOfTen)
{
    const int edgesByWidth[][5] = {
        {-3, 40, 20, 206, 186}, {0, 34, 14, 212, 192},  {1, 32, 12, 214, 194},
        {9, 16, -4, 230, 210},  {10, 14, -6, 232, 212}, {11, 11, -9, 235, 215},
    };
    for (const auto &[width, left, top, right, bottom] : edgesByWidth) {
        SCOPED_TRACE(width);
        CInkRectangle box;
        box.SetWidth(width);
        drag(box, {100, 80}, {150, 130});
        EXPECT_EDGES(box.GetUpdateRect(), left, top, right, bottom);
    }
}

TEST(CInkRectangle, turnedBoxCoversASquareAroundItsCentre)
{
    CInkRectangle box;
    drag(box, {100, 100}, {180, 120});
    EXPECT_EDGES(box.GetUpdateRect(), 56, 26, 220, 190);
    box.m_fRotateAngle = 90;
    EXPECT_EDGES(box.GetUpdateRect(), 56, 26, 220, 190);
    // Half a turn about a pivot far left of the centre: the square follows.
    box.m_fRotateAngle = 180;
    box.m_ptCenter = QPointF(100, 110);
    EXPECT_EDGES(box.GetUpdateRect(), -23, 26, 141, 190);
}

TEST(CInkRectangle, nameLabelOfAnEditedBoxTakesTheFramesCornerForItsSize)
{
    CInkRectangle box;
    box.ShowDrawerName(1);
    box.m_sizeName = QSize(60, 10);
    drag(box, {100, 80}, {150, 130});
    EXPECT_EDGES(box.GetUpdateRect(), 26, 6, 247, 200);
    EXPECT_EDGES(box.m_rcName, 90, 70, 239, 149);

    // Also without a size of its own.
    box.m_sizeName = QSize(0, 0);
    EXPECT_EDGES(box.GetUpdateRect(), 26, 6, 220, 200);
    EXPECT_EDGES(box.m_rcName, 90, 70, 179, 139);

    box.ShowDrawerName(0);
    EXPECT_EDGES(box.GetUpdateRect(), 26, 6, 220, 200);
    EXPECT_NULL_RECT(box.m_rcName);
}

TEST(CInkRectangle, iconIsNotCoveredWhileEdited)
{
    CInkRectangle box;
    box.ShowDrawerIcon(1);
    drag(box, {100, 80}, {150, 130});
    EXPECT_EDGES(box.GetUpdateRect(), 26, 6, 220, 200);
}

TEST(CInkRectangle, committedBoxKeepsWhatItCoveredWhileEdited)
{
    CInkRectangle box;
    drag(box, {100, 80}, {150, 130});
    EXPECT_EDGES(feed(box, PT_DOWN, 350, 250), 26, 6, 220, 200);
    EXPECT_EQ(box.m_bFinished, 1);
    EXPECT_EDGES(box.GetUpdateRect(), 26, 6, 220, 200);
}

TEST(CInkRectangle, boxFinishedWhileDrawnKeepsWhatItCoveredThen)
{
    CInkRectangle box;
    feed(box, PT_DOWN, 100, 80);
    feed(box, PT_MOVE, 150, 130);
    box.FinishGraph();
    EXPECT_EDGES(box.GetUpdateRect(), 88, 68, 162, 142);

    CInkRectangle pressed;
    feed(pressed, PT_DOWN, 100, 80);
    pressed.FinishGraph();
    EXPECT_EDGES(pressed.GetUpdateRect(), 88, 68, 111, 91);
}

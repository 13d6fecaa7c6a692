// What the stencil covers in each phase, with the drawer's name and icon.

#include "CInk4Stars.h"
#include "Canvas.h"
#include "Exact.h"

#include <gtest/gtest.h>

namespace {

// From (100,100) to (212,156), where every point is exact.
class DraggedStar : public CInk4Stars
{
public:
    DraggedStar()
    {
        feed(*this, PT_DOWN, 100, 100);
        feed(*this, PT_MOVE, 212, 156);
    }
};

class EditedStar : public DraggedStar
{
public:
    EditedStar() { feed(*this, PT_UP, 212, 156); }
};

} // namespace

TEST(CInkSignGraph, pressedStencilCoversThreeWidths)
{
    const int rows[][5] = {
        {1, 99, 79, 101, 81}, {5, 95, 75, 109, 89}, {0, 100, 80, 99, 79}, {-7, 85, 65, 107, 87}, {2, 98, 78, 103, 83}};
    for (const auto &[width, left, top, right, bottom] : rows) {
        SCOPED_TRACE(width);
        CInk4Stars star;
        star.SetWidth(width);
        feed(star, PT_DOWN, 100, 80);
        EXPECT_EDGES(star.GetUpdateRect(), left, top, right, bottom);
    }
}

TEST(CInkSignGraph, pressedStencilLeavesTheNameAndTheIconAlone)
{
    CInk4Stars star;
    star.ShowDrawerName(1);
    star.ShowDrawerIcon(1);
    star.m_sizeName = QSize(60, 20);
    star.m_rcName = QRect(1, 2, 3, 4);
    star.m_rcIcon = QRect(5, 6, 7, 8);
    EXPECT_NULL_RECT(star.GetUpdateRect());
    feed(star, PT_DOWN, 100, 80);
    EXPECT_EDGES(star.GetUpdateRect(), 99, 79, 101, 81);
    EXPECT_EDGES(star.m_rcName, 1, 2, 3, 5);
    EXPECT_EDGES(star.m_rcIcon, 5, 6, 11, 13);
}

TEST(CInkSignGraph, dragCoversItsBoxAndAMargin)
{
    const int rows[][5] = {{1, 90, 90, 222, 166}, {3, 90, 90, 222, 166}, {4, 88, 88, 224, 168},
                           {5, 85, 85, 227, 171}, {0, 90, 90, 222, 166}, {-7, 90, 90, 222, 166}};
    for (const auto &[width, left, top, right, bottom] : rows) {
        SCOPED_TRACE(width);
        DraggedStar star;
        star.SetWidth(width);
        EXPECT_EDGES(star.GetUpdateRect(), left, top, right, bottom);
        feed(star, PT_DOWN, 212, 156);
        feed(star, PT_MOVE, 100, 100);
        EXPECT_EDGES(star.GetUpdateRect(), left, top, right, bottom);
        feed(star, PT_DOWN, 100, 156);
        feed(star, PT_MOVE, 212, 100);
        EXPECT_EDGES(star.GetUpdateRect(), left, top, right, bottom);
    }
}

TEST(CInkSignGraph, dragOnePixelToTheLeftStaysTheWrongWayRound)
{
    CInk4Stars star;
    feed(star, PT_DOWN, 100, 100);
    feed(star, PT_MOVE, 99, 140);
    EXPECT_EDGES(star.GetUpdateRect(), 90, 90, 109, 150);
    feed(star, PT_MOVE, 98, 99);
    EXPECT_EDGES(star.GetUpdateRect(), 88, 90, 110, 109);
}

TEST(CInkSignGraph, coveredRectangleTruncatesTowardZero)
{
    DraggedStar star;
    star.m_graphData[8] = QPointF(-20.9, -0.9);
    star.m_graphData[9] = QPointF(50.9, 60.2);
    EXPECT_EDGES(star.GetUpdateRect(), -30, -10, 60, 70);
    star.m_nPointCount = 1;
    EXPECT_EDGES(star.GetUpdateRect(), -21, -1, -19, 1);
    for (const int count : {0, -1, 3, 8, 10}) {
        star.m_nPointCount = count;
        EXPECT_NULL_RECT(star.GetUpdateRect());
    }
}

TEST(CInkSignGraph, dragCoversTheNameAndTheIcon)
{
    DraggedStar star;
    star.m_rcName = star.m_rcIcon = QRect(0, 0, 400, 300);
    EXPECT_EDGES(star.GetUpdateRect(), 90, 90, 222, 166);
    EXPECT_NULL_RECT(star.m_rcName);
    EXPECT_NULL_RECT(star.m_rcIcon);

    star.ShowDrawerIcon(1);
    EXPECT_EDGES(star.GetUpdateRect(), 90, 90, 226, 170);
    EXPECT_EDGES(star.m_rcIcon, 197, 141, 226, 170);
    EXPECT_NULL_RECT(star.m_rcName);

    star.ShowDrawerName(1);
    EXPECT_EDGES(star.GetUpdateRect(), 90, 90, 226, 170); // a name of no size
    EXPECT_EDGES(star.m_rcName, 212, 156, 211, 155);
    star.m_sizeName = QSize(60, 20);
    EXPECT_EDGES(star.GetUpdateRect(), 90, 90, 271, 175);
    EXPECT_EDGES(star.m_rcName, 212, 156, 271, 175);

    star.ShowDrawerIcon(0);
    EXPECT_EDGES(star.GetUpdateRect(), 90, 90, 271, 175);
    EXPECT_NULL_RECT(star.m_rcIcon);

    star.ShowDrawerIcon(1); // both follow the pointer, not the corner of the box
    feed(star, PT_MOVE, 30, 40);
    EXPECT_EDGES(star.m_rcName, 30, 40, 89, 59);
    EXPECT_EDGES(star.m_rcIcon, 15, 25, 44, 54);
    EXPECT_EDGES(star.GetUpdateRect(), 15, 25, 110, 110);
}

TEST(CInkSignGraph, formedStencilCoversItsTurnedBoxAndTheName)
{
    EditedStar star;
    EXPECT_EDGES(star.GetUpdateRect(), 62, 34, 246, 218);
    star.m_rcName = QRect(0, 0, 400, 300);
    star.m_rcIcon = QRect(1, 2, 3, 4);
    star.ShowDrawerIcon(1);
    EXPECT_EDGES(star.GetUpdateRect(), 62, 34, 246, 218);
    EXPECT_NULL_RECT(star.m_rcName);
    EXPECT_EDGES(star.m_rcIcon, 1, 2, 3, 5); // no longer kept up

    star.ShowDrawerName(1);
    star.m_sizeName = QSize(260, 20);
    EXPECT_EDGES(star.GetUpdateRect(), 62, 34, 349, 218);
    EXPECT_EDGES(star.m_rcName, 90, 90, 349, 109);
    star.ShowDrawerName(0);
    star.SetWidth(25);
    EXPECT_EDGES(star.GetUpdateRect(), 47, 19, 261, 233);
    star.FinishGraph();
    EXPECT_EDGES(star.GetUpdateRect(), 47, 19, 261, 233);
}

TEST(CInkSignGraph, eachEventReportsWhatWasAndIsCovered)
{
    CInk4Stars star;
    EXPECT_EDGES(feed(star, PT_DOWN, 100, 100), 99, 99, 101, 101);
    EXPECT_EDGES(feed(star, PT_MOVE, 212, 156), 90, 90, 222, 166);
    EXPECT_EDGES(feed(star, PT_MOVE, 120, 110), 90, 90, 222, 166);
    EXPECT_EDGES(feed(star, PT_MOVE, 60, 110), 50, 90, 130, 120);
    EXPECT_EDGES(feed(star, PT_UP, 212, 156), 50, 34, 246, 218);
    EXPECT_EDGES(feed(star, PT_DOWN, 390, 290), 62, 34, 246, 218);
    EXPECT_NULL_RECT(feed(star, PT_DOWN, 390, 290));

    CInk4Stars abandoned;
    feed(abandoned, PT_DOWN, 100, 100);
    feed(abandoned, PT_MOVE, 212, 156);
    EXPECT_EDGES(feed(abandoned, PT_UP, 104, 100), 90, 90, 222, 166);
    EXPECT_EDGES(abandoned.GetUpdateRect(), 90, 90, 114, 110);
}

TEST(CInkSignGraph, updateIsUnitedAndNeverCleared)
{
    CInk4Stars star;
    QRect update(QPoint(500, 400), QPoint(510, 410));
    star.AddPoint(PT_DOWN, QPoint(100, 100), update);
    EXPECT_EDGES(update, 99, 99, 510, 410);
    star.AddPoint(PT_MOVE, QPoint(-20, 100), update);
    EXPECT_EDGES(update, -30, 90, 510, 410);
    EXPECT_EDGES(star.FormGraphData(PT_MOVE, QPoint(-40, 100), update), -50, 90, 510, 410);
    EXPECT_EDGES(update, -50, 90, 510, 410);
}

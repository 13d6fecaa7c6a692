// What the polygon covers in each phase, with the drawer's name and icon.

#include "GestureShape.h"

#include <gtest/gtest.h>

namespace {

using EditedPolygon = ClosedPolygon::Edited;

} // namespace

TEST(CInkPolygon, eachEventReportsWhatWasAndIsCovered)
{
    CInkPolygon polygon;
    EXPECT_EDGES(feed(polygon, PT_DOWN, 100, 80), 88, 68, 111, 91);
    EXPECT_EDGES(feed(polygon, PT_MOVE, 150, 130), 88, 68, 161, 141);
    EXPECT_EDGES(polygon.GetUpdateRect(), 88, 68, 161, 141);
    EXPECT_EDGES(feed(polygon, PT_MOVE, 110, 90), 88, 68, 161, 141);
    EXPECT_EDGES(polygon.GetUpdateRect(), 88, 68, 121, 101);
    EXPECT_EDGES(feed(polygon, PT_UP, 120, 100), 88, 68, 131, 111);
    EXPECT_EDGES(feed(polygon, PT_DBLCLK, 300, 300), 88, 68, 131, 111);
    EXPECT_EDGES(feed(polygon, PT_DOWN, 20, 90), 8, 68, 131, 111);
    // Frame (10,70) to (130,110).
    EXPECT_EDGES(feed(polygon, PT_UP, 300, 300), -10, 10, 146, 166);
}

TEST(CInkPolygon, updateIsUnitedNeverClearedAndReturned)
{
    CInkPolygon polygon;
    QRect update(QPoint(500, 400), QPoint(510, 410));
    EXPECT_EDGES(polygon.FormGraphData(PT_DOWN, QPoint(100, 80), update), 88, 68, 510, 410);
    EXPECT_EDGES(update, 88, 68, 510, 410);
    polygon.AddPoint(PT_MOVE, QPoint(-100, 80), update);
    EXPECT_EDGES(update, -112, 68, 510, 410);
    EXPECT_EDGES(polygon.FormGraphData(99, QPoint(0, 0), update), -112, 68, 510, 410);
}

TEST(CInkPolygon, coveredRectangleHoldsAllPoints)
{
    CInkPolygon polygon;
    polygon.m_graphData = {QPointF(20.9, 9.9), QPointF(-10.7, 30.2), QPointF(5, -0.9)};
    EXPECT_EDGES(polygon.GetUpdateRect(), -22, -12, 31, 41);
    polygon.SetWidth(1);
    EXPECT_EDGES(polygon.GetUpdateRect(), -13, -3, 22, 32);
    polygon.SetWidth(0);
    EXPECT_EDGES(polygon.GetUpdateRect(), -10, 0, 19, 29);
    polygon.SetWidth(-2);
    EXPECT_EDGES(polygon.GetUpdateRect(), -4, 6, 13, 23);
}

TEST(CInkPolygon, nameAndIconSitAtTheLastPoint)
{
    GrowingPolygon polygon;
    polygon.m_sizeName = QSize(80, 30);
    polygon.m_rcName = polygon.m_rcIcon = QRect(1, 2, 3, 4);
    EXPECT_EDGES(polygon.GetUpdateRect(), 88, 88, 211, 161);
    EXPECT_NULL_RECT(polygon.m_rcName);
    EXPECT_NULL_RECT(polygon.m_rcIcon);

    polygon.ShowDrawerIcon(1);
    EXPECT_EDGES(polygon.GetUpdateRect(), 88, 88, 211, 164);
    EXPECT_EDGES(polygon.m_rcIcon, 135, 135, 164, 164);
    EXPECT_NULL_RECT(polygon.m_rcName);

    polygon.ShowDrawerName(1);
    EXPECT_EDGES(polygon.GetUpdateRect(), 88, 88, 229, 179);
    EXPECT_EDGES(polygon.m_rcName, 150, 150, 229, 179);

    polygon.ShowDrawerIcon(0);
    feed(polygon, PT_MOVE, -50, 250);
    EXPECT_EDGES(polygon.GetUpdateRect(), -62, 88, 211, 279);
    EXPECT_EDGES(polygon.m_rcName, -50, 250, 29, 279);
    EXPECT_NULL_RECT(polygon.m_rcIcon);

    polygon.ShowDrawerIcon(1);
    polygon.m_graphData.last() = QPointF(-0.9, 50.9);
    polygon.GetUpdateRect();
    EXPECT_EDGES(polygon.m_rcName, 0, 50, 79, 79);
    EXPECT_EDGES(polygon.m_rcIcon, -15, 35, 14, 64);
}

TEST(CInkPolygon, nameIsShownFromTheFirstPress)
{
    CInkPolygon polygon;
    polygon.ShowDrawerName(1);
    polygon.ShowDrawerIcon(1);
    polygon.m_sizeName = QSize(60, 10);
    EXPECT_NULL_RECT(polygon.GetUpdateRect());
    EXPECT_NULL_RECT(polygon.m_rcName);
    EXPECT_NULL_RECT(polygon.m_rcIcon);
    EXPECT_EDGES(feed(polygon, PT_DOWN, 100, 80), 85, 65, 159, 94);
    EXPECT_EDGES(polygon.m_rcName, 100, 80, 159, 89);
    EXPECT_EDGES(polygon.m_rcIcon, 85, 65, 114, 94);
}

TEST(CInkPolygon, iconStaysBehindWhenEditingBegins)
{
    GrowingPolygon polygon;
    polygon.ShowDrawerIcon(1);
    feed(polygon, PT_DBLCLK, 150, 150);
    EXPECT_EDGES(feed(polygon, PT_UP, 150, 150), 59, 34, 237, 212);
    EXPECT_EDGES(polygon.m_rcIcon, 135, 135, 164, 164);
    polygon.m_rcIcon = QRect(500, 500, 30, 30);
    EXPECT_EDGES(polygon.GetUpdateRect(), 59, 34, 237, 212);
    EXPECT_EDGES(polygon.m_rcIcon, 500, 500, 529, 529);
}

TEST(CInkPolygon, committedPolygonGoesOnCoveringItsFrame)
{
    EditedPolygon polygon;
    feed(polygon, PT_DOWN, 350, 250);
    EXPECT_EQ(polygon.m_bFinished, 1);
    EXPECT_EDGES(polygon.GetUpdateRect(), 59, 34, 237, 212);
    GrowingPolygon finishedWhileDrawn;
    finishedWhileDrawn.FinishGraph();
    EXPECT_EDGES(finishedWhileDrawn.GetUpdateRect(), 88, 88, 211, 161);
}

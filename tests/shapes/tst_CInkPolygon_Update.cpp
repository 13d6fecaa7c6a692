// What the polygon covers in each phase, with the drawer's name and icon.

#include "CInkPolygon.h"
#include "Canvas.h"
#include "Exact.h"

#include <gtest/gtest.h>

namespace {

// Two vertices, (100,100) and (200,110), with the rubber band drawn to (150,150).
class GrowingPolygon : public CInkPolygon
{
public:
    GrowingPolygon()
    {
        drag(*this, {100, 100}, {200, 110});
        feed(*this, PT_MOVE, 150, 150);
    }
};

// Closed over (100,100), (200,110) and (150,150): frame (90,90) to (210,160), centre (150,125).
class EditedPolygon : public GrowingPolygon
{
public:
    EditedPolygon()
    {
        feed(*this, PT_UP, 150, 150);
        feed(*this, PT_UP, 100, 100);
    }
};

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

TEST(CInkPolygon, editedPolygonCoversItsFrameAndName)
{
    EditedPolygon polygon;
    EXPECT_EDGES(polygon.GetUpdateRect(), 59, 34, 237, 212);
    polygon.SetWidth(16);
    EXPECT_EDGES(polygon.GetUpdateRect(), 53, 28, 243, 218);
    polygon.SetWidth(4);
    polygon.m_fRotateAngle = 90;
    EXPECT_EDGES(polygon.GetUpdateRect(), 59, 34, 237, 212);

    polygon.m_sizeName = QSize(60, 200);
    polygon.ShowDrawerName(1);
    EXPECT_EDGES(polygon.GetUpdateRect(), 59, 34, 237, 289);
    EXPECT_EDGES(polygon.m_rcName, 90, 90, 149, 289);
    polygon.ShowDrawerName(0);
    EXPECT_EDGES(polygon.GetUpdateRect(), 59, 34, 237, 212);
    EXPECT_NULL_RECT(polygon.m_rcName);
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

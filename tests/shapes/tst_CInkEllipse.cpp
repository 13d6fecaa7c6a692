// The ellipse: its events and what it covers.

#include "CInkEllipse.h"
#include "Canvas.h"
#include "Exact.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

// From (100,100) to (200,150), frame (90,90) to (210,160), centre (150,125), covers (59,34) to (237,212).
class EditedEllipse : public CInkEllipse
{
public:
    EditedEllipse() { drag(*this, {100, 100}, {200, 150}); }
};

void expectCorners(const CInkEllipse &ellipse, double x0, double y0, double x1, double y1)
{
    ASSERT_EQ(ellipse.m_graphData.size(), 2);
    EXPECT_POINT(ellipse.m_graphData[0], x0, y0);
    EXPECT_POINT(ellipse.m_graphData[1], x1, y1);
}

// Counter 2 with the given points.
class DraggedThrough : public CInkEllipse
{
public:
    explicit DraggedThrough(const QVector<QPointF> &points)
    {
        m_graphData = points;
        m_nPointCount = 2;
    }
};

} // namespace

TEST(CInkEllipse, freshEllipseIsOneWideAndHoldsTwoPoints)
{
    CInkEllipse ellipse;
    EXPECT_EQ(ellipse.m_nWidth, 1);
    EXPECT_EQ(ellipse.m_penStyle, Qt::SolidLine);
    EXPECT_EQ(ellipse.GetPointCount(), 0);
    expectCorners(ellipse, 0, 0, 0, 0);
    EXPECT_NULL_RECT(ellipse.GetUpdateRect());
}

TEST(CInkEllipse, penStyleConstructorStartsEmptyAndIsUsableAtThePress)
{
    CInkEllipse ellipse(Qt::DashLine);
    EXPECT_EQ(ellipse.m_nWidth, 1);
    EXPECT_EQ(ellipse.m_penStyle, Qt::DashLine);
    EXPECT_EQ(ellipse.GetPointCount(), 0);
    EXPECT_TRUE(ellipse.m_graphData.isEmpty());
    EXPECT_NULL_RECT(ellipse.GetUpdateRect());
    EXPECT_FALSE(ellipse.FinishGraph());
    EXPECT_NULL_RECT(feed(ellipse, PT_MOVE, 5, 5));
    EXPECT_NULL_RECT(feed(ellipse, PT_UP, 5, 5));
    EXPECT_TRUE(ellipse.m_graphData.isEmpty());

    EXPECT_EDGES(feed(ellipse, PT_DOWN, 100, 80), 99, 79, 101, 81);
    expectCorners(ellipse, 100, 80, 100, 80);
    feed(ellipse, PT_MOVE, 150, 130);
    feed(ellipse, PT_UP, 150, 130);
    expectCorners(ellipse, 100, 80, 150, 130);
    EXPECT_EQ(ellipse.m_bEditMode, 1);
    EXPECT_EQ(ellipse.m_nWidth, 1);
}

TEST(CInkEllipse, nothingButAPressBeginsAnEllipse)
{
    for (const int code : {0, int(PT_UP), 3, int(PT_DBLCLK), int(PT_MOVE), 99, -1, INT_MIN, INT_MAX}) {
        SCOPED_TRACE(code);
        CInkEllipse ellipse;
        ellipse.m_bSparePoint = 1;
        QRect update(7, 8, 9, 10);
        ellipse.AddPoint(code, QPoint(50, 60), update);
        EXPECT_EDGES(update, 7, 8, 15, 17);
        EXPECT_EQ(ellipse.IsSparePoint(), 0);
        EXPECT_EQ(ellipse.GetPointCount(), 0);
        EXPECT_EQ(ellipse.m_bFinished, 0);
        EXPECT_EQ(ellipse.m_bEditMode, 0);
        expectCorners(ellipse, 0, 0, 0, 0);
    }
}

TEST(CInkEllipse, pressPutsBothCornersUnderThePointer)
{
    CInkEllipse ellipse;
    ellipse.m_bSparePoint = 1;
    feed(ellipse, PT_DOWN, 100, 80);
    expectCorners(ellipse, 100, 80, 100, 80);
    EXPECT_EQ(ellipse.GetPointCount(), 1);
    EXPECT_EQ(ellipse.IsSparePoint(), 0);

    // A second press begins anew.
    feed(ellipse, PT_MOVE, 300, 300);
    feed(ellipse, PT_DOWN, 20, 30);
    expectCorners(ellipse, 20, 30, 20, 30);
    EXPECT_EQ(ellipse.GetPointCount(), 1);
    EXPECT_EQ(ellipse.IsSparePoint(), 0);
}

TEST(CInkEllipse, everyOtherCodeDragsTheSecondCorner)
{
    for (const int code : {int(PT_MOVE), 0, 3, int(PT_DBLCLK), 6, 99, -1, INT_MIN, INT_MAX}) {
        SCOPED_TRACE(code);
        CInkEllipse ellipse;
        feed(ellipse, PT_DOWN, 100, 80);
        feed(ellipse, code, 150, 130);
        expectCorners(ellipse, 100, 80, 150, 130);
        EXPECT_EQ(ellipse.GetPointCount(), 2);
        EXPECT_EQ(ellipse.IsSparePoint(), 1);
        EXPECT_EQ(ellipse.m_bEditMode, 0);
        EXPECT_EQ(ellipse.m_bFinished, 0);
    }
}

TEST(CInkEllipse, cornersGoThroughSinglePrecision)
{
    CInkEllipse ellipse;
    feed(ellipse, PT_DOWN, 16'777'217, -16'777'217);
    expectCorners(ellipse, 16'777'216, -16'777'216, 16'777'216, -16'777'216);
    feed(ellipse, PT_MOVE, 16'777'219, 33'554'435);
    expectCorners(ellipse, 16'777'216, -16'777'216, 16'777'220, 33'554'436);
}

TEST(CInkEllipse, releaseSixPixelsAwayIsAbandoned)
{
    for (const QPoint &to : {QPoint(100, 80), QPoint(106, 80), QPoint(94, 80), QPoint(100, 86), QPoint(104, 84)}) {
        SCOPED_TRACE(::testing::Message() << to.x() << ',' << to.y());
        CInkEllipse ellipse;
        feed(ellipse, PT_DOWN, 100, 80);
        feed(ellipse, PT_UP, to.x(), to.y());
        EXPECT_EQ(ellipse.m_bFinished, 1);
        EXPECT_EQ(ellipse.m_bHideHotShape, 1);
        EXPECT_EQ(ellipse.m_bEditMode, 0);
        EXPECT_EQ(ellipse.IsSparePoint(), 0);
        EXPECT_EQ(ellipse.GetPointCount(), 2);
        EXPECT_NULL_RECT(ellipse.m_rcHot);
    }
}

TEST(CInkEllipse, releaseFartherThanSixPixelsIsKept)
{
    for (const QPoint &to : {QPoint(107, 80), QPoint(101, 86), QPoint(100, 73), QPoint(96, 75)}) {
        SCOPED_TRACE(::testing::Message() << to.x() << ',' << to.y());
        CInkEllipse ellipse;
        feed(ellipse, PT_DOWN, 100, 80);
        feed(ellipse, PT_MOVE, 300, 300);
        feed(ellipse, PT_UP, to.x(), to.y());
        EXPECT_EQ(ellipse.m_bFinished, 0);
        EXPECT_EQ(ellipse.m_bHideHotShape, 0);
        EXPECT_EQ(ellipse.m_bEditMode, 1);
        EXPECT_EQ(ellipse.IsSparePoint(), 0);
        EXPECT_EQ(ellipse.GetPointCount(), 2);
    }
}

TEST(CInkEllipse, keptEllipseIsFramedTenPixelsAway)
{
    EditedEllipse ellipse;
    EXPECT_EDGES(ellipse.m_rcHot, 90, 90, 210, 160);
    EXPECT_POINT(ellipse.m_ptCenter, 150.0, 125.0);
    EXPECT_POINT(ellipse.m_hotPts[8], 150.0, 60.0);
    EXPECT_EQ(ellipse.m_modifyType, 1);
}

TEST(CInkEllipse, formGraphDataIsItsOwnAndReturnsTheUpdate)
{
    class Hiding : public CInkEllipse
    {
    public:
        QRect FormGraphData(int, QPoint, QRect &) { return QRect(asked = 1, 0, 1, 1); }
        int asked = 0;
    };
    Hiding hiding;
    feed(hiding, PT_DOWN, 100, 80);
    EXPECT_EQ(hiding.asked, 0);
    EXPECT_EQ(hiding.GetPointCount(), 1);

    CInkEllipse ellipse;
    QRect update(0, 0, 10, 10);
    ellipse.m_bSparePoint = 1;
    EXPECT_EDGES(ellipse.FormGraphData(PT_DOWN, QPoint(100, 80), update), 0, 0, 101, 81);
    EXPECT_EDGES(update, 0, 0, 101, 81);
    EXPECT_EQ(ellipse.IsSparePoint(), 0);
    EXPECT_EDGES(ellipse.FormGraphData(PT_MOVE, QPoint(150, 130), update), 0, 0, 153, 133);
    EXPECT_EDGES(update, 0, 0, 153, 133);
}

TEST(CInkEllipse, finishGraphNeedsAPress)
{
    CInkEllipse ellipse;
    EXPECT_FALSE(ellipse.FinishGraph());
    EXPECT_EQ(ellipse.m_bFinished, 0);
    EXPECT_EQ(ellipse.m_bHideHotShape, 0);
    EXPECT_NULL_RECT(ellipse.m_rcHot);
}

TEST(CInkEllipse, finishGraphCommitsInEveryPhaseWhateverTheSize)
{
    CInkEllipse pressed;
    feed(pressed, PT_DOWN, 100, 80);
    EXPECT_TRUE(pressed.FinishGraph());
    EXPECT_EQ(pressed.m_bEditMode, 0);
    EXPECT_EDGES(pressed.m_rcHot, 90, 70, 110, 90);

    CInkEllipse dragged;
    feed(dragged, PT_DOWN, 100, 80);
    feed(dragged, PT_MOVE, 103, 84);
    EXPECT_TRUE(dragged.FinishGraph());
    EXPECT_EQ(dragged.m_bEditMode, 0);
    EXPECT_EQ(dragged.IsSparePoint(), 1);
    EXPECT_EDGES(dragged.m_rcHot, 90, 70, 113, 94);

    EditedEllipse edited;
    edited.m_rcHot = QRect(1, 2, 3, 4);
    edited.m_modifyType = 9;
    EXPECT_TRUE(edited.FinishGraph());
    EXPECT_EQ(edited.m_bEditMode, 1);
    EXPECT_EQ(edited.m_modifyType, 9);
    EXPECT_EDGES(edited.m_rcHot, 90, 90, 210, 160);

    for (const CInkEllipse *ellipse : std::initializer_list<const CInkEllipse *>{&pressed, &dragged, &edited}) {
        EXPECT_EQ(ellipse->m_bFinished, 1);
        EXPECT_EQ(ellipse->m_bHideHotShape, 1);
    }
}

TEST(CInkEllipse, committedEllipseIgnoresEveryEvent)
{
    EditedEllipse ellipse;
    ellipse.FinishGraph();
    ellipse.m_bSparePoint = 1;
    for (const int code : {1, 2, 5, 0, 3, 4, 99, -1}) {
        EXPECT_NULL_RECT(feed(ellipse, code, 150, 125));
        EXPECT_EQ(ellipse.IsSparePoint(), 1);
        EXPECT_EQ(ellipse.m_modifyType, 1);
        expectCorners(ellipse, 100, 100, 200, 150);
    }
}

TEST(CInkEllipse, widthIsStored)
{
    CInkEllipse ellipse;
    for (const int width : {1, 7, 0, -3, INT_MAX}) {
        ellipse.SetWidth(width);
        EXPECT_EQ(ellipse.m_nWidth, width);
    }
}

TEST(CInkEllipse, pressedEllipseCoversThreeWidthsFromOneToTheLeft)
{
    const int edgesByWidth[][5] = {{1, 99, 79, 101, 81}, {5, 95, 75, 109, 89}, {-2, 102, 82, 95, 75}};
    for (const auto &[width, left, top, right, bottom] : edgesByWidth) {
        CInkEllipse ellipse;
        ellipse.SetWidth(width);
        feed(ellipse, PT_DOWN, 100, 80);
        EXPECT_EDGES(ellipse.GetUpdateRect(), left, top, right, bottom);
    }
}

TEST(CInkEllipse, eachEventReportsWhatWasAndIsCovered)
{
    CInkEllipse ellipse;
    EXPECT_EDGES(feed(ellipse, PT_DOWN, 100, 80), 99, 79, 101, 81);
    EXPECT_EDGES(feed(ellipse, PT_MOVE, 150, 130), 97, 77, 153, 133);
    EXPECT_EDGES(feed(ellipse, PT_MOVE, 90, 90), 87, 77, 153, 133);
    EXPECT_EDGES(ellipse.GetUpdateRect(), 87, 77, 103, 93);
    feed(ellipse, PT_MOVE, 150, 130);
    EXPECT_EDGES(feed(ellipse, PT_UP, 150, 130), 34, 14, 212, 192);
    EXPECT_EDGES(ellipse.GetUpdateRect(), 34, 14, 212, 192);

    // Far from the first press the old rectangle is still part of it.
    CInkEllipse pressedTwice;
    feed(pressedTwice, PT_DOWN, 100, 80);
    EXPECT_EDGES(feed(pressedTwice, PT_DOWN, 20, 30), 19, 29, 101, 81);
}

TEST(CInkEllipse, draggedEllipseCoversThreeWidthsMore)
{
    const int edgesByWidth[][5] = {{5, 85, 65, 165, 145}, {0, 100, 80, 150, 130}, {-4, 112, 92, 138, 118}};
    for (const auto &[width, left, top, right, bottom] : edgesByWidth) {
        CInkEllipse ellipse;
        ellipse.SetWidth(width);
        feed(ellipse, PT_DOWN, 150, 80);
        feed(ellipse, PT_MOVE, 100, 130);
        EXPECT_EDGES(ellipse.GetUpdateRect(), left, top, right, bottom);
    }
}

TEST(CInkEllipse, boxOnePixelToTheLeftIsNotNormalised)
{
    CInkEllipse ellipse;
    feed(ellipse, PT_DOWN, 100, 100);
    feed(ellipse, PT_MOVE, 99, 150);
    EXPECT_EDGES(ellipse.GetUpdateRect(), 97, 97, 102, 153);
    feed(ellipse, PT_MOVE, 98, 150);
    EXPECT_EDGES(ellipse.GetUpdateRect(), 95, 97, 103, 153);
}

TEST(CInkEllipse, coveredRectangleTruncatesTowardZero)
{
    DraggedThrough ellipse({QPointF(-10.7, -0.9), QPointF(20.9, 30.2)});
    EXPECT_EDGES(ellipse.GetUpdateRect(), -13, -3, 23, 33);
    ellipse.m_nPointCount = 1;
    EXPECT_EDGES(ellipse.GetUpdateRect(), -11, -1, -9, 1);
}

TEST(CInkEllipse, iconIsASquareAroundTheDraggedCorner)
{
    CInkEllipse ellipse;
    ellipse.ShowDrawerIcon(1);
    feed(ellipse, PT_DOWN, 20, 20);
    EXPECT_NULL_RECT(ellipse.m_rcIcon);
    EXPECT_EDGES(feed(ellipse, PT_MOVE, 100, 50), 17, 17, 114, 64);
    EXPECT_EDGES(ellipse.m_rcIcon, 85, 35, 114, 64);
    EXPECT_NULL_RECT(ellipse.m_rcName);
    feed(ellipse, PT_MOVE, -50, -20);
    EXPECT_EDGES(ellipse.m_rcIcon, -65, -35, -36, -6);

    ellipse.ShowDrawerIcon(0);
    EXPECT_EDGES(ellipse.GetUpdateRect(), -53, -23, 23, 23);
    EXPECT_NULL_RECT(ellipse.m_rcIcon);
}

TEST(CInkEllipse, nameHangsAtTheDraggedCorner)
{
    CInkEllipse ellipse;
    ellipse.ShowDrawerName(1);
    ellipse.m_sizeName = QSize(60, 10);
    feed(ellipse, PT_DOWN, 20, 20);
    EXPECT_NULL_RECT(ellipse.m_rcName);
    EXPECT_EDGES(feed(ellipse, PT_MOVE, 100, 50), 17, 17, 159, 59);
    EXPECT_EDGES(ellipse.m_rcName, 100, 50, 159, 59);
    EXPECT_NULL_RECT(ellipse.m_rcIcon);

    ellipse.m_sizeName = QSize(0, 0);
    EXPECT_EDGES(ellipse.GetUpdateRect(), 17, 17, 103, 53);
    ellipse.m_sizeName = QSize(60, 10);
    ellipse.ShowDrawerName(0);
    EXPECT_EDGES(ellipse.GetUpdateRect(), 17, 17, 103, 53);
    EXPECT_NULL_RECT(ellipse.m_rcName);
}

TEST(CInkEllipse, nameAndIconTakeTheLastPointAndTheBoxTheFirstTwo)
{
    DraggedThrough ellipse({QPointF(20, 20), QPointF(40, 30), QPointF(100.9, 50.9)});
    ellipse.ShowDrawerName(1);
    ellipse.ShowDrawerIcon(1);
    ellipse.m_sizeName = QSize(60, 10);
    EXPECT_EDGES(ellipse.GetUpdateRect(), 17, 17, 159, 64);
    EXPECT_EDGES(ellipse.m_rcName, 100, 50, 159, 59);
    EXPECT_EDGES(ellipse.m_rcIcon, 85, 35, 114, 64);
}

TEST(CInkEllipse, nameOfAnEditedEllipseHangsAtItsFrame)
{
    EditedEllipse ellipse;
    EXPECT_EDGES(ellipse.GetUpdateRect(), 59, 34, 237, 212);
    ellipse.ShowDrawerName(1);
    ellipse.m_sizeName = QSize(200, 10);
    EXPECT_EDGES(ellipse.GetUpdateRect(), 59, 34, 289, 212);
    EXPECT_EDGES(ellipse.m_rcName, 90, 90, 289, 99);
    ellipse.ShowDrawerName(0);
    EXPECT_EDGES(ellipse.GetUpdateRect(), 59, 34, 237, 212);
    EXPECT_NULL_RECT(ellipse.m_rcName);
}

TEST(CInkEllipse, editingLeavesTheIconWhereItWas)
{
    EditedEllipse ellipse;
    ellipse.ShowDrawerIcon(1);
    ellipse.m_rcIcon = QRect(1000, 1000, 5, 6);
    EXPECT_EDGES(ellipse.GetUpdateRect(), 59, 34, 237, 212);
    EXPECT_EDGES(ellipse.m_rcIcon, 1000, 1000, 1004, 1005);
}

TEST(CInkEllipse, beforeTheFirstMoveNameAndIconAreLeftAlone)
{
    CInkEllipse ellipse;
    ellipse.m_rcName = QRect(1, 2, 3, 4);
    ellipse.m_rcIcon = QRect(5, 6, 7, 8);
    EXPECT_NULL_RECT(ellipse.GetUpdateRect());
    feed(ellipse, PT_DOWN, 100, 80);
    EXPECT_EDGES(ellipse.GetUpdateRect(), 99, 79, 101, 81);
    EXPECT_EDGES(ellipse.m_rcName, 1, 2, 3, 5);
    EXPECT_EDGES(ellipse.m_rcIcon, 5, 6, 11, 13);
}

TEST(CInkEllipse, marginOfAnEditedEllipseIsItsWidthOnceAboveTen)
{
    const int edgesByWidth[][5] = {{-3, 59, 34, 237, 212}, {10, 59, 34, 237, 212}, {11, 58, 33, 238, 213}};
    for (const auto &[width, left, top, right, bottom] : edgesByWidth) {
        EditedEllipse ellipse;
        ellipse.SetWidth(width);
        EXPECT_EDGES(ellipse.GetUpdateRect(), left, top, right, bottom);
    }
}

TEST(CInkEllipse, committedEllipseKeepsWhatItCoveredWhileEdited)
{
    EditedEllipse ellipse;
    EXPECT_EDGES(feed(ellipse, PT_DOWN, 350, 250), 59, 34, 237, 212);
    EXPECT_EQ(ellipse.m_bEditMode, 1);
    EXPECT_EDGES(ellipse.GetUpdateRect(), 59, 34, 237, 212);
}

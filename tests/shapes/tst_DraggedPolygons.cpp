// What the triangles and the diamond share: the drag from a box to vertices, its events and what it covers.

#include "Canvas.h"
#include "DraggedPolygon.h"
#include "Exact.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

template <typename Polygon>
class DraggedPolygon : public ::testing::Test
{
protected:
    static constexpr int kVertices = PolygonFacts<Polygon>::kVertices;

    static void expectVertices(const Polygon &polygon, const QVector<QPointF> &expected)
    {
        ASSERT_GE(polygon.m_graphData.size(), expected.size());
        for (int i = 0; i < expected.size(); ++i) {
            SCOPED_TRACE(i);
            EXPECT_POINT(polygon.m_graphData[i], expected[i].x(), expected[i].y());
        }
    }

    static void expectDragPoints(const Polygon &polygon, double x0, double y0, double x1, double y1)
    {
        ASSERT_EQ(polygon.m_graphData.size(), kVertices + 2);
        EXPECT_POINT(polygon.m_graphData[kVertices], x0, y0);
        EXPECT_POINT(polygon.m_graphData[kVertices + 1], x1, y1);
    }
};

TYPED_TEST_SUITE(DraggedPolygon, DraggedPolygons, PolygonName);

} // namespace

TYPED_TEST(DraggedPolygon, freshPolygonIsFourWideAndHoldsRoomForTheDrag)
{
    TypeParam polygon;
    EXPECT_EQ(polygon.m_nWidth, 4);
    EXPECT_EQ(polygon.m_penStyle, Qt::SolidLine);
    EXPECT_EQ(polygon.GetPointCount(), 0);
    ASSERT_EQ(polygon.m_graphData.size(), this->kVertices + 2);
    for (const QPointF &point : polygon.m_graphData)
        EXPECT_POINT(point, 0.0, 0.0);
    EXPECT_EDGES(polygon.GetUpdateRect(), -8, -8, 7, 7);
}

TYPED_TEST(DraggedPolygon, penStyleConstructorHoldsTwoPointsUntilThePress)
{
    TypeParam polygon(Qt::DashLine);
    EXPECT_EQ(polygon.m_nWidth, 4);
    EXPECT_EQ(polygon.m_penStyle, Qt::DashLine);
    EXPECT_EQ(polygon.GetPointCount(), 0);
    EXPECT_EQ(polygon.m_graphData.size(), 2);
    EXPECT_EDGES(feed(polygon, PT_MOVE, 100, 80), -8, -8, 7, 7);
    EXPECT_EDGES(feed(polygon, PT_UP, 100, 80), -8, -8, 7, 7);
    EXPECT_TRUE(isBlank(drawn(polygon)));
    EXPECT_EQ(polygon.FinishGraph(), 0);

    EXPECT_EDGES(feed(polygon, PT_DOWN, 100, 100), -8, -8, 111, 111);
    this->expectDragPoints(polygon, 100, 100, 100, 100);
    feed(polygon, PT_MOVE, 200, 150);
    this->expectDragPoints(polygon, 100, 100, 200, 150);
    feed(polygon, PT_UP, 200, 150);
    EXPECT_EQ(polygon.m_graphData.size(), this->kVertices);
    this->expectVertices(polygon, PolygonFacts<TypeParam>::outline());
    EXPECT_EQ(polygon.m_nWidth, 4);
}

TYPED_TEST(DraggedPolygon, nothingButAPressBeginsAPolygon)
{
    for (const int code : {0, int(PT_UP), 3, int(PT_DBLCLK), int(PT_MOVE), 99, -1, INT_MIN, INT_MAX}) {
        SCOPED_TRACE(code);
        TypeParam polygon;
        polygon.m_bSparePoint = 1;
        EXPECT_EDGES(feed(polygon, code, 50, 60), -8, -8, 7, 7);
        EXPECT_EQ(polygon.IsSparePoint(), 0);
        EXPECT_EQ(polygon.GetPointCount(), 0);
        EXPECT_EQ(polygon.m_bFinished, 0);
        EXPECT_EQ(polygon.m_bEditMode, 0);
        this->expectDragPoints(polygon, 0, 0, 0, 0);
    }
}

TYPED_TEST(DraggedPolygon, pressSetsTheDragPointsAlone)
{
    TypeParam polygon;
    polygon.m_bSparePoint = 1;
    EXPECT_EDGES(feed(polygon, PT_DOWN, 100, 80), -8, -8, 111, 91);
    this->expectDragPoints(polygon, 100, 80, 100, 80);
    this->expectVertices(polygon, QVector<QPointF>(this->kVertices));
    EXPECT_EQ(polygon.GetPointCount(), 1);
    EXPECT_EQ(polygon.IsSparePoint(), 0);
    EXPECT_EDGES(polygon.GetUpdateRect(), 88, 68, 111, 91);
}

TYPED_TEST(DraggedPolygon, secondPressBeginsAnewAndKeepsTheVertices)
{
    TypeParam polygon;
    feed(polygon, PT_DOWN, 100, 100);
    feed(polygon, PT_MOVE, 200, 150);
    feed(polygon, PT_DOWN, 20, 30);
    this->expectDragPoints(polygon, 20, 30, 20, 30);
    this->expectVertices(polygon, PolygonFacts<TypeParam>::outline());
    EXPECT_EQ(polygon.GetPointCount(), 1);
    EXPECT_EQ(polygon.IsSparePoint(), 0);
}

TYPED_TEST(DraggedPolygon, everyOtherCodeDragsTheSecondPoint)
{
    for (const int code : {int(PT_MOVE), 0, 3, int(PT_DBLCLK), 6, 99, -1, INT_MIN, INT_MAX}) {
        SCOPED_TRACE(code);
        TypeParam polygon;
        feed(polygon, PT_DOWN, 100, 100);
        feed(polygon, code, 200, 150);
        this->expectDragPoints(polygon, 100, 100, 200, 150);
        this->expectVertices(polygon, PolygonFacts<TypeParam>::outline());
        EXPECT_EQ(polygon.GetPointCount(), 2);
        EXPECT_EQ(polygon.IsSparePoint(), 1);
        EXPECT_EQ(polygon.m_bEditMode, 0);
        EXPECT_EQ(polygon.m_bFinished, 0);
    }
}

TYPED_TEST(DraggedPolygon, dragPointsGoThroughSinglePrecision)
{
    TypeParam polygon;
    feed(polygon, PT_DOWN, 16'777'217, -16'777'217);
    feed(polygon, PT_MOVE, 16'777'219, 33'554'435);
    this->expectDragPoints(polygon, 16'777'216, -16'777'216, 16'777'220, 33'554'436);
}

TYPED_TEST(DraggedPolygon, releaseTwoPixelsAwayIsAbandoned)
{
    for (const QPoint &to : {QPoint(100, 80), QPoint(102, 80), QPoint(98, 80), QPoint(100, 82), QPoint(101, 79)}) {
        SCOPED_TRACE(::testing::Message() << to.x() << ',' << to.y());
        TypeParam polygon;
        feed(polygon, PT_DOWN, 100, 80);
        feed(polygon, PT_MOVE, 300, 300);
        feed(polygon, PT_UP, to.x(), to.y());
        EXPECT_EQ(polygon.m_bFinished, 1);
        EXPECT_EQ(polygon.m_bHideHotShape, 1);
        EXPECT_EQ(polygon.m_bEditMode, 0);
        EXPECT_EQ(polygon.IsSparePoint(), 0);
        EXPECT_EQ(polygon.GetPointCount(), 2);
        this->expectDragPoints(polygon, 100, 80, to.x(), to.y());
        EXPECT_NULL_RECT(polygon.m_rcHot);
    }
}

TYPED_TEST(DraggedPolygon, releaseFartherThanTwoPixelsIsKept)
{
    for (const QPoint &to : {QPoint(103, 80), QPoint(100, 77), QPoint(102, 81), QPoint(99, 78), QPoint(102, 82)}) {
        SCOPED_TRACE(::testing::Message() << to.x() << ',' << to.y());
        TypeParam polygon;
        feed(polygon, PT_DOWN, 100, 80);
        feed(polygon, PT_UP, to.x(), to.y());
        EXPECT_EQ(polygon.m_bFinished, 0);
        EXPECT_EQ(polygon.m_bHideHotShape, 0);
        EXPECT_EQ(polygon.m_bEditMode, 1);
        EXPECT_EQ(polygon.IsSparePoint(), 0);
        EXPECT_EQ(polygon.GetPointCount(), this->kVertices);
        EXPECT_EQ(polygon.m_graphData.size(), this->kVertices);
    }
}

TYPED_TEST(DraggedPolygon, keptPolygonHoldsItsVerticesInAFrame)
{
    TypeParam polygon;
    feed(polygon, PT_DOWN, 100, 100);
    feed(polygon, PT_MOVE, 300, 300);
    feed(polygon, PT_UP, 200, 150);
    EXPECT_EQ(polygon.m_graphData.size(), this->kVertices);
    this->expectVertices(polygon, PolygonFacts<TypeParam>::outline());
    EXPECT_EDGES(polygon.m_rcHot, 90, 90, 210, 160);
    EXPECT_POINT(polygon.m_ptCenter, 150.0, 125.0);
    EXPECT_EQ(polygon.m_modifyType, 1);
}

TYPED_TEST(DraggedPolygon, eachEventReportsWhatWasAndIsCovered)
{
    TypeParam polygon;
    QRect update(500, 400, 11, 11);
    feed(polygon, PT_DOWN, 100, 80);
    EXPECT_EDGES(feed(polygon, PT_MOVE, 150, 130), 88, 68, 162, 142);
    EXPECT_EDGES(feed(polygon, PT_MOVE, 90, 90), 78, 68, 162, 142);
    EXPECT_EDGES(polygon.GetUpdateRect(), 78, 68, 112, 102);
    feed(polygon, PT_MOVE, 150, 130);
    polygon.AddPoint(PT_UP, QPoint(150, 130), update);
    EXPECT_EDGES(update, 26, 6, 510, 410);
    EXPECT_EDGES(polygon.GetUpdateRect(), 26, 6, 220, 200);
}

TYPED_TEST(DraggedPolygon, nameAndIconAreThoseOfTheRectangle)
{
    TypeParam polygon;
    polygon.ShowDrawerName(1);
    polygon.ShowDrawerIcon(1);
    polygon.m_sizeName = QSize(60, 10);
    feed(polygon, PT_DOWN, 20, 20);
    EXPECT_NULL_RECT(polygon.m_rcIcon);
    EXPECT_EDGES(feed(polygon, PT_MOVE, 100, 50), 8, 8, 207, 107);
    EXPECT_EDGES(polygon.m_rcIcon, 85, 35, 199, 99);
    EXPECT_EDGES(polygon.m_rcName, 100, 50, 159, 59);

    TypeParam edited;
    drag(edited, {100, 100}, {200, 150});
    edited.ShowDrawerName(1);
    edited.m_sizeName = QSize(60, 10);
    EXPECT_EDGES(edited.GetUpdateRect(), 51, 26, 247, 220);
    EXPECT_EDGES(edited.m_rcName, 90, 90, 239, 189);
    EXPECT_NULL_RECT(edited.m_rcIcon);
}

TYPED_TEST(DraggedPolygon, formGraphDataReturnsTheUpdate)
{
    TypeParam polygon;
    QRect update;
    polygon.m_bSparePoint = 1;
    EXPECT_EDGES(polygon.FormGraphData(PT_DOWN, QPoint(100, 80), update), -8, -8, 111, 91);
    EXPECT_EDGES(update, -8, -8, 111, 91);
    EXPECT_EQ(polygon.IsSparePoint(), 0);
    EXPECT_EDGES(polygon.FormGraphData(PT_MOVE, QPoint(150, 130), update), -8, -8, 162, 142);
    EXPECT_EDGES(update, -8, -8, 162, 142);
}

TYPED_TEST(DraggedPolygon, normalizingIsNoSlot)
{
    class Hiding : public TypeParam
    {
    public:
        void NormalizeGraphData() { asked = true; }
        bool asked = false;
    };
    Hiding polygon;
    drag(polygon, {100, 100}, {200, 150});
    EXPECT_FALSE(polygon.asked);
    this->expectVertices(polygon, PolygonFacts<TypeParam>::outline());
}

TYPED_TEST(DraggedPolygon, normalizingTakesTheTwoPointsAfterTheVertices)
{
    TypeParam polygon;
    polygon.m_graphData.fill(QPointF(7, 8), this->kVertices + 3);
    polygon.m_graphData[this->kVertices] = {100, 100};
    polygon.m_graphData[this->kVertices + 1] = {200, 150};
    polygon.NormalizeGraphData();
    EXPECT_EQ(polygon.m_graphData.size(), this->kVertices + 3);
    this->expectVertices(polygon, PolygonFacts<TypeParam>::outline());
    EXPECT_POINT(polygon.m_graphData[this->kVertices], 100.0, 100.0);
    EXPECT_POINT(polygon.m_graphData[this->kVertices + 1], 200.0, 150.0);
    EXPECT_POINT(polygon.m_graphData[this->kVertices + 2], 7.0, 8.0);
}

TYPED_TEST(DraggedPolygon, normalizingAListTooShortDoesNothing)
{
    TypeParam polygon;
    for (int size = this->kVertices + 1; size >= 0; --size) {
        polygon.m_graphData.fill(QPointF(7, 8), size);
        polygon.NormalizeGraphData();
        EXPECT_EQ(polygon.m_graphData.size(), size);
        for (const QPointF &point : polygon.m_graphData)
            EXPECT_POINT(point, 7.0, 8.0);
    }
}

TYPED_TEST(DraggedPolygon, finishGraphCommitsInEveryPhase)
{
    TypeParam fresh;
    EXPECT_EQ(fresh.FinishGraph(), 0);
    EXPECT_EQ(fresh.m_bFinished, 0);
    EXPECT_EQ(fresh.m_bHideHotShape, 0);
    EXPECT_NULL_RECT(fresh.m_rcHot);

    TypeParam pressed, dragged, edited;
    feed(pressed, PT_DOWN, 100, 80);
    EXPECT_EQ(pressed.FinishGraph(), 1);
    EXPECT_EDGES(pressed.m_rcHot, -10, -10, 110, 90); // vertices at the origin are points too

    feed(dragged, PT_DOWN, 100, 100);
    feed(dragged, PT_MOVE, 200, 150);
    EXPECT_EQ(dragged.FinishGraph(), 1);
    EXPECT_EQ(dragged.GetPointCount(), 2);
    this->expectDragPoints(dragged, 100, 100, 200, 150);
    EXPECT_EDGES(dragged.m_rcHot, 90, 90, 210, 160);
    EXPECT_EQ(dragged.m_bEditMode, 0);

    drag(edited, {100, 100}, {200, 150});
    edited.m_rcHot = QRect();
    EXPECT_EQ(edited.FinishGraph(), 1);
    EXPECT_EQ(edited.GetPointCount(), this->kVertices);
    EXPECT_EDGES(edited.m_rcHot, 90, 90, 210, 160);
    EXPECT_EQ(edited.m_bEditMode, 1);

    for (TypeParam *polygon : std::initializer_list<TypeParam *>{&pressed, &dragged, &edited}) {
        EXPECT_EQ(polygon->m_bFinished, 1);
        EXPECT_EQ(polygon->m_bHideHotShape, 1);
        polygon->m_bSparePoint = 1;
        for (const int code : {1, 2, 5, 0, 3, 4, 99, -1})
            EXPECT_NULL_RECT(feed(*polygon, code, 150, 125));
        EXPECT_EQ(polygon->IsSparePoint(), 1);
        EXPECT_EQ(polygon->m_modifyType, 1);
    }
}

TYPED_TEST(DraggedPolygon, editedPolygonIsMovedAndStretched)
{
    TypeParam polygon;
    drag(polygon, {100, 100}, {200, 150});
    feed(polygon, PT_DOWN, 150, 125);
    EXPECT_EQ(polygon.m_modifyType, 10);
    EXPECT_EDGES(feed(polygon, PT_MOVE, 155, 127), 51, 26, 250, 222);
    EXPECT_EQ(polygon.IsSparePoint(), 1);
    feed(polygon, PT_UP, 150, 125);
    EXPECT_EQ(polygon.IsSparePoint(), 0);
    this->expectVertices(polygon, PolygonFacts<TypeParam>::outline());

    feed(polygon, PT_DOWN, 210, 160);
    feed(polygon, PT_MOVE, 330, 230);
    feed(polygon, PT_UP, 330, 230);
    EXPECT_EQ(polygon.m_graphData.size(), this->kVertices);
    this->expectVertices(polygon, PolygonFacts<TypeParam>::doubledOutline());
    EXPECT_POINT(polygon.m_ptCenter, 150.0, 125.0); // settles when the next move begins
    feed(polygon, PT_DOWN, 210, 180);
    EXPECT_POINT(polygon.m_ptCenter, 210.0, 160.0);

    feed(polygon, PT_DOWN, 399, 299);
    EXPECT_EQ(polygon.m_bFinished, 1);
    EXPECT_EQ(polygon.m_bEditMode, 1);
    EXPECT_EQ(polygon.m_modifyType, 1);
}

TYPED_TEST(DraggedPolygon, eventsOfAnEditFormNothing)
{
    for (const int code : {0, 3, 4, 6, 99, -1}) {
        TypeParam polygon;
        drag(polygon, {100, 100}, {200, 150});
        polygon.m_bSparePoint = 1;
        EXPECT_EDGES(feed(polygon, code, 300, 250), 51, 26, 245, 220);
        EXPECT_EQ(polygon.IsSparePoint(), 0);
        EXPECT_EQ(polygon.m_graphData.size(), this->kVertices);
        this->expectVertices(polygon, PolygonFacts<TypeParam>::outline());
    }
}

TYPED_TEST(DraggedPolygon, keptPolygonSentBackToTheDrawingStartsWithAPress)
{
    TypeParam polygon;
    drag(polygon, {10, 20}, {80, 90});
    polygon.m_bEditMode = 0;
    for (const int code : {int(PT_UP), int(PT_MOVE), 99}) {
        feed(polygon, code, 50, 60);
        drawn(polygon);
    }
    drag(polygon, {100, 100}, {200, 150});
    EXPECT_EQ(polygon.m_bEditMode, 1);
    EXPECT_EQ(polygon.m_graphData.size(), this->kVertices);
    this->expectVertices(polygon, PolygonFacts<TypeParam>::outline());
}

TYPED_TEST(DraggedPolygon, listsTooShortAreSurvived)
{
    for (int size = 0; size < this->kVertices + 2; ++size) {
        for (const int count : {1, 2, this->kVertices}) {
            for (const int code : {1, 2, 5, 99}) {
                TypeParam edited, dragged;
                drag(edited, {100, 100}, {200, 150});
                feed(dragged, PT_DOWN, 100, 80);
                for (TypeParam *polygon : std::initializer_list<TypeParam *>{&edited, &dragged}) {
                    polygon->m_graphData.resize(size);
                    polygon->m_nPointCount = count;
                    polygon->ShowDrawerName(1);
                    polygon->ShowDrawerIcon(1);
                    drawn(*polygon);
                    feed(*polygon, code, 150, 125);
                    drawn(*polygon);
                    EXPECT_EQ(polygon->FinishGraph(), 1);
                    drawn(*polygon);
                }
                EXPECT_EQ(dragged.m_graphData.size(), code == 1 ? this->kVertices + 2 : size);
            }
        }
    }
}

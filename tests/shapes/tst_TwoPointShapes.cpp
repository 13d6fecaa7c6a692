// What lines and boxes share: the drag between two points, its events, the commit and what is reported.

#include "MessageLog.h"
#include "TwoPointShape.h"

#include <climits>

namespace {

// Every code but press and release moves the second point.
const int kMoveCodes[] = {PT_MOVE, 0, 3, PT_DBLCLK, 6, 99, -1, INT_MIN, INT_MAX};
const int kAllCodes[] = {PT_DOWN, PT_UP, PT_MOVE, 0, 3, PT_DBLCLK, 6, 99, -1, INT_MIN, INT_MAX};
const int kOtherCodes[] = {0, 3, PT_DBLCLK, 6, 99, -1, INT_MIN, INT_MAX};
const QPoint kTargets[] = {{150, 120}, {150, 130}};

template <typename Shape>
class TwoPointShape : public ::testing::Test
{
protected:
    using Facts = TwoPointFacts<Shape>;

    static void expectPoints(const Shape &shape, const QPointF &first, const QPointF &second)
    {
        ASSERT_EQ(shape.m_graphData.size(), 2);
        EXPECT_POINT(shape.m_graphData[0], first.x(), first.y());
        EXPECT_POINT(shape.m_graphData[1], second.x(), second.y());
    }

    static void expectUncommitted(const Shape &shape)
    {
        EXPECT_EQ(shape.m_bFinished, 0);
        EXPECT_EQ(shape.m_bHideHotShape, 0);
        EXPECT_EQ(shape.m_bEditMode, 0);
    }

    static void expectSelected(const Shape &shape)
    {
        EXPECT_EQ(shape.m_bFinished, 0);
        EXPECT_EQ(shape.m_bHideHotShape, 0);
        EXPECT_EQ(shape.m_bEditMode, 1);
        EXPECT_EQ(shape.m_bSparePoint, 0);
    }

    static void expectAbandoned(Shape &shape)
    {
        EXPECT_EQ(shape.m_bFinished, 1);
        EXPECT_EQ(shape.m_bHideHotShape, 1);
        EXPECT_EQ(shape.m_bEditMode, 0);
        EXPECT_EQ(shape.m_bSparePoint, 0);
        EXPECT_EQ(shape.GetPointCount(), 2);
        EXPECT_NULL_RECT(Facts::frame(shape));
    }

    static void expectSteps(const std::vector<Step> &steps)
    {
        Shape shape;
        for (const Step &step : steps) {
            SCOPED_TRACE(::testing::Message() << step.code << " at " << step.pt.x() << ',' << step.pt.y());
            expectEdges(feed(shape, step.code, step.pt.x(), step.pt.y()), step.reported);
            expectEdges(shape.GetUpdateRect(), step.covered);
        }
    }
};

using TwoPointShapes = ::testing::Types<CInkLine, CInk1ArrowLine, CInkRectangle, CInkRoundRect>;
TYPED_TEST_SUITE(TwoPointShape, TwoPointShapes, TwoPointName);

} // namespace

TYPED_TEST(TwoPointShape, freshShapeHoldsTwoPointsAndCountsNone)
{
    TypeParam shape;
    this->expectPoints(shape, {0, 0}, {0, 0});
    EXPECT_EQ(shape.GetPointCount(), 0);
    EXPECT_EQ(shape.m_modifyType, 1);
    EXPECT_NULL_RECT(TwoPointFacts<TypeParam>::frame(shape));
    this->expectUncommitted(shape);
}

TYPED_TEST(TwoPointShape, pressPutsBothPointsAtThePointer)
{
    TypeParam shape;
    feed(shape, PT_DOWN, 100, 80);
    this->expectPoints(shape, {100, 80}, {100, 80});
    EXPECT_EQ(shape.GetPointCount(), 1);
    EXPECT_EQ(shape.IsSparePoint(), 0);
    EXPECT_NULL_RECT(TwoPointFacts<TypeParam>::frame(shape));
    this->expectUncommitted(shape);
}

TYPED_TEST(TwoPointShape, moveMovesTheSecondPoint)
{
    TypeParam shape;
    feed(shape, PT_DOWN, 100, 80);
    feed(shape, PT_MOVE, 150, 120);
    this->expectPoints(shape, {100, 80}, {150, 120});
    EXPECT_EQ(shape.GetPointCount(), 2);
    EXPECT_EQ(shape.IsSparePoint(), 1);
    EXPECT_NULL_RECT(TwoPointFacts<TypeParam>::frame(shape));

    feed(shape, PT_MOVE, 110, 90);
    this->expectPoints(shape, {100, 80}, {110, 90});
    EXPECT_EQ(shape.GetPointCount(), 2);
    EXPECT_EQ(shape.IsSparePoint(), 1);
}

TYPED_TEST(TwoPointShape, everyCodeButPressAndReleaseIsAMove)
{
    for (const int code : kMoveCodes) {
        for (const QPoint &to : kTargets) {
            SCOPED_TRACE(code);
            TypeParam shape;
            feed(shape, PT_DOWN, 100, 80);
            feed(shape, code, to.x(), to.y());
            this->expectPoints(shape, {100, 80}, to);
            EXPECT_EQ(shape.GetPointCount(), 2);
            EXPECT_EQ(shape.IsSparePoint(), 1);
            this->expectUncommitted(shape);
        }
    }
}

TYPED_TEST(TwoPointShape, secondPressStartsAnew)
{
    for (const QPoint &to : kTargets) {
        TypeParam shape;
        feed(shape, PT_DOWN, 100, 80);
        feed(shape, PT_MOVE, to.x(), to.y());
        feed(shape, PT_DOWN, 30, 40);
        this->expectPoints(shape, {30, 40}, {30, 40});
        EXPECT_EQ(shape.GetPointCount(), 1);
        EXPECT_EQ(shape.IsSparePoint(), 0);
    }
}

TYPED_TEST(TwoPointShape, eventsBeforeThePressOnlyReportTheFreshRectangle)
{
    for (const int code : kAllCodes) {
        if (code == PT_DOWN)
            continue;
        for (const QPoint &at : kTargets) {
            SCOPED_TRACE(code);
            TypeParam shape;
            shape.m_bSparePoint = 1;
            expectEdges(feed(shape, code, at.x(), at.y()), TwoPointFacts<TypeParam>::kFreshlyCovered);
            this->expectPoints(shape, {0, 0}, {0, 0});
            EXPECT_EQ(shape.GetPointCount(), 0);
            EXPECT_EQ(shape.IsSparePoint(), 0);
            EXPECT_NULL_RECT(TwoPointFacts<TypeParam>::frame(shape));
            this->expectUncommitted(shape);
        }
    }
}

TYPED_TEST(TwoPointShape, clickIsAbandoned)
{
    TypeParam shape;
    feed(shape, PT_DOWN, 100, 80);
    feed(shape, PT_UP, 100, 80);
    this->expectAbandoned(shape);
}

TYPED_TEST(TwoPointShape, releaseTooNearIsAbandoned)
{
    for (const QPoint &release : TwoPointFacts<TypeParam>::tooNear()) {
        TypeParam shape;
        drag(shape, {100, 80}, release);
        this->expectAbandoned(shape);

        TypeParam returned;
        feed(returned, PT_DOWN, 100, 80);
        feed(returned, PT_MOVE, 300, 200);
        feed(returned, PT_UP, release.x(), release.y());
        this->expectAbandoned(returned);
    }
}

TYPED_TEST(TwoPointShape, releaseFartherAwayIsKept)
{
    for (const QPoint &release : TwoPointFacts<TypeParam>::farEnough()) {
        TypeParam shape;
        drag(shape, {100, 80}, release);
        this->expectSelected(shape);

        TypeParam unmoved;
        feed(unmoved, PT_DOWN, 100, 80);
        feed(unmoved, PT_UP, release.x(), release.y());
        this->expectSelected(unmoved);
    }
}

TYPED_TEST(TwoPointShape, committedShapeIgnoresEveryEvent)
{
    for (const int code : kAllCodes) {
        for (const QPointF &second : {QPointF(100, 80), QPointF(TwoPointFacts<TypeParam>::tooNear().back())}) {
            SCOPED_TRACE(code);
            TypeParam shape;
            drag(shape, {100, 80}, second.toPoint());
            shape.m_bSparePoint = 1;
            shape.m_modifyType = 9;
            shape.m_ptLast = QPointF(7, 8);

            QRect update(1, 2, 3, 4);
            shape.AddPoint(code, QPoint(200, 200), update);
            EXPECT_EDGES(update, 1, 2, 3, 5);
            this->expectPoints(shape, {100, 80}, second);
            EXPECT_POINT(shape.m_ptLast, 7.0, 8.0);
            EXPECT_EQ(shape.GetPointCount(), 2);
            EXPECT_EQ(shape.IsSparePoint(), 1);
            EXPECT_EQ(shape.m_modifyType, 9);
            EXPECT_EQ(shape.m_bEditMode, 0);
            EXPECT_EQ(shape.m_bFinished, 1);
            EXPECT_EQ(shape.m_bHideHotShape, 1);
        }
    }
}

TYPED_TEST(TwoPointShape, coordinatesPassThroughSinglePrecision)
{
    TypeParam shape;
    feed(shape, PT_DOWN, 16'777'217, -16'777'217);
    this->expectPoints(shape, {16'777'216.0, -16'777'216.0}, {16'777'216.0, -16'777'216.0});
    feed(shape, PT_MOVE, 16'777'219, 33'554'435);
    EXPECT_POINT(shape.m_graphData[1], 16'777'220.0, 33'554'436.0);
}

TYPED_TEST(TwoPointShape, finishBeforeThePressDoesNothing)
{
    TypeParam shape;
    EXPECT_FALSE(shape.FinishGraph());
    EXPECT_NULL_RECT(TwoPointFacts<TypeParam>::frame(shape));
    this->expectUncommitted(shape);
}

TYPED_TEST(TwoPointShape, finishCommitsWhileItIsDrawn)
{
    TypeParam pressed;
    feed(pressed, PT_DOWN, 100, 80);
    EXPECT_TRUE(pressed.FinishGraph());
    EXPECT_EQ(pressed.m_bFinished, 1);
    EXPECT_EQ(pressed.m_bHideHotShape, 1);
    EXPECT_EQ(pressed.m_bEditMode, 0);
    EXPECT_EQ(pressed.GetPointCount(), 1);

    for (const QPoint &to : kTargets) {
        TypeParam dragged;
        feed(dragged, PT_DOWN, 100, 80);
        feed(dragged, PT_MOVE, to.x(), to.y());
        EXPECT_TRUE(dragged.FinishGraph());
        EXPECT_EQ(dragged.m_bFinished, 1);
        EXPECT_EQ(dragged.m_bHideHotShape, 1);
        EXPECT_EQ(dragged.m_bEditMode, 0);
        EXPECT_EQ(dragged.IsSparePoint(), 1);
        this->expectPoints(dragged, {100, 80}, to);
    }
}

TYPED_TEST(TwoPointShape, eachEventReportsWhatWasAndIsCovered)
{
    this->expectSteps(TwoPointFacts<TypeParam>::steps());
}

TYPED_TEST(TwoPointShape, abandonedShapeReportsWhatItCovered)
{
    this->expectSteps(TwoPointFacts<TypeParam>::abandonedSteps());
}

TYPED_TEST(TwoPointShape, updateIsUnitedAndNeverCleared)
{
    TypeParam shape;
    QRect update(QPoint(500, 400), QPoint(510, 410));
    for (const UnitedStep &step : TwoPointFacts<TypeParam>::unitedSteps()) {
        SCOPED_TRACE(step.code);
        shape.AddPoint(step.code, step.pt, update);
        expectEdges(update, step.united);
    }
}

TYPED_TEST(TwoPointShape, editingUnitesIntoTheUpdate)
{
    for (const QPoint &at : {TwoPointFacts<TypeParam>::kGrip, QPoint(150, 125)}) {
        EditedTwoPointShape<TypeParam> shape;
        QRect update(QPoint(-5, 300), QPoint(0, 310));
        shape.AddPoint(PT_DOWN, at, update);
        expectEdges(update, TwoPointFacts<TypeParam>::kUnitedWhileEdited);
    }
}

TYPED_TEST(TwoPointShape, moveWithoutAPressChangesNothingButTheFlag)
{
    EditedTwoPointShape<TypeParam> shape;
    expectEdges(feed(shape, PT_MOVE, 10, 10), TwoPointFacts<TypeParam>::kCovered);
    EXPECT_EQ(shape.IsSparePoint(), 1);
    this->expectPoints(shape, TwoPointFacts<TypeParam>::kFrom, TwoPointFacts<TypeParam>::kTo);
    feed(shape, PT_UP, 20, 20);
    EXPECT_EQ(shape.IsSparePoint(), 0);
    this->expectPoints(shape, TwoPointFacts<TypeParam>::kFrom, TwoPointFacts<TypeParam>::kTo);
    expectEdges(TwoPointFacts<TypeParam>::frame(shape), TwoPointFacts<TypeParam>::kFrame);
}

TYPED_TEST(TwoPointShape, otherCodesWhileEditingOnlyClearTheFlag)
{
    for (const int code : kOtherCodes) {
        for (const QPoint &at : {QPoint(10, 10), QPoint(300, 250)}) {
            SCOPED_TRACE(code);
            EditedTwoPointShape<TypeParam> shape;
            feed(shape, PT_DOWN, TwoPointFacts<TypeParam>::kGrip.x(), TwoPointFacts<TypeParam>::kGrip.y());
            shape.m_bSparePoint = 1;
            shape.m_ptLast = QPointF(7, 8);
            expectEdges(feed(shape, code, at.x(), at.y()), TwoPointFacts<TypeParam>::kCovered);
            EXPECT_EQ(shape.IsSparePoint(), 0);
            EXPECT_EQ(shape.m_modifyType, TwoPointFacts<TypeParam>::kGripType);
            EXPECT_EQ(shape.m_bFinished, 0);
            this->expectPoints(shape, TwoPointFacts<TypeParam>::kFrom, TwoPointFacts<TypeParam>::kTo);
            EXPECT_POINT(shape.m_ptLast, 7.0, 8.0);
            expectEdges(TwoPointFacts<TypeParam>::frame(shape), TwoPointFacts<TypeParam>::kFrame);
        }
    }
}

TYPED_TEST(TwoPointShape, pressAfterTheListWasEmptiedRestoresBothPoints)
{
    TypeParam shape;
    shape.m_graphData.clear();
    feed(shape, PT_DOWN, 100, 80);
    this->expectPoints(shape, {100, 80}, {100, 80});
}

TYPED_TEST(TwoPointShape, shortenedListIsSurvivedInEachPhase)
{
    const MessageLog log; // of Qt's complaints, which the arrow line causes
    for (const int size : {0, 1}) {
        for (const int edit : {0, 1}) {
            for (const int code : kAllCodes) {
                for (const int type : {2, 9}) {
                    TypeParam shape;
                    drag(shape, {100, 80}, {200, 140});
                    shape.m_bEditMode = edit;
                    shape.m_modifyType = type;
                    shape.m_graphData.resize(size);
                    feed(shape, code, 150, 110);
                    shape.m_graphData.resize(size);
                    shape.GetUpdateRect();
                    shape.m_nPointCount = 1;
                    shape.GetUpdateRect();
                    shape.SetWidth(3);
                    shape.AroundHotPts(QPoint(150, 110));
                    shape.IsPtInModifyZone(QPoint(150, 110));
                    shape.ModifyGraph(QPoint(10, 10), MT_MOVE);
                    shape.ModifyGraph(QPoint(10, 10), MT_TOP);
                    drawn(shape);
                    EXPECT_TRUE(shape.FinishGraph());
                    drawn(shape);
                }
            }
        }
    }
}

TYPED_TEST(TwoPointShape, extremeCoordinatesAndWidthsAreSurvived)
{
    const int extremes[] = {INT_MIN, INT_MIN + 1, -2'000'000'000, 0, 2'000'000'000, INT_MAX - 1, INT_MAX};
    for (const int from : extremes) {
        for (const int to : extremes) {
            for (const int width : {INT_MIN, -1, 0, 1, 10, INT_MAX}) {
                TypeParam shape;
                shape.SetWidth(width);
                shape.ShowDrawerName(1);
                shape.ShowDrawerIcon(1);
                shape.m_sizeName = QSize(INT_MAX, INT_MAX);
                drag(shape, {from, to}, {to, from});
                shape.AroundHotPts(QPoint(to, to));
                drag(shape, {from, to}, {to, 0});
                drag(shape, {0, 0}, {to, from});
                shape.DecideModiFyType(QPoint(from, from));
                for (const int type : {2, 3, 4, 5, 6, 7, 8, 9, 11}) {
                    shape.m_modifyType = type;
                    shape.m_bFinished = 0;
                    feed(shape, PT_MOVE, from, to);
                    feed(shape, PT_UP, to, from);
                }
                shape.AdjustGraph(0);
                shape.FinishGraph();
                shape.GetUpdateRect();
            }
        }
    }
}

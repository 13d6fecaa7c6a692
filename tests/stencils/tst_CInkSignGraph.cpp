// The base of the stencils: construction, forming the shape from the drag, finishing.

#include "CInk4Stars.h"
#include "CInkDownArrow.h"
#include "CInkUpArrow.h"
#include "Canvas.h"
#include "Exact.h"
#include "MessageLog.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

const int kDragCodes[] = {0, 3, PT_DBLCLK, PT_MOVE, 6, 99, -1, INT_MIN, INT_MAX};

// Half as wide and a quarter as high as its template: every point is exact.
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

// Two points and a box of its own; writes down what it is asked.
class Probe : public CInkSignGraph
{
public:
    Probe()
    {
        m_nOutlinePointCount = 2;
        m_graphData = {QPointF(1, 2), QPointF(3, 4), QPointF(), QPointF()};
    }
    void NormalizeGraphData(QVector<QPointF> &points) override
    {
        calls += &points == &m_previewData ? "preview " : &points == &m_graphData ? "graph " : "other ";
        sizes.append(points.size());
        editMode = m_bEditMode;
        pointCount = m_nPointCount;
        points[0] = points[points.size() - 2];
        points[1] = points[points.size() - 1];
    }
    QRect FormGraphData(int code, QPoint pt, QRect &update) override
    {
        formed.append(code);
        return CInkSignGraph::FormGraphData(code, pt, update);
    }
    void SetHotData(int mx, int my) override
    {
        calls += "hot(" + std::to_string(mx) + "," + std::to_string(my) + ") ";
        CInkSignGraph::SetHotData(mx, my);
    }

    std::string calls;
    QVector<int> sizes, formed;
    int editMode = -1, pointCount = -1;
};

void expectStar(const QVector<QPointF> &points)
{
    ASSERT_GE(points.size(), 8);
    EXPECT_POINT(points[0], 156.0, 100.0);
    EXPECT_POINT(points[1], 146.5, 122.75);
    EXPECT_POINT(points[2], 100.0, 128.0);
    EXPECT_POINT(points[3], 146.5, 133.0);
    EXPECT_POINT(points[4], 156.0, 156.0);
    EXPECT_POINT(points[5], 166.0, 133.0);
    EXPECT_POINT(points[6], 212.0, 128.0);
    EXPECT_POINT(points[7], 166.0, 122.75);
}

} // namespace

TEST(CInkSignGraph, baseHasNoOutlineOfItsOwn)
{
    class Bare : public CInkSignGraph
    {
    public:
        void NormalizeGraphData(QVector<QPointF> &) override {}
    };
    Bare bare;
    EXPECT_EQ(bare.m_nOutlinePointCount, 0);
    EXPECT_EQ(bare.m_penStyle, Qt::SolidLine);
    EXPECT_TRUE(bare.m_previewData.isEmpty());
    EXPECT_TRUE(bare.m_graphData.isEmpty());
    EXPECT_EQ(bare.m_nWidth, 1);
    EXPECT_EQ(bare.GetPointCount(), 0);
    EXPECT_NULL_RECT(bare.GetUpdateRect());
    EXPECT_FALSE(bare.FinishGraph());
    QRect update(1, 2, 3, 4);
    bare.AddPoint(PT_DOWN, QPoint(50, 50), update);
    EXPECT_EDGES(update, 1, 2, 3, 5);
    EXPECT_EQ(bare.GetPointCount(), 0);
}

TEST(CInkSignGraph, pressPutsBothDragPointsUnderThePointer)
{
    CInk4Stars star;
    star.m_bSparePoint = 1;
    feed(star, PT_DOWN, 100, 80);
    EXPECT_EQ(star.GetPointCount(), 1);
    ASSERT_EQ(star.m_graphData.size(), 10);
    EXPECT_POINT(star.m_graphData[7], 132.0, 91.0);
    EXPECT_POINT(star.m_graphData[8], 100.0, 80.0);
    EXPECT_POINT(star.m_graphData[9], 100.0, 80.0);
    EXPECT_TRUE(star.m_previewData.isEmpty());
    EXPECT_EQ(star.IsSparePoint(), 0);
    EXPECT_EQ(star.m_bEditMode, 0);
    EXPECT_EQ(star.m_bFinished, 0);
}

TEST(CInkSignGraph, everyCodeButThePressDragsTheBox)
{
    for (const int code : kDragCodes) {
        SCOPED_TRACE(code);
        CInk4Stars star;
        feed(star, PT_DOWN, 100, 100);
        feed(star, code, 212, 156);
        EXPECT_EQ(star.GetPointCount(), 2);
        EXPECT_EQ(star.IsSparePoint(), 1);
        EXPECT_EQ(star.m_bEditMode, 0);
        EXPECT_EQ(star.m_bFinished, 0);
        ASSERT_EQ(star.m_graphData.size(), 10);
        EXPECT_POINT(star.m_graphData[0], 112.0, 0.0); // still the template
        EXPECT_POINT(star.m_graphData[8], 100.0, 100.0);
        EXPECT_POINT(star.m_graphData[9], 212.0, 156.0);
        ASSERT_EQ(star.m_previewData.size(), 10);
        expectStar(star.m_previewData);
        EXPECT_EQ(star.m_modifyType, MT_NONE);
    }
}

TEST(CInkSignGraph, everyStepStretchesAFreshCopyOfTheTemplate)
{
    CInk4Stars star;
    feed(star, PT_DOWN, 100, 100);
    for (const QPoint &pointer : {QPoint(100, 100), QPoint(300, 7), QPoint(3, 290), QPoint(212, 156)})
        feed(star, PT_MOVE, pointer.x(), pointer.y());
    expectStar(star.m_previewData);
}

TEST(CInkSignGraph, releaseFormsTheShape)
{
    EditedStar star;
    ASSERT_EQ(star.m_graphData.size(), 8);
    expectStar(star.m_graphData);
    EXPECT_EQ(star.GetPointCount(), 8);
    EXPECT_EQ(star.m_bEditMode, 1);
    EXPECT_EQ(star.m_bFinished, 0);
    EXPECT_EQ(star.m_bHideHotShape, 0);
    EXPECT_EQ(star.IsSparePoint(), 0);
    EXPECT_EQ(star.m_modifyType, MT_NONE);
    EXPECT_EDGES(star.m_rcHot, 90, 90, 222, 166);
    EXPECT_POINT(star.m_ptCenter, 156.0, 128.0);
    EXPECT_POINT(star.m_hotPts[8], 156.0, 60.0);
    EXPECT_EQ(star.m_previewData.size(), 10); // kept, but shown no more
}

TEST(CInkSignGraph, releaseMovesThePointerToo)
{
    CInk4Stars star;
    feed(star, PT_DOWN, 100, 100);
    feed(star, PT_MOVE, 101, 101);
    feed(star, PT_UP, 212, 156);
    expectStar(star.m_graphData);
    expectStar(star.m_previewData);
    CInk4Stars unmoved;
    feed(unmoved, PT_DOWN, 100, 100);
    feed(unmoved, PT_UP, 212, 156);
    expectStar(unmoved.m_graphData);
    EXPECT_EQ(unmoved.m_bEditMode, 1);
}

TEST(CInkSignGraph, releaseFourPixelsAwayIsAbandoned)
{
    for (const auto &[dx, dy] :
         {std::pair(0, 0), std::pair(4, 0), std::pair(0, -4), std::pair(-4, 0), std::pair(2, 3)}) {
        SCOPED_TRACE(testing::Message() << dx << ',' << dy);
        CInk4Stars star;
        feed(star, PT_DOWN, 100, 100);
        feed(star, PT_MOVE, 212, 156);
        feed(star, PT_UP, 100 + dx, 100 + dy);
        EXPECT_EQ(star.m_bFinished, 1);
        EXPECT_EQ(star.m_bHideHotShape, 1);
        EXPECT_EQ(star.m_bEditMode, 0);
        EXPECT_EQ(star.GetPointCount(), 2);
        EXPECT_EQ(star.IsSparePoint(), 0);
        EXPECT_EQ(star.m_graphData.size(), 10);
        EXPECT_POINT(star.m_graphData[0], 112.0, 0.0);
        EXPECT_NULL_RECT(star.m_rcHot);
        EXPECT_TRUE(star.FinishGraph());
        EXPECT_TRUE(isBlank(drawn(star)));
    }
}

TEST(CInkSignGraph, releaseOverFourPixelsAwayForms)
{
    for (const auto &[dx, dy] : {std::pair(5, 0), std::pair(4, 1), std::pair(-1, -4), std::pair(3, 3)}) {
        SCOPED_TRACE(testing::Message() << dx << ',' << dy);
        CInk4Stars star;
        feed(star, PT_DOWN, 100, 100);
        feed(star, PT_UP, 100 + dx, 100 + dy);
        EXPECT_EQ(star.m_bEditMode, 1);
        EXPECT_EQ(star.m_bFinished, 0);
        EXPECT_EQ(star.GetPointCount(), 8);
        EXPECT_EQ(star.m_graphData.size(), 8);
    }
}

TEST(CInkSignGraph, distanceOfTheReleaseIsTheFloatDistance)
{
    // 16777216 and 16777221, kept as 16777220.
    CInk4Stars star;
    feed(star, PT_DOWN, 16'777'217, 50);
    feed(star, PT_UP, 16'777'221, 50);
    EXPECT_EQ(star.m_bFinished, 1);
    CInk4Stars formed;
    feed(formed, PT_DOWN, 16'777'217, 50);
    feed(formed, PT_UP, 16'777'222, 50);
    EXPECT_EQ(formed.m_bEditMode, 1);
}

TEST(CInkSignGraph, eventsBeforeThePressAreIgnored)
{
    CInk4Stars star;
    for (const int code : {0, 2, 3, 4, 5, 99, -1}) {
        star.m_bSparePoint = 1;
        QRect update(7, 8, 9, 10);
        star.AddPoint(code, QPoint(150, 120), update);
        EXPECT_EDGES(update, 7, 8, 15, 17);
        EXPECT_EQ(star.IsSparePoint(), 0);
        EXPECT_EQ(star.GetPointCount(), 0);
        EXPECT_EQ(star.m_bFinished, 0);
        EXPECT_TRUE(star.m_previewData.isEmpty());
        EXPECT_POINT(star.m_graphData[8], 0.0, 0.0);
        EXPECT_POINT(star.m_graphData[9], 0.0, 0.0);
    }
}

TEST(CInkSignGraph, secondPressBeginsTheDragAnew)
{
    DraggedStar star;
    EXPECT_EDGES(feed(star, PT_DOWN, 50, 60), 49, 59, 222, 166);
    EXPECT_EQ(star.GetPointCount(), 1);
    EXPECT_EQ(star.IsSparePoint(), 0);
    EXPECT_POINT(star.m_graphData[8], 50.0, 60.0);
    EXPECT_POINT(star.m_graphData[9], 50.0, 60.0);
    expectStar(star.m_previewData); // until the pointer moves
    feed(star, PT_UP, 162, 116);
    EXPECT_POINT(star.m_graphData[0], 106.0, 60.0);
}

TEST(CInkSignGraph, formingCallsTheOverriddenSteps)
{
    Probe probe;
    feed(probe, PT_DOWN, 50, 60);
    EXPECT_EQ(probe.calls, "");
    feed(probe, 99, 70, 90);
    EXPECT_EQ(probe.calls, "preview ");
    probe.calls.clear();
    feed(probe, PT_UP, 70, 90);
    EXPECT_EQ(probe.calls, "preview graph hot(10,10) ");
    EXPECT_EQ(probe.sizes, (QVector<int>{4, 4, 4}));
    EXPECT_EQ(probe.formed, (QVector<int>{1, 99, 2}));
    EXPECT_EQ(probe.editMode, 1); // set before the outline is stretched
    EXPECT_EQ(probe.pointCount, 2);
    ASSERT_EQ(probe.m_graphData.size(), 2);
    EXPECT_POINT(probe.m_graphData[1], 70.0, 90.0);
    EXPECT_EDGES(probe.m_rcHot, 40, 50, 80, 100);

    Probe abandoned;
    feed(abandoned, PT_DOWN, 50, 60);
    feed(abandoned, PT_UP, 54, 60);
    EXPECT_EQ(abandoned.calls, "preview ");
}

TEST(CInkSignGraph, pointCountFollowsTheListNotTheOutline)
{
    Probe probe;
    probe.m_graphData.append(QPointF(5, 6));
    drag(probe, {50, 60}, {70, 90});
    EXPECT_EQ(probe.GetPointCount(), 3);
    EXPECT_EQ(probe.m_graphData.size(), 3);
    EXPECT_EQ(probe.m_nOutlinePointCount, 2);
}

TEST(CInkSignGraph, setWidthIsKeptAndRecomputesNothing)
{
    EditedStar star;
    star.SetWidth(1);
    EXPECT_EQ(star.m_nWidth, 1);
    for (const int width : {7, -3, 0}) {
        star.SetWidth(width);
        EXPECT_EQ(star.m_nWidth, width);
        EXPECT_EDGES(star.m_rcHot, 90, 90, 222, 166);
        expectStar(star.m_graphData);
    }
}

TEST(CInkSignGraph, emptiedOrShortListFormsNothing)
{
    for (const int size : {0, 1}) {
        CInk4Stars star;
        star.m_graphData.resize(size);
        for (const int code : {1, 5, 99, 2}) {
            QRect update(7, 8, 9, 10);
            star.AddPoint(code, QPoint(150, 120), update);
            EXPECT_EDGES(update, 7, 8, 15, 17);
        }
        EXPECT_EQ(star.m_graphData.size(), size);
        EXPECT_EQ(star.m_bEditMode, 0);
        EXPECT_TRUE(isBlank(drawn(star)));
    }
    for (const int size : {2, 3, 8, 9}) {
        CInk4Stars star;
        star.m_graphData.resize(size);
        drag(star, {50, 60}, {70, 90});
        EXPECT_EQ(star.GetPointCount(), size - 2);
        drawn(star);
        star.FinishGraph();
        EXPECT_TRUE(isBlank(drawn(star)));
    }
    DraggedStar cut;
    cut.m_graphData.clear();
    feed(cut, PT_MOVE, 50, 60);
    feed(cut, PT_UP, 50, 60);
    cut.GetUpdateRect();
    EXPECT_EQ(cut.m_bEditMode, 0);
}

TEST(CInkSignGraph, finishInEachPhase)
{
    CInk4Stars fresh;
    EXPECT_FALSE(fresh.FinishGraph());
    EXPECT_EQ(fresh.m_bFinished, 0);
    EXPECT_EQ(fresh.m_bHideHotShape, 0);

    CInk4Stars pressed;
    feed(pressed, PT_DOWN, 100, 100);
    EXPECT_TRUE(pressed.FinishGraph());
    EXPECT_EQ(pressed.m_bFinished, 1);
    EXPECT_EQ(pressed.m_bHideHotShape, 1);

    DraggedStar dragged;
    dragged.m_modifyType = 7;
    EXPECT_TRUE(dragged.FinishGraph());
    EXPECT_EQ(dragged.m_bFinished, 1);
    EXPECT_EQ(dragged.m_bHideHotShape, 1);
    EXPECT_EQ(dragged.m_bEditMode, 0);
    EXPECT_EQ(dragged.m_modifyType, 7);
    EXPECT_EQ(dragged.IsSparePoint(), 1);
    EXPECT_EQ(dragged.GetPointCount(), 2);
    EXPECT_EQ(dragged.m_graphData.size(), 10);

    EditedStar edited;
    EXPECT_TRUE(edited.FinishGraph());
    EXPECT_EQ(edited.m_bFinished, 1);
    EXPECT_EQ(edited.m_bHideHotShape, 1);
    EXPECT_EQ(edited.m_bEditMode, 1);
    EXPECT_TRUE(edited.FinishGraph());

    for (const auto &[count, finishes] : {std::pair(-1, false), std::pair(0, false), std::pair(1, true)}) {
        CInk4Stars star;
        star.m_nPointCount = count;
        EXPECT_EQ(star.FinishGraph(), finishes);
        EXPECT_EQ(star.m_bFinished, int(finishes));
    }
}

TEST(CInkSignGraph, finishInMidDragLaysOutNoHandlesAndStaysInvisible)
{
    DraggedStar star;
    star.FinishGraph();
    EXPECT_NULL_RECT(star.m_rcHot);
    EXPECT_POINT(star.m_hotPts[0], 0.0, 0.0);
    EXPECT_POINT(star.m_ptCenter, 0.0, 0.0);
    Layers layers;
    layers.draw(star);
    EXPECT_TRUE(isBlank(layers.surface));
    EXPECT_TRUE(isBlank(layers.ink));
    EXPECT_TRUE(isBlank(layers.page));
}

TEST(CInkSignGraph, committedStencilIgnoresEveryEvent)
{
    EditedStar star;
    star.FinishGraph();
    star.m_bSparePoint = 1;
    for (const int code : {0, 1, 2, 3, 4, 5, 99, -1}) {
        QRect update(7, 8, 9, 10);
        star.AddPoint(code, QPoint(150, 120), update);
        EXPECT_EDGES(update, 7, 8, 15, 17);
        EXPECT_EQ(star.IsSparePoint(), 1);
        expectStar(star.m_graphData);
    }
    CInk4Stars fresh;
    fresh.m_bFinished = 1;
    feed(fresh, PT_DOWN, 100, 100);
    EXPECT_EQ(fresh.GetPointCount(), 0);
}

TEST(CInkSignGraph, arrowsOfAnUnmovedDrag)
{
    CInkUpArrow up;
    feed(up, PT_DOWN, 100, 100);
    feed(up, PT_MOVE, 100, 100);
    EXPECT_POINT(up.m_previewData[1], 100.0, 110.0);
    EXPECT_POINT(up.m_previewData[6], 180.0, 110.0);
    EXPECT_POINT(up.m_previewData[4], 155.0, 130.0);
    feed(up, PT_MOVE, 101, 100);
    EXPECT_POINT(up.m_previewData[1], 100.0, 100.0);
    CInkDownArrow down;
    feed(down, PT_DOWN, 100, 100);
    feed(down, PT_MOVE, 100, 100);
    for (int i = 0; i < 7; ++i)
        EXPECT_POINT(down.m_previewData[i], 100.0, 100.0);
}

TEST(CInkSignGraph, extremeCoordinatesDoNoHarm)
{
    const MessageLog log;
    for (const int width : {INT_MIN, -7, 0, INT_MAX}) {
        for (const int far : {INT_MIN, -2'000'000'000, 16'777'217, INT_MAX}) {
            CInk4Stars star;
            star.ShowDrawerIcon(1);
            star.ShowDrawerName(1);
            star.m_sizeName = QSize(INT_MAX, INT_MIN);
            star.SetWidth(width);
            feed(star, PT_DOWN, far, 80);
            feed(star, PT_MOVE, INT_MAX, far);
            drawn(star);
            feed(star, PT_UP, 50, far);
            drawn(star);
            drag(star, {far, 50}, {far, INT_MIN});
            star.FinishGraph();
            drawn(star);
        }
    }
}

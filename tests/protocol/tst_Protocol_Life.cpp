// What every tool keeps of the life of an object: fresh, drawn, edited, committed and silent.

#include "Exact.h"
#include "MessageLog.h"
#include "Protocol.h"
#include "Snapshot.h"

#include <climits>

namespace {

constexpr int kUnknownCodes[] = {0, -1, 3, 6, 99, INT_MAX, INT_MIN};

// Several codes reach every tool as one that it does not know.
std::vector<int> unknownTo(const Tool &tool)
{
    std::vector<int> codes(std::begin(kUnknownCodes), std::end(kUnknownCodes));
    if (!tool.is(KnowsDoubleClick))
        codes.push_back(PT_DBLCLK);
    return codes;
}

} // namespace

INK_OVER_ALL_TOOLS;

TEST_P(Protocol, freshObjectIsNeitherEditedNorCommitted)
{
    EXPECT_EQ(graph->m_bEditMode, int(is(BornSelected)));
    EXPECT_EQ(graph->m_bFinished, 0);
    EXPECT_EQ(graph->m_bHideHotShape, 0);
    EXPECT_EQ(graph->m_nPointCount, is(BornSelected) ? 2 : 0);
    EXPECT_EQ(graph->IsSparePoint(), 0);
    EXPECT_EQ(graph->GetModifyType(), MT_NONE);
    EXPECT_EQ(graph->AroundHotPts({0, 0}), MT_NONE);
    EXPECT_EQ(graph->m_color == QColor(0, 0, 0, 255), !is(OwnColor));
    EXPECT_EQ(graph->m_rcHot.isNull(), !is(BornSelected));
}

TEST_P(Protocol, freshObjectHoldsTheFieldsOfItsRoot)
{
    EXPECT_EQ(graph->m_pImage, nullptr);
    EXPECT_EQ(graph->m_pWidthCache, nullptr);
    EXPECT_EQ(graph->m_nDrawnCount, 0);
    EXPECT_EQ(graph->m_bShowDrawerName, 0);
    EXPECT_EQ(graph->m_bShowDrawerIcon, 0);
    EXPECT_EQ(graph->m_nOwnerIP, 0u);
    EXPECT_EQ(graph->m_nDrawerIP, 0u);
    EXPECT_EQ(graph->GetRotateAngle(), 0.0f);
    EXPECT_POINT(graph->m_ptLast, 0.0, 0.0);
    EXPECT_NULL_RECT(graph->m_rcName);
    EXPECT_NULL_RECT(graph->m_rcIcon);
    EXPECT_EQ(graph->m_sizeName, QSize(0, 0));
}

TEST_P(Protocol, freshObjectPaintsNothing)
{
    const MessageLog log;
    EXPECT_EQ(isBlank(drawn(*graph)), !is(BornSelected));
    Layers layers;
    layers.draw(*graph);
    EXPECT_EQ(isBlank(layers.surface), !is(BornSelected));
    EXPECT_TRUE(isBlank(layers.ink));
    EXPECT_TRUE(isBlank(layers.page));
    EXPECT_TRUE(isBlank(layers.background));
}

TEST_P(Protocol, nothingToFinishBeforeTheFirstEvent)
{
    EXPECT_EQ(graph->FinishGraph(), is(BornSelected));
    EXPECT_EQ(graph->m_bFinished, int(is(BornSelected)));
    EXPECT_EQ(graph->m_bHideHotShape, int(is(BornSelected)));
}

TEST_P(Protocol, finishAfterAPressCommits)
{
    feed(*graph, PT_DOWN, 50, 60);
    EXPECT_EQ(graph->FinishGraph(), !is(NeverFinishes));
    EXPECT_EQ(graph->m_bFinished, int(!is(NeverFinishes)));
    EXPECT_EQ(graph->m_bHideHotShape, int(!is(NeverFinishes)));
}

TEST_P(Protocol, pressAloneCommitsNothing)
{
    feed(*graph, PT_DOWN, 120, 130);
    EXPECT_EQ(graph->m_bFinished, int(is(CommitsAtPress)));
    EXPECT_EQ(graph->m_bEditMode, int(is(BornSelected)));
}

TEST_P(Protocol, unknownCodeIsAMoveWhileDrawing)
{
    for (const bool pressed : {false, true}) {
        for (const int code : unknownTo(GetParam())) {
            SCOPED_TRACE(::testing::Message() << "code " << code << (pressed ? " pressed" : " fresh"));
            const Graph unknown = make(), moved = make(), untouched = make();
            QRect reported, reportedMove;
            for (const Graph *twin : {&unknown, &moved, &untouched}) {
                if (pressed)
                    feed(**twin, PT_DOWN, 120, 130);
            }
            unknown->AddPoint(code, QPoint(180, 150), reported);
            moved->AddPoint(PT_MOVE, QPoint(180, 150), reportedMove);
            const bool ignored = is(IgnoresUnknownCodes) || is(BornSelected);
            EXPECT_TRUE(Snapshot(*unknown) == Snapshot(ignored ? *untouched : *moved));
            EXPECT_EQ(reported == reportedMove, !ignored || !pressed);
        }
    }
}

TEST_P(Protocol, unknownCodeIsIgnoredWhileEdited)
{
    for (const int code : unknownTo(GetParam())) {
        SCOPED_TRACE(::testing::Message() << "code " << code);
        const Graph edited = make();
        GetParam().form(*edited);
        ASSERT_EQ(edited->m_bEditMode != 0 && !edited->m_bFinished, !is(NeverEdited) && !is(HearsAfterRelease));
        const Snapshot before(*edited);
        feed(*edited, code, 130, 120);
        EXPECT_EQ(Snapshot(*edited) == before, !is(HearsAfterRelease));
    }
}

TEST_P(Protocol, committedObjectIgnoresEveryEvent)
{
    drawAndCommit();
    int x = 103;
    for (const int code : {PT_DOWN, PT_MOVE, PT_UP, PT_DBLCLK, static_cast<PointerEvent>(3),
                           static_cast<PointerEvent>(99), static_cast<PointerEvent>(-1)}) {
        const Snapshot before(*graph);
        QRect update(7, 8, 9, 10);
        graph->AddPoint(code, QPoint(++x, 104), update);
        const bool hears = is(HearsAfterRelease) || (is(PressReachesCommitted) && code == PT_DOWN);
        EXPECT_EQ(Snapshot(*graph) == before, !hears) << "code " << code;
        EXPECT_EQ(update == QRect(7, 8, 9, 10), !hears) << "code " << code;
    }
    EXPECT_EQ(graph->m_bFinished, 1);
    EXPECT_EQ(graph->m_bHideHotShape, 1);
}

TEST_P(Protocol, committedObjectMayBeFinishedAgain)
{
    drawAndCommit();
    const Snapshot before(*graph);
    EXPECT_EQ(graph->FinishGraph(), !is(NeverFinishes));
    EXPECT_EQ(graph->m_bFinished, 1);
    EXPECT_EQ(graph->m_bHideHotShape, 1);
    EXPECT_EQ(graph->m_bEditMode, before.flags[4]);
    EXPECT_EQ(graph->m_graphData.size(), before.points.size());
}

TEST_P(Protocol, paintingChangesNoFieldOfAnEvent)
{
    const MessageLog log;
    GetParam().form(*graph);
    const Snapshot formed(*graph);
    drawn(*graph);
    Layers().draw(*graph);
    EXPECT_TRUE(Snapshot(*graph) == formed);
    graph->FinishGraph();
    const Snapshot committed(*graph);
    drawn(*graph);
    Layers().draw(*graph);
    EXPECT_TRUE(Snapshot(*graph) == committed);
}

TEST_P(Protocol, eventsInAnyOrderAreAbsorbed)
{
    const MessageLog log;
    const int codes[] = {PT_UP, PT_MOVE, PT_DBLCLK, 0, -1, 3, 99, PT_DOWN, PT_DOWN, PT_UP, PT_UP, PT_MOVE};
    for (const int code : codes) {
        const Graph fresh = make();
        for (int round = 0; round < 3; ++round) {
            feed(*fresh, code, 20 * round, 30);
            feed(*fresh, PT_MOVE, 40 + round, 50);
        }
        fresh->FinishGraph();
        drawn(*fresh);
        Layers().draw(*fresh);
        EXPECT_LE(fresh->m_bFinished, 1) << "code " << code;
    }
}

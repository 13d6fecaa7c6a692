// What every tool keeps of the protocol between host and object. A tool that differs is named where it does.

#include "CInk1ArrowLine.h"
#include "CInk4Stars.h"
#include "CInk5Side.h"
#include "CInk5Stars.h"
#include "CInk6Side.h"
#include "CInk6Stars.h"
#include "CInkBeZier.h"
#include "CInkBoom1.h"
#include "CInkBoom2.h"
#include "CInkBrush.h"
#include "CInkCloudLabel.h"
#include "CInkColorBrush.h"
#include "CInkCrayon.h"
#include "CInkDiamond.h"
#include "CInkDownArrow.h"
#include "CInkEllipse.h"
#include "CInkEllipseLabel.h"
#include "CInkEraser.h"
#include "CInkErro.h"
#include "CInkFlatBrush.h"
#include "CInkHighLightPen.h"
#include "CInkITriangle.h"
#include "CInkLTriangle.h"
#include "CInkLighting.h"
#include "CInkLine.h"
#include "CInkLove.h"
#include "CInkPencil.h"
#include "CInkPolygon.h"
#include "CInkRectangle.h"
#include "CInkRight.h"
#include "CInkRightArrow.h"
#include "CInkRoundRect.h"
#include "CInkRoundRectLabel.h"
#include "CInkSprayGun.h"
#include "CInkUpArrow.h"
#include "CInkWaterColorPen.h"
#include "Canvas.h"
#include "Exact.h"
#include "_H.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace {

using Graph = std::unique_ptr<CInkGraph>;

// Where a tool differs from all others.
enum Exception {
    None = 0,
    LeavesStates = 1,  // saved states on the painter
    SetsNoClip = 2,    // that stays
    PaintsNothing = 4, // but its handles
    Invisible = 8,     // handles included
    OwnColor = 16,
    NeverFinishes = 32, // but at its release
    AssignsUpdate = 64,
    NewestStep = 128,   // is all that a move reports, however long it was
    ErasesLayers = 256, // which are blank here
};

struct Tool
{
    const char *name;
    std::function<Graph()> make;
    int exceptions{None};
};

template <typename Class>
Tool tool(const char *name, int exceptions = None)
{
    return {name, [] { return Graph(new Class); }, exceptions};
}

template <typename Class>
Tool onCanvas(const char *name, int exceptions)
{
    return {name, [] { return Graph(new Class({400, 300})); }, exceptions};
}

template <typename Class>
Tool styled(const char *name)
{
    return {name, [] { return Graph(new Class(Qt::DashLine)); }};
}

const Tool kTools[] = {
    tool<CInkPencil>("CInkPencil"),
    tool<CInkBrush>("CInkBrush"),
    tool<CInkFlatBrush>("CInkFlatBrush", SetsNoClip),
    tool<CInkHighLightPen>("CInkHighLightPen"),
    onCanvas<CInkColorBrush>("CInkColorBrush", OwnColor | NewestStep),
    onCanvas<CInkCrayon>("CInkCrayon", OwnColor | SetsNoClip | NewestStep),
    onCanvas<CInkWaterColorPen>("CInkWaterColorPen", PaintsNothing | Invisible | SetsNoClip | NewestStep),
    onCanvas<CInkSprayGun>("CInkSprayGun", SetsNoClip | NeverFinishes | AssignsUpdate),
    tool<CInkEraser>("CInkEraser", ErasesLayers),
    tool<CInkLine>("CInkLine"),
    tool<CInk1ArrowLine>("CInk1ArrowLine", LeavesStates),
    tool<CInkRectangle>("CInkRectangle"),
    tool<CInkRoundRect>("CInkRoundRect"),
    tool<CInkEllipse>("CInkEllipse"),
    tool<CInkITriangle>("CInkITriangle"),
    tool<CInkLTriangle>("CInkLTriangle"),
    tool<CInkDiamond>("CInkDiamond"),
    tool<CInkPolygon>("CInkPolygon"),
    {"CInkBeZier", [] { return Graph(new CInkBeZier(Qt::FlatCap, Qt::FlatCap, Qt::SolidLine)); }},
    tool<CInk4Stars>("CInk4Stars"),
    tool<CInk5Side>("CInk5Side"),
    tool<CInk5Stars>("CInk5Stars"),
    tool<CInk6Side>("CInk6Side"),
    tool<CInk6Stars>("CInk6Stars"),
    tool<CInkBoom1>("CInkBoom1"),
    tool<CInkBoom2>("CInkBoom2"),
    tool<CInkCloudLabel>("CInkCloudLabel"),
    tool<CInkDownArrow>("CInkDownArrow"),
    tool<CInkEllipseLabel>("CInkEllipseLabel"),
    tool<CInkErro>("CInkErro"),
    tool<_H>("_H"),
    tool<CInkLighting>("CInkLighting"),
    tool<CInkLove>("CInkLove", PaintsNothing | SetsNoClip),
    tool<CInkRight>("CInkRight"),
    tool<CInkRightArrow>("CInkRightArrow"),
    tool<CInkRoundRectLabel>("CInkRoundRectLabel"),
    tool<CInkUpArrow>("CInkUpArrow"),
    styled<CInkRectangle>("CInkRectangle_penStyle"),
    styled<CInkRoundRect>("CInkRoundRect_penStyle"),
    styled<CInkEllipse>("CInkEllipse_penStyle"),
    styled<CInkITriangle>("CInkITriangle_penStyle"),
    styled<CInkLTriangle>("CInkLTriangle_penStyle"),
    styled<CInkDiamond>("CInkDiamond_penStyle"),
};

class Protocol : public ::testing::TestWithParam<Tool>
{
protected:
    // Drawn from (100,100) to (200,160) and committed.
    void drawAndCommit() const
    {
        drag(*graph, {100, 100}, {200, 160});
        graph->FinishGraph();
    }

    static bool is(Exception exception) { return (GetParam().exceptions & exception) != 0; }

    const Graph graph = GetParam().make();
};

// What a committed object is compared by.
struct Snapshot
{
    explicit Snapshot(const CInkGraph &graph)
        : points(graph.m_graphData)
        , hot(graph.m_rcHot)
        , type(graph.m_modifyType)
        , count(graph.m_nPointCount)
        , spare(graph.m_bSparePoint)
        , edit(graph.m_bEditMode)
    {
    }
    bool operator==(const Snapshot &other) const
    {
        const auto exactly = [](const QPointF &a, const QPointF &b) { return a.x() == b.x() && a.y() == b.y(); };
        return std::equal(points.begin(), points.end(), other.points.begin(), other.points.end(), exactly) &&
               hot == other.hot && type == other.type && count == other.count && spare == other.spare &&
               edit == other.edit;
    }
    QVector<QPointF> points;
    QRect hot;
    int type, count, spare, edit;
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Tools, Protocol, ::testing::ValuesIn(kTools),
                         [](const auto &row) { return std::string(row.param.name); });

TEST_P(Protocol, freshObjectIsNeitherEditedNorCommitted)
{
    EXPECT_EQ(graph->m_bEditMode, 0);
    EXPECT_EQ(graph->m_bFinished, 0);
    EXPECT_EQ(graph->m_bHideHotShape, 0);
    EXPECT_EQ(graph->m_nPointCount, 0);
    EXPECT_EQ(graph->IsSparePoint(), 0);
    EXPECT_EQ(graph->GetModifyType(), MT_NONE);
    EXPECT_EQ(graph->AroundHotPts({0, 0}), MT_NONE);
    EXPECT_EQ(graph->m_color == QColor(0, 0, 0, 255), !is(OwnColor));
    EXPECT_EQ(graph->m_pImage, nullptr);
    EXPECT_NULL_RECT(graph->m_rcHot);
    EXPECT_TRUE(isBlank(drawn(*graph)));
}

TEST_P(Protocol, nothingToFinishBeforeTheFirstEvent)
{
    EXPECT_FALSE(graph->FinishGraph());
    EXPECT_EQ(graph->m_bFinished, 0);
    EXPECT_EQ(graph->m_bHideHotShape, 0);
}

TEST_P(Protocol, finishAfterAPressCommits)
{
    feed(*graph, PT_DOWN, 50, 60);
    const bool finishes = !is(NeverFinishes);
    EXPECT_EQ(graph->FinishGraph(), finishes);
    EXPECT_EQ(graph->m_bFinished, int(finishes));
    EXPECT_EQ(graph->m_bHideHotShape, int(finishes));
}

TEST_P(Protocol, committedObjectIgnoresEveryEvent)
{
    drawAndCommit();
    const Snapshot before(*graph);
    for (const int code :
         {PT_DOWN, PT_MOVE, PT_UP, PT_DBLCLK, static_cast<PointerEvent>(3), static_cast<PointerEvent>(99)}) {
        QRect update(7, 8, 9, 10);
        graph->AddPoint(code, QPoint(100, 100), update);
        EXPECT_EQ(update, QRect(7, 8, 9, 10)) << "code " << code;
    }
    EXPECT_TRUE(Snapshot(*graph) == before);
}

TEST_P(Protocol, updateIsUnitedAndNeverCleared)
{
    QRect update(1000, 1000, 5, 5);
    graph->AddPoint(PT_DOWN, QPoint(100, 100), update);
    graph->AddPoint(PT_MOVE, QPoint(150, 130), update);
    EXPECT_EQ(update.contains(QRect(1000, 1000, 5, 5)), !is(AssignsUpdate));
    EXPECT_EQ(update.contains(QRect(QPoint(100, 100), QPoint(150, 130))), !is(AssignsUpdate) && !is(NewestStep));
}

TEST_P(Protocol, everyPixelLiesInWhatIsReported)
{
    QRect update;
    graph->SetWidth(9);
    for (const auto &[code, pt] : {std::pair(PT_DOWN, QPoint(100, 100)), std::pair(PT_MOVE, QPoint(160, 190)),
                                   std::pair(PT_UP, QPoint(200, 160))})
        graph->AddPoint(code, pt, update);
    const QImage whole = drawn(*graph);
    const QImage reported = painted([&](QPainter &painter) { painter.drawImage(update, whole, update); });
    EXPECT_TRUE(samePixels(reported, whole));
    EXPECT_EQ(isBlank(whole), is(Invisible));
}

TEST_P(Protocol, skipSuppressesAllPainting)
{
    drawAndCommit();
    Layers layers;
    layers.draw(*graph, 1);
    EXPECT_TRUE(isBlank(layers.surface));
    EXPECT_TRUE(isBlank(layers.ink));
    EXPECT_TRUE(isBlank(layers.page));
    EXPECT_TRUE(isBlank(layers.background));
}

TEST_P(Protocol, objectInProgressIsPaintedOnTheSurfaceAlone)
{
    feed(*graph, PT_DOWN, 100, 100);
    feed(*graph, PT_MOVE, 200, 160);
    Layers layers;
    layers.draw(*graph);
    EXPECT_EQ(isBlank(layers.surface), is(PaintsNothing) || is(ErasesLayers));
    EXPECT_TRUE(isBlank(layers.ink));
    EXPECT_TRUE(isBlank(layers.page));
    EXPECT_TRUE(isBlank(layers.background));
}

TEST_P(Protocol, committedObjectIsPaintedAlikeOnSurfaceInkAndPage)
{
    drawAndCommit();
    Layers layers;
    layers.draw(*graph);
    EXPECT_EQ(isBlank(layers.surface), is(PaintsNothing) || is(ErasesLayers));
    EXPECT_TRUE(samePixels(layers.ink, layers.surface));
    EXPECT_TRUE(samePixels(layers.page, layers.surface));
    EXPECT_TRUE(isBlank(layers.background));
}

TEST_P(Protocol, onlyTheClipStaysOnThePainter)
{
    drawAndCommit();
    QImage image = blankCanvas();
    QPainter painter(&image);
    painter.setPen(QPen(Qt::green, 7, Qt::DotLine));
    painter.setBrush(Qt::yellow);
    painter.translate(3, 4);
    QRect all = image.rect();
    graph->Draw(painter, all);
    if (is(LeavesStates)) {
        painter.restore();
        painter.restore();
    }
    EXPECT_EQ(painter.hasClipping(), !is(LeavesStates) && !is(SetsNoClip));
    EXPECT_EQ(painter.pen(), QPen(Qt::green, 7, Qt::DotLine));
    EXPECT_EQ(painter.brush(), QBrush(Qt::yellow));
    EXPECT_EQ(painter.worldTransform(), QTransform::fromTranslate(3, 4));
    EXPECT_FALSE(painter.testRenderHint(QPainter::Antialiasing));
}

TEST_P(Protocol, unopenedPainterIsHarmless)
{
    drawAndCommit();
    QPainter painter;
    QRect all(0, 0, 400, 300);
    graph->Draw(painter, all);
    EXPECT_FALSE(painter.isActive());
}

TEST_P(Protocol, eventsInAnyOrderAreAbsorbed)
{
    const int codes[] = {PT_UP, PT_MOVE, PT_DBLCLK, 0, -1, 3, 99, PT_DOWN, PT_DOWN, PT_UP, PT_UP, PT_MOVE};
    for (const int code : codes) {
        const Graph fresh = GetParam().make();
        for (int round = 0; round < 3; ++round) {
            feed(*fresh, code, 20 * round, 30);
            feed(*fresh, PT_MOVE, 40 + round, 50);
        }
        fresh->FinishGraph();
        drawn(*fresh);
    }
    SUCCEED();
}

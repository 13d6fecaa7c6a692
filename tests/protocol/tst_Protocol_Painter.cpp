// What every tool leaves on the painters that it was handed.

#include "Exact.h"
#include "MessageLog.h"
#include "Protocol.h"

#include <array>
#include <cmath>

namespace {

constexpr QRect kHostsClip(0, 0, 5, 5);
constexpr QRect kArea(20, 30, 300, 200);

// Everything that a painter carries but its clip.
struct State
{
    explicit State(const QPainter &painter)
        : pen(painter.pen())
        , brush(painter.brush())
        , background(painter.background())
        , font(painter.font())
        , brushOrigin(painter.brushOrigin())
        , transform(painter.worldTransform())
        , window(painter.window())
        , viewport(painter.viewport())
        , opacity(painter.opacity())
        , hints(painter.renderHints())
        , settings{painter.backgroundMode(), painter.compositionMode(), painter.layoutDirection(),
                   painter.worldMatrixEnabled(), painter.viewTransformEnabled()}
    {
    }

    QPen pen;
    QBrush brush, background;
    QFont font;
    QPoint brushOrigin;
    QTransform transform;
    QRect window, viewport;
    double opacity;
    QPainter::RenderHints hints;
    std::array<int, 5> settings;
};

void expectSame(const State &actual, const State &expected, bool compositionAlone = false)
{
    EXPECT_EQ(actual.pen, expected.pen);
    EXPECT_EQ(actual.brush, expected.brush);
    EXPECT_EQ(actual.background, expected.background);
    EXPECT_EQ(actual.font, expected.font);
    EXPECT_EQ(actual.brushOrigin, expected.brushOrigin);
    EXPECT_EQ(actual.transform, expected.transform);
    EXPECT_EQ(actual.window, expected.window);
    EXPECT_EQ(actual.viewport, expected.viewport);
    EXPECT_EQ(actual.opacity, expected.opacity);
    EXPECT_EQ(actual.hints, expected.hints);
    for (std::size_t i = 0; i < actual.settings.size(); ++i) {
        if (i == 1 && compositionAlone)
            EXPECT_EQ(actual.settings[i], int(QPainter::CompositionMode_SourceOver));
        else
            EXPECT_EQ(actual.settings[i], expected.settings[i]) << "setting " << i;
    }
}

// A state that no tool would choose, clipped to a corner.
void setHostsState(QPainter &painter)
{
    painter.setPen(QPen(QBrush(Qt::magenta, Qt::Dense2Pattern), 7, Qt::DotLine, Qt::FlatCap, Qt::MiterJoin));
    painter.setBrush(QBrush(Qt::cyan, Qt::Dense4Pattern));
    painter.setBackground(Qt::darkYellow);
    painter.setBackgroundMode(Qt::OpaqueMode);
    painter.setBrushOrigin(3, 1);
    painter.setLayoutDirection(Qt::RightToLeft);
    painter.setRenderHints(painter.renderHints(), false);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
    painter.setOpacity(0.5);
    painter.setWindow(0, 0, 200, 150);
    painter.setViewport(0, 0, 400, 300);
    painter.setWorldTransform(QTransform::fromTranslate(3, 5));
    painter.setClipRect(kHostsClip);
}

// How many states are saved on the painter. They are gone afterwards.
int savedStates(QPainter &painter)
{
    const MessageLog log;
    int count = -1;
    for (; log.lines.isEmpty(); ++count)
        painter.restore(); // Qt says when there is nothing left to restore
    return count;
}

QRect clipIn(const QPainter &painter)
{
    return painter.clipBoundingRect().toAlignedRect();
}

// The clip that stays, by hand of the table.
QRect stayingClip(const Tool &tool, CInkGraph &graph)
{
    const QRect own = graph.GetUpdateRect();
    const QRect united = kArea | own;
    switch (tool.clip) {
    case Clip::None:
        return kHostsClip;
    case Clip::Area:
        return kArea;
    case Clip::United:
        return united;
    case Clip::OwnOnceFormed:
        return graph.m_bEditMode ? own : united;
    case Clip::OwnOnceFinished:
        return graph.m_bFinished ? own : united;
    case Clip::GrownOnceFormed:
        return (graph.m_bEditMode ? own : united).adjusted(-1, -1, 1, 1);
    }
    return {};
}

struct HostsLayers
{
    HostsLayers()
        : images{blankCanvas(), blankCanvas(), blankCanvas({400, 300}, Qt::blue), blankCanvas()}
    {
        for (std::size_t i = 0; i < painters.size(); ++i) {
            painters[i].begin(&images[i]);
            setHostsState(painters[i]);
        }
    }

    void draw(CInkGraph &graph) { graph.Draw(painters[0], painters[1], painters[2], painters[3], kArea, 0, 0); }

    std::array<QImage, 4> images;
    std::array<QPainter, 4> painters;
};

// Draws on four layers, then looks at each painter. `clipped` are the numbers of those that keep the tool's clip.
void expectPaintersAsTheyWere(const Tool &tool, CInkGraph &graph, const std::string &clipped,
                              const std::string &painted)
{
    const MessageLog log;
    HostsLayers layers;
    const State before(layers.painters[0]);
    const bool resets = tool.is(ResetsComposition) && graph.m_bFinished;
    layers.draw(graph);
    for (std::size_t i = 0; i < layers.painters.size(); ++i) {
        QPainter &painter = layers.painters[i];
        const char number = char('1' + i);
        SCOPED_TRACE(::testing::Message() << "painter " << number);
        const bool unbalanced = tool.is(LeavesStates) && painted.find(number) != std::string::npos;
        if (unbalanced) {
            EXPECT_NE(painter.pen(), before.pen);
            painter.restore();
            painter.restore();
        }
        expectSame(State(painter), before, resets && number == '4');
        const bool keepsClip = clipped.find(number) != std::string::npos;
        EXPECT_EQ(clipIn(painter), keepsClip ? stayingClip(tool, graph) : kHostsClip);
        EXPECT_EQ(savedStates(painter), 0);
    }
}

} // namespace

INK_OVER_ALL_TOOLS;

TEST_P(Protocol, onlyTheClipStaysOnThePainter)
{
    drawAndCommit();
    const MessageLog log;
    QImage image = blankCanvas();
    QPainter painter(&image);
    setHostsState(painter);
    const State before(painter);
    QRect area = kArea;
    graph->Draw(painter, area);
    if (is(LeavesStates)) {
        painter.restore();
        painter.restore();
    }
    expectSame(State(painter), before);
    const bool drawsAsItsBase = is(NeedsItsLayers);
    EXPECT_TRUE(drawsAsItsBase || clipIn(painter) == stayingClip(GetParam(), *graph)) << clipIn(painter);
    EXPECT_EQ(savedStates(painter), 0);
}

TEST_P(Protocol, paintersOfAnObjectInProgressKeepTheClipAlone)
{
    feed(*graph, PT_DOWN, 100, 100);
    feed(*graph, PT_MOVE, 200, 160);
    expectPaintersAsTheyWere(GetParam(), *graph, GetParam().clipsInProgress, GetParam().paintsInProgress);
}

TEST_P(Protocol, paintersOfAnEditedObjectKeepTheClipAlone)
{
    GetParam().form(*graph);
    const bool committed = graph->m_bFinished != 0;
    EXPECT_EQ(committed, (is(NeverEdited) && !is(FillsPageEarly)) || is(HearsAfterRelease));
    expectPaintersAsTheyWere(GetParam(), *graph, committed ? GetParam().clipsCommitted : GetParam().clipsInProgress,
                             committed ? GetParam().paintsCommitted : GetParam().paintsInProgress);
}

TEST_P(Protocol, paintersOfATurnedObjectKeepTheClipAlone)
{
    GetParam().form(*graph);
    graph->m_fRotateAngle = 30;
    const bool committed = graph->m_bFinished != 0;
    expectPaintersAsTheyWere(GetParam(), *graph, committed ? GetParam().clipsCommitted : GetParam().clipsInProgress,
                             committed ? GetParam().paintsCommitted : GetParam().paintsInProgress);
}

TEST_P(Protocol, paintersOfACommittedObjectKeepTheClipAlone)
{
    drawAndCommit();
    expectPaintersAsTheyWere(GetParam(), *graph, GetParam().clipsCommitted, GetParam().paintsCommitted);
}

TEST_P(Protocol, paintersOfAFreshObjectAreNotTouched)
{
    const std::string clipped = is(BornSelected) || GetParam().name.rfind("CInkRectangle", 0) == 0 ? "2" : "";
    expectPaintersAsTheyWere(GetParam(), *graph, clipped, "");
}

TEST_P(Protocol, statesLeftOnThePainterAreCounted)
{
    drawAndCommit();
    const MessageLog log;
    HostsLayers layers;
    layers.draw(*graph);
    for (const int i : {0, 1, 3})
        EXPECT_EQ(savedStates(layers.painters[std::size_t(i)]), is(LeavesStates) ? 2 : 0);
    EXPECT_EQ(savedStates(layers.painters[2]), 0);
}

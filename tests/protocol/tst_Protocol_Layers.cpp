// Which layers every tool paints on, in which order, and what suppresses it.

#include "Exact.h"
#include "HearingDevice.h"
#include "MessageLog.h"
#include "Protocol.h"

namespace {

// A layer that writes its number down instead of being painted on.
class NotedLayer : public HearingDevice
{
public:
    NotedLayer(char number, std::string &notes)
        : HearingDevice({400, 300})
        , m_number(number)
        , m_notes(notes)
    {
    }

protected:
    void hearPath(const QPainter & /*painter*/, const QPainterPath & /*path*/) override { note(); }
    void hearImage(const QPainter & /*painter*/) override { note(); }

private:
    // A layer that is painted on several times in a row is one step.
    void note()
    {
        if (m_notes.empty() || m_notes.back() != m_number)
            m_notes += m_number;
    }

    const char m_number;
    std::string &m_notes;
};

// The numbers of the layers in the order in which they are painted on. The background is an image, for tools that
// read it.
std::string paintedLayers(CInkGraph &graph, int skip = 0)
{
    const MessageLog log;
    std::string notes;
    NotedLayer page('1', notes), surface('2', notes), ink('4', notes);
    QImage background = blankCanvas({400, 300}, Qt::blue);
    {
        QPainter p1(&page), p2(&surface), p3(&background), p4(&ink);
        graph.Draw(p1, p2, p3, p4, QRect(0, 0, 400, 300), 0, skip);
    }
    if (!samePixels(background, blankCanvas({400, 300}, Qt::blue)))
        notes += '3';
    return notes;
}

} // namespace

INK_OVER_ALL_TOOLS;

TEST_P(Protocol, objectInProgressIsPaintedOnTheSurface)
{
    feed(*graph, PT_DOWN, 100, 100);
    feed(*graph, PT_MOVE, 200, 160);
    EXPECT_EQ(paintedLayers(*graph), GetParam().paintsInProgress);
}

TEST_P(Protocol, editedObjectIsPaintedOnTheSurface)
{
    GetParam().form(*graph);
    const bool edited = !is(NeverEdited) && !is(HearsAfterRelease);
    // Handles are shown even by a tool that paints nothing else.
    EXPECT_EQ(paintedLayers(*graph), edited ? "2" : is(FillsPageEarly) ? "" : GetParam().paintsCommitted);
}

TEST_P(Protocol, committedObjectIsPaintedOnSurfaceInkAndPage)
{
    drawAndCommit();
    EXPECT_EQ(paintedLayers(*graph), GetParam().paintsCommitted);
    EXPECT_EQ(paintedLayers(*graph), GetParam().paintsCommitted) << "the second time";
}

TEST_P(Protocol, skipSuppressesAllPainting)
{
    drawAndCommit();
    for (const int skip : {1, -1, 256})
        EXPECT_EQ(paintedLayers(*graph, skip), is(IgnoresSkip) ? GetParam().paintsCommitted : "");
    const Graph progressing = make();
    feed(*progressing, PT_DOWN, 100, 100);
    feed(*progressing, PT_MOVE, 200, 160);
    EXPECT_EQ(paintedLayers(*progressing, 1), is(IgnoresSkip) ? GetParam().paintsInProgress : "");
}

TEST_P(Protocol, skippedDrawMakesNoImage)
{
    drawAndCommit();
    Layers layers;
    layers.draw(*graph, 1);
    EXPECT_EQ(graph->m_pImage != nullptr, is(IgnoresSkip));
}

TEST_P(Protocol, objectInProgressIsSeenOnTheSurfaceAlone)
{
    const MessageLog log;
    feed(*graph, PT_DOWN, 100, 100);
    feed(*graph, PT_MOVE, 200, 160);
    Layers layers;
    layers.draw(*graph);
    const bool seen = !GetParam().paintsInProgress.empty() && (!is(NeedsItsLayers) || is(HearsAfterRelease));
    EXPECT_EQ(isBlank(layers.surface), !seen);
    EXPECT_TRUE(isBlank(layers.ink));
    EXPECT_TRUE(isBlank(layers.page));
    EXPECT_TRUE(isBlank(layers.background));
}

TEST_P(Protocol, committedObjectIsSeenAlikeOnSurfaceInkAndPage)
{
    const MessageLog log;
    drawAndCommit();
    Layers layers;
    layers.draw(*graph);
    EXPECT_EQ(isBlank(layers.surface), GetParam().paintsCommitted.empty() || is(NeedsItsLayers));
    EXPECT_TRUE(samePixels(layers.ink, layers.surface));
    EXPECT_TRUE(samePixels(layers.page, layers.surface));
    EXPECT_TRUE(isBlank(layers.background));
}

TEST_P(Protocol, hostsRectangleIsNotChanged)
{
    const MessageLog log;
    drawAndCommit();
    QImage image = blankCanvas();
    QPainter painter(&image);
    QRect rect(50, 60, 70, 80);
    graph->Draw(painter, rect);
    EXPECT_EQ(rect, QRect(50, 60, 70, 80));
}

TEST_P(Protocol, unopenedPaintersAreHarmless)
{
    const MessageLog log;
    for (const bool committed : {false, true}) {
        const Graph object = make();
        GetParam().form(*object);
        if (committed)
            object->FinishGraph();
        QPainter p1, p2, p3, p4;
        QRect all(0, 0, 400, 300);
        object->Draw(p1, all);
        object->Draw(p1, p2, p3, p4, all, 1, 0);
        EXPECT_FALSE(p1.isActive());
    }
    // Qt says that the painter is not active, and the tools nothing but their lines at debug level.
    for (const MessageLog::Line &line : log.lines)
        EXPECT_TRUE(line.type == QtDebugMsg || line.text.startsWith("QPainter::")) << line.text.toStdString();
}

// What every tool reports to be repainted.

#include "Exact.h"
#include "MessageLog.h"
#include "Protocol.h"

#include <cstring>

namespace {

struct Event
{
    int code;
    QPoint at;
};

// Drawn, and where the tool is edited: moved, then committed by a press far away.
constexpr Event kLife[] = {
    {PT_DOWN, {100, 100}}, {PT_MOVE, {150, 130}}, {PT_MOVE, {170, 190}}, {PT_UP, {200, 160}},   {PT_DOWN, {150, 130}},
    {PT_MOVE, {160, 110}}, {PT_UP, {165, 115}},   {PT_DOWN, {390, 290}}, {PT_MOVE, {380, 280}}, {PT_UP, {370, 270}},
};

// Layers of a page in use: every one has pixels that a tool can take away.
struct UsedLayers
{
    UsedLayers()
        : page(blankCanvas({400, 300}, Qt::white))
        , surface(blankCanvas())
        , background(blankCanvas({400, 300}, QColor(20, 120, 220)))
        , ink(blankCanvas({400, 300}, QColor(200, 40, 40, 120)))
    {
    }

    void draw(CInkGraph &graph)
    {
        QPainter p1(&page), p2(&surface), p3(&background), p4(&ink);
        graph.Draw(p1, p2, p3, p4, page.rect(), 0, 0);
    }

    QImage page, surface, background, ink;
};

// Where two images of one size differ.
QRect difference(const QImage &a, const QImage &b)
{
    QRect box;
    for (int y = 0; y < a.height(); ++y) {
        if (std::memcmp(a.constScanLine(y), b.constScanLine(y), std::size_t(a.bytesPerLine())) == 0)
            continue;
        for (int x = 0; x < a.width(); ++x) {
            if (a.pixel(x, y) != b.pixel(x, y))
                box |= QRect(x, y, 1, 1);
        }
    }
    return box;
}

} // namespace

INK_OVER_ALL_TOOLS;

TEST_P(Protocol, updateIsUnitedAndNeverCleared)
{
    const Graph twin = make();
    QRect collected(1000, 1000, 5, 5);
    for (const Event &event : kLife) {
        QRect alone; // what this event alone reports
        twin->AddPoint(event.code, event.at, alone);
        const QRect before = collected;
        graph->AddPoint(event.code, event.at, collected);
        const bool assigns = is(AssignsUpdate) && !alone.isNull();
        EXPECT_EQ(collected, assigns ? alone : before | alone);
    }
    EXPECT_EQ(collected.contains(QRect(1000, 1000, 5, 5)), !is(AssignsUpdate));
}

TEST_P(Protocol, dragReportsAllThatItPassed)
{
    QRect update;
    graph->AddPoint(PT_DOWN, QPoint(100, 100), update);
    graph->AddPoint(PT_MOVE, QPoint(150, 130), update);
    EXPECT_EQ(update.contains(QRect(QPoint(100, 100), QPoint(150, 130))), !is(ReportsNewestStep));
}

TEST_P(Protocol, everyEventReportsWhatTheObjectThenCovers)
{
    for (const Event &event : kLife) {
        const bool ignored = graph->m_bFinished || (is(PressReachesCommitted) && event.code != PT_DOWN);
        QRect update;
        graph->AddPoint(event.code, event.at, update);
        const QRect covered = graph->GetUpdateRect();
        EXPECT_TRUE(ignored || covered.isEmpty() || update.contains(covered)) << "code " << event.code;
    }
}

TEST_P(Protocol, everyPixelLiesInWhatIsReported)
{
    const MessageLog log;
    QRect update;
    graph->SetWidth(9);
    for (const Event &event : {Event{PT_DOWN, {100, 100}}, Event{PT_MOVE, {160, 190}}, Event{PT_UP, {200, 160}}})
        graph->AddPoint(event.code, event.at, update);
    const QImage whole = drawn(*graph);
    const QImage reported = painted([&](QPainter &painter) { painter.drawImage(update, whole, update); });
    EXPECT_TRUE(samePixels(reported, whole));
    EXPECT_EQ(isBlank(whole), is(OwnDrawIsEmpty));
}

TEST_P(Protocol, everyPixelOfUsedLayersLiesInWhatIsReported)
{
    const MessageLog log;
    QRect update;
    graph->SetWidth(9);
    graph->SetColor(Qt::darkGreen);
    bool changedAny = false;
    for (const Event &event : kLife) {
        // A fill is assigned the canvas at its press; what later events leave is still to be repainted.
        QRect reported;
        graph->AddPoint(event.code, event.at, reported);
        update |= reported;
        UsedLayers layers;
        const UsedLayers before;
        layers.draw(*graph);
        for (const auto &[now, then] :
             {std::pair(&layers.page, &before.page), {&layers.surface, &before.surface}, {&layers.ink, &before.ink}}) {
            const QRect changed = difference(*now, *then);
            changedAny = changedAny || !changed.isNull();
            const bool reportsAll = !is(ReportsNewestStep) || graph->m_bFinished;
            EXPECT_TRUE(changed.isNull() || update.contains(changed) || !reportsAll)
                << changed << " outside " << update;
        }
        EXPECT_TRUE(samePixels(layers.background, before.background));
    }
    EXPECT_EQ(changedAny, !is(NeverEdited) || !GetParam().paintsCommitted.empty());
}

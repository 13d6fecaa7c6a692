// What the guide says of objects that others draw, and of storing objects by their fields.

#include "GuideTools.h"
#include "Sharing.h"
#include "Storage.h"

#include "CInkColorBrush.h"
#include "CInkCrayon.h"
#include "CInkFloodFillEx.h"
#include "CInkPencil.h"
#include "CInkRectangle.h"

#include <QtCore/QBuffer>
#include <QtCore/QDataStream>

using Guide::Page;
using Guide::Person;

namespace {

constexpr QRgb kWhite = 0xFFFFFFFF, kGreen = 0xFF00FF00;
const Person kAnn{0x0A000001, "Ann"}, kBob{0x0A000002, "Bob"};

QByteArray saved(const CInkGraph &object)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    Guide::save(out, object);
    return bytes;
}

void loadInto(CInkGraph &object, const QByteArray &bytes)
{
    QDataStream in(bytes);
    Guide::load(in, object);
    ASSERT_EQ(in.status(), QDataStream::Ok);
    ASSERT_TRUE(in.atEnd());
}

// A fill on a page with a line across its middle, pressed above it.
CInkFloodFillEx &pressedFill(Page &page, const Person &here)
{
    committed(page, made<CInkPencil>(Qt::black, 5), {0, 150}, {399, 150});
    auto &fill = static_cast<CInkFloodFillEx &>(page.begin(made<CInkFloodFillEx>(Qt::green, 1, kPage)));
    Guide::setPeople(fill, kAnn, here);
    page.feed(fill, PT_DOWN, {200, 50});
    return fill;
}

void expectEqual(const Guide::Layers &layers, const Guide::Layers &expected)
{
    EXPECT_EQ(layers.page, expected.page);
    EXPECT_EQ(layers.surface, expected.surface);
    EXPECT_EQ(layers.ink, expected.ink);
}

class Storing : public ::testing::TestWithParam<Tool>
{
protected:
    // The object and its copy by fields paint the same on layers with something to erase and to lift.
    void expectCopyToPaintAlike()
    {
        const Graph copy(GetParam().make());
        loadInto(*copy, saved(*graph));
        Guide::Layers layers(kPage);
        CInkPencil ink;
        ink.SetWidth(20);
        drag(ink, {0, 130}, {399, 130});
        layers.draw(ink, layers.rect());
        Guide::Layers copied = layers;
        layers.draw(*graph, layers.rect());
        copied.draw(*copy, copied.rect());
        expectEqual(copied, layers);
        EXPECT_EQ(copy->GetUpdateRect(), graph->GetUpdateRect());
    }

    const Silence silence;
    const Graph graph{GetParam().make()};
};

INSTANTIATE_TEST_SUITE_P(Tools, Storing, ::testing::ValuesIn(allTools()),
                         [](const auto &row) { return row.param.name; });

} // namespace

// The drawer's screen computes the fill, the other is handed its pixels; both pages are the same then.
TEST(Sharing, fillComesOutTheSameOnBothScreens)
{
    Page ann(kPage), bob(kPage);
    CInkFloodFillEx &hers = pressedFill(ann, kAnn);
    CInkFloodFillEx &his = pressedFill(bob, kBob);
    EXPECT_EQ(his.GetBitmap(), nullptr);
    EXPECT_EQ(ann.layers().page.pixel(200, 50), kWhite); // the page waits for the commit

    QByteArray bytes = Guide::computedFill(hers, bob.layers());
    EXPECT_EQ(hers.IsBitmapGetted(), 1);
    hers.FinishGraph();
    ann.commit(hers);
    his.SetFloodFillBitmap(bytes.data(), bytes.size());
    EXPECT_EQ(his.m_bFinished, 1);
    bob.commit(his);

    EXPECT_EQ(ann.layers().page.pixel(200, 50), kGreen);
    EXPECT_EQ(ann.layers().page.pixel(200, 250), kWhite);
    expectEqual(bob.layers(), ann.layers());
    EXPECT_EQ(ann.layers().ink.pixel(200, 50), kGreen);
}

TEST(Sharing, fillPaintsThePageAtItsFirstDrawAndTheOthersAtItsCommit)
{
    Guide::Layers layers(kPage);
    CInkFloodFillEx fill(kPage);
    fill.SetColor(QColor(0, 255, 0));
    feed(fill, PT_DOWN, 200, 50);
    layers.draw(fill, layers.rect());
    EXPECT_EQ(layers.page.pixel(200, 50), kGreen);
    EXPECT_EQ(layers.surface.pixel(200, 50), kWhite);
    EXPECT_EQ(layers.ink.pixel(200, 50), 0U);
    fill.FinishGraph();
    layers.draw(fill, layers.rect());
    EXPECT_EQ(layers.surface.pixel(200, 50), kGreen);
    EXPECT_EQ(layers.ink.pixel(200, 50), kGreen);
}

TEST(Sharing, computingLeavesTheLayersAsTheyAre)
{
    const Guide::Layers layers(kPage);
    CInkFloodFillEx fill(kPage);
    fill.SetColor(QColor(0, 255, 0));
    feed(fill, PT_DOWN, 200, 50);
    EXPECT_FALSE(Guide::computedFill(fill, layers).isEmpty());
    expectEqual(layers, Guide::Layers(kPage));
}

TEST(Sharing, nothingToFillAndSomebodyElsesFillGiveNoBytes)
{
    const Guide::Layers layers(kPage);
    CInkFloodFillEx white(kPage), foreign(kPage);
    white.SetColor(Qt::white);
    Guide::setPeople(foreign, kAnn, kBob);
    for (CInkFloodFillEx *fill : {&white, &foreign}) {
        feed(*fill, PT_DOWN, 200, 50);
        EXPECT_TRUE(Guide::computedFill(*fill, layers).isEmpty());
    }
}

// A JPEG picture has no alpha: the fill covers the whole page.
TEST(Sharing, bytesWithoutAlphaCoverTheOthersPage)
{
    Page ann(kPage), bob(kPage);
    CInkFloodFillEx &hers = pressedFill(ann, kAnn);
    CInkFloodFillEx &his = pressedFill(bob, kBob);
    Guide::computedFill(hers, ann.layers());
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    hers.GetBitmap()->save(&buffer, "JPG");
    his.SetFloodFillBitmap(bytes.data(), bytes.size());
    bob.commit(his);
    EXPECT_NE(bob.layers().page.pixel(200, 250), kWhite);
}

TEST(Sharing, handlesOnTheDrawersScreenAndAShadeOnTheOthers)
{
    const auto formed = [](const Person &here) {
        auto box = std::make_unique<CInkRectangle>();
        Guide::setPeople(*box, kAnn, here);
        drag(*box, {100, 100}, {200, 160});
        return drawn(*box);
    };
    const Silence silence;
    EXPECT_EQ(formed(kAnn).pixel(150, 60), 0xFF4040FFU); // the knob
    EXPECT_EQ(formed(kBob).pixel(150, 60), 0U);
    EXPECT_EQ(qAlpha(formed(kAnn).pixel(150, 130)), 0);
    EXPECT_EQ(formed(kBob).pixel(150, 130), qPremultiply(qRgba(50, 50, 50, 60)));
}

// The same events, painted at each of them and painted once at the end.
TEST(Sharing, crayonThatIsPaintedAtItsCommitAloneIsAnotherPicture)
{
    const auto lines = [](CInkGraph &graph, Guide::Layers &layers, bool atEachEvent) {
        for (const QPoint &pt : {QPoint(50, 100), QPoint(120, 150), QPoint(200, 90), QPoint(300, 160)}) {
            feed(graph, pt.x() == 50 ? PT_DOWN : PT_MOVE, pt.x(), pt.y());
            if (atEachEvent)
                layers.draw(graph, layers.rect());
        }
        feed(graph, PT_UP, 300, 160);
        layers.draw(graph, layers.rect());
    };
    Guide::Layers drawer(kPage), other(kPage), copied(kPage);
    CInkCrayon hers(kPage), his(kPage), copy(kPage);
    lines(hers, drawer, true);
    lines(his, other, false);
    EXPECT_NE(other.page, drawer.page);
    loadInto(copy, saved(hers));
    copied.draw(copy, copied.rect());
    EXPECT_EQ(copied.page, drawer.page);

    Guide::Layers brushed(kPage), brushedOnce(kPage);
    CInkColorBrush atEach(kPage), once(kPage);
    lines(atEach, brushed, true);
    lines(once, brushedOnce, false);
    EXPECT_EQ(brushedOnce.page, brushed.page);
}

// The page and the ink are as before, and the object's turn paints what it would have painted at once.
TEST_P(Storing, waitingObjectIsShownAndPaintedInItsTurn)
{
    GetParam().drawAndCommit(*graph);
    Guide::Layers waiting(kPage), atOnce(kPage);
    for (Guide::Layers *layers : {&waiting, &atOnce}) {
        CInkPencil ink;
        ink.SetWidth(20);
        drag(ink, {0, 130}, {399, 130});
        layers->draw(ink, layers->rect());
    }
    const Guide::Layers before = waiting;
    Guide::showWaiting(waiting, *graph);
    EXPECT_EQ(waiting.page, before.page);
    EXPECT_EQ(waiting.ink, before.ink);
    const QImage shown = waiting.surface;
    waiting.restore(waiting.rect());
    waiting.draw(*graph, waiting.rect());
    EXPECT_EQ(shown, waiting.surface);

    const Graph twin(GetParam().make());
    GetParam().drawAndCommit(*twin);
    atOnce.draw(*twin, atOnce.rect());
    EXPECT_EQ(waiting.page, atOnce.page);
    EXPECT_EQ(waiting.ink, atOnce.ink);
}

TEST_P(Storing, committedObjectPaintsAlike)
{
    GetParam().drawAndCommit(*graph);
    expectCopyToPaintAlike();
}

TEST_P(Storing, paintedObjectPaintsAlike)
{
    GetParam().form(*graph);
    Guide::Layers layers(kPage);
    layers.draw(*graph, layers.rect());
    graph->FinishGraph();
    expectCopyToPaintAlike();
}

TEST_P(Storing, objectInProgressPaintsAlike)
{
    feed(*graph, PT_DOWN, 100, 100);
    feed(*graph, PT_MOVE, 150, 170);
    expectCopyToPaintAlike();
}

TEST_P(Storing, editedObjectGoesOnAlike)
{
    GetParam().form(*graph);
    if (!graph->m_bEditMode || graph->m_bFinished)
        return;
    const Graph copy(GetParam().make());
    loadInto(*copy, saved(*graph));
    for (CInkGraph *one : {graph.get(), copy.get()}) {
        drag(*one, {150, 130}, {170, 140});
        drag(*one, {105, 100}, {80, 70});
    }
    EXPECT_EQ(copy->m_graphData, graph->m_graphData);
    EXPECT_EQ(copy->m_rcHot, graph->m_rcHot);
    expectCopyToPaintAlike();
}

// What the guide says of several objects in progress, of rebuilding a page and of opening its objects again.

#include "GuideTools.h"
#include "MessageLog.h"

#include "CInk1ArrowLine.h"
#include "CInkBrush.h"
#include "CInkColorBrush.h"
#include "CInkCrayon.h"
#include "CInkEllipse.h"
#include "CInkEraser.h"
#include "CInkFlatBrush.h"
#include "CInkFloodFill.h"
#include "CInkFloodFillEx.h"
#include "CInkHighLightPen.h"
#include "CInkLine.h"
#include "CInkPencil.h"
#include "CInkPicTure.h"
#include "CInkPolygon.h"
#include "CInkRectangle.h"
#include "CInkRgnSelect.h"
#include "CInkSprayGun.h"
#include "CInkText.h"

#include <random>

using Guide::Page;

namespace {

constexpr QRgb kWhite = 0xFFFFFFFF, kRed = 0xFFFF0000, kGreen = 0xFF00FF00, kBlue = 0xFF0000FF;

// One object of each kind that leaves its mark in a way of its own. Copies of an object are fed alike.
std::vector<Page::Object> crowd()
{
    const QColor translucent(0, 0, 255, 100);
    std::vector<Page::Object> all;
    all.push_back(made<CInkPencil>(translucent, 6));
    all.push_back(made<CInkHighLightPen>(Qt::darkGreen, 20));
    all.push_back(made<CInkFlatBrush>(translucent, 16));
    all.push_back(made<CInkColorBrush>(Qt::red, 20, kPage));
    all.push_back(made<CInkCrayon>(Qt::darkYellow, 20, kPage));
    all.push_back(made<CInkSprayGun>(Qt::magenta, 1, kPage));
    all.push_back(made<CInkEraser>(Qt::black, 25));
    all.push_back(made<CInkBrush>(translucent, 40));
    all.push_back(made<CInkRectangle>(translucent, 8));
    all.push_back(made<CInkEllipse>(Qt::darkCyan, 5));
    all.push_back(made<CInkPolygon>(translucent, 4));
    all.push_back(made<CInkLine>(translucent, 9));
    all.push_back(made<CInk1ArrowLine>(Qt::darkRed, 5));
    return all;
}

// A grey page with some ink on it, so that the eraser has something to take away.
void layInk(Page &page)
{
    QImage paper(kPage, QImage::Format_RGB32);
    paper.fill(QColor(200, 220, 200));
    page.setBackground(paper);
    committed(page, made<CInkPencil>(Qt::black, 30), {0, 150}, {399, 150});
}

} // namespace

namespace {

// Objects in progress on a page, and their twins, which are never painted on it.
class InProgress
{
public:
    explicit InProgress(std::vector<Page::Object> objects, std::vector<Page::Object> twins)
        : m_twins(std::move(twins))
        , m_isPressed(m_twins.size())
    {
        layInk(page);
        for (Page::Object &object : objects)
            m_objects.push_back(&page.begin(std::move(object)));
    }

    void feed(std::size_t which, const QPoint &pt)
    {
        const int code = m_isPressed[which] ? PT_MOVE : PT_DOWN;
        m_isPressed[which] = true;
        page.feed(*m_objects[which], code, pt);
        ::feed(*m_twins[which], code, pt.x(), pt.y());
    }

    // The page with each of them painted on it once, in their order.
    QImage expected()
    {
        Guide::Layers layers = page.layers();
        layers.restore(layers.rect());
        for (const auto &twin : m_twins)
            layers.draw(*twin, layers.rect());
        return layers.surface;
    }

    Page page{kPage};

private:
    std::vector<CInkGraph *> m_objects;
    std::vector<Page::Object> m_twins;
    std::vector<bool> m_isPressed;
};

} // namespace

TEST(GuidePage, eachOfManyObjectsIsRepaintedWithoutWipingTheOthers)
{
    const Silence silence;
    InProgress all(crowd(), crowd());
    const int count = int(crowd().size());
    std::mt19937 random(5);
    const auto below = [&](int end) { return int(random() % unsigned(end)); };
    for (int i = 0; i < 130; ++i) {
        const int which = below(count);
        all.feed(std::size_t(which), {20 + below(360), 20 + below(260)});
        ASSERT_EQ(all.page.layers().surface, all.expected()) << "event " << i << " of object " << which;
    }
}

// Two on a page, one of which wanders over the other: what is repainted is a small part.
TEST(GuidePage, wanderingObjectLeavesTheOtherAsItIs)
{
    const Silence silence;
    const std::size_t count = crowd().size();
    for (std::size_t which = 0; which < count; ++which) {
        const auto pair = [which] {
            std::vector<Page::Object> objects;
            objects.push_back(made<CInkHighLightPen>(Qt::darkGreen, 20));
            objects.push_back(std::move(crowd()[which]));
            return objects;
        };
        InProgress two(pair(), pair());
        committed(two.page, made<CInkBrush>(Qt::darkBlue, 600), {0, 150}, {399, 150}); // ink all over
        two.feed(0, {150, 100});
        two.feed(0, {250, 200});
        std::mt19937 random(7);
        two.feed(1, {60, 60});
        QPoint pt(200, 150); // a long first move
        for (int i = 0; i < 60; ++i) {
            two.feed(1, pt);
            ASSERT_EQ(two.page.layers().surface, two.expected()) << "event " << i << " of object " << which;
            pt += QPoint(int(random() % 121) - 60, int(random() % 121) - 60);
        }
    }
}

TEST(GuidePage, repaintReportsWhatHasChanged)
{
    const Silence silence;
    Page page(kPage);
    layInk(page);
    std::vector<CInkGraph *> objects;
    for (Page::Object &object : crowd())
        objects.push_back(&page.begin(std::move(object)));
    std::mt19937 random(6);
    std::vector<bool> isPressed(objects.size());
    for (int i = 0; i < 100; ++i) {
        const std::size_t which = random() % objects.size();
        const QPoint pt(int(random() % 400), int(random() % 300));
        QImage shown = page.layers().surface.copy();
        const QRect area = page.feed(*objects[which], isPressed[which] ? PT_MOVE : PT_DOWN, pt);
        isPressed[which] = true;
        if (!area.isEmpty())
            QPainter(&shown).drawImage(area.topLeft(), page.layers().surface, area);
        ASSERT_EQ(shown, page.layers().surface) << "event " << i << " of object " << which;
    }
}

TEST(GuidePage, committedObjectLiesBelowThoseInProgress)
{
    Page page(kPage);
    CInkGraph &first = page.begin(made<CInkPencil>(Qt::red, 10));
    CInkGraph &second = page.begin(made<CInkPencil>(Qt::blue, 10));
    for (CInkGraph *pencil : {&first, &second}) {
        const bool lies = pencil == &first;
        page.feed(*pencil, PT_DOWN, lies ? QPoint(50, 100) : QPoint(100, 50));
        page.feed(*pencil, PT_MOVE, lies ? QPoint(150, 100) : QPoint(100, 150));
    }
    EXPECT_EQ(page.layers().surface.pixel(100, 100), kBlue);
    page.feed(second, PT_UP, {100, 150});
    EXPECT_EQ(page.layers().page.pixel(100, 100), kBlue);
    EXPECT_EQ(page.layers().surface.pixel(100, 100), kRed);
    page.feed(first, PT_UP, {150, 100});
    EXPECT_EQ(page.layers().page.pixel(100, 100), kRed); // committed last
    EXPECT_EQ(page.layers().surface, page.layers().page);
}

TEST(GuidePage, cancelledObjectLeavesNothing)
{
    const Silence silence;
    for (Page::Object &object : crowd()) {
        Page page(kPage);
        layInk(page);
        const Guide::Layers before = page.layers();
        CInkGraph &graph = page.begin(std::move(object));
        for (const QPoint &pt : {QPoint(100, 100), QPoint(150, 160), QPoint(200, 140)})
            page.feed(graph, pt.x() == 100 ? PT_DOWN : PT_MOVE, pt);
        page.cancel(graph);
        EXPECT_EQ(page.layers().surface, before.surface);
        EXPECT_EQ(page.layers().page, before.page);
        EXPECT_EQ(page.layers().ink, before.ink);
    }
}

// Nothing in progress, so the surface is the page, although objects are clipped to less once they are committed.
TEST(GuidePage, surfaceIsThePageAfterEachCommit)
{
    const Silence silence;
    for (Page::Object &object : crowd()) {
        Page page(kPage);
        layInk(page);
        object->SetWidth(150);
        committed(page, std::move(object), {100, 100}, {250, 180});
        EXPECT_EQ(page.layers().surface, page.layers().page);
    }
}

// The painting of the commit alone does not do: a thick stroke in progress reaches beyond the frame of a committed one.
TEST(GuidePage, thickStrokeLeavesItsRimOnASurfaceThatIsNotRestored)
{
    Guide::Layers layers(kPage);
    CInkPencil pencil;
    pencil.SetWidth(150);
    feed(pencil, PT_DOWN, 150, 150);
    feed(pencil, PT_MOVE, 250, 150);
    layers.draw(pencil, layers.rect());
    const QRect area = feed(pencil, PT_UP, 250, 150) | pencil.GetUpdateRect();
    layers.restore(area);
    layers.draw(pencil, area);
    EXPECT_EQ(layers.page.pixel(200, 90), kWhite); // 60 above the stroke's middle, 32 of which the frame shows
    EXPECT_EQ(layers.page.pixel(200, 120), 0xFF000000U);
    layers.restore(layers.rect());
    EXPECT_EQ(layers.surface, layers.page);
}

TEST(GuidePage, rebuiltPageIsTheSamePixelForPixel)
{
    const Silence silence;
    Page page(kPage);
    layInk(page);
    for (Page::Object &object : crowd())
        committed(page, std::move(object), {60, 60}, {300, 220});
    committed(page, made<CInkRgnSelect>(Qt::black, 1), {100, 100}, {200, 200});
    committed(page, made<CInkFloodFill>(Qt::green, 1, kPage), {5, 5}, {5, 5});
    const Guide::Layers before = page.layers();
    page.rebuild();
    EXPECT_EQ(page.layers().page, before.page);
    EXPECT_EQ(page.layers().ink, before.ink);
    EXPECT_EQ(page.layers().surface, before.surface);
}

// The rectangle is part of the picture: this brush is wider than the frame that its clip is united with.
TEST(GuidePage, otherRectangleGivesAnotherPicture)
{
    CInkBrush brush;
    brush.SetWidth(150);
    drag(brush, {150, 150}, {250, 150});
    Guide::Layers whole(kPage), part(kPage);
    whole.draw(brush, whole.rect());
    part.draw(brush, QRect(200, 150, 1, 1));
    EXPECT_EQ(whole.page.pixel(200, 90), 0xFF000000U);
    EXPECT_EQ(part.page.pixel(200, 90), kWhite);
    EXPECT_EQ(part.page.pixel(200, 120), 0xFF000000U);
}

TEST(GuidePage, newBackgroundIsWhatErasersShow)
{
    Page page(kPage);
    committed(page, made<CInkPencil>(Qt::red, 40), {50, 100}, {350, 100});
    committed(page, made<CInkEraser>(Qt::black, 20), {200, 50}, {200, 150});
    EXPECT_EQ(page.layers().page.pixel(200, 100), kWhite);
    QImage green(kPage, QImage::Format_RGB32);
    green.fill(Qt::green);
    page.setBackground(green);
    EXPECT_EQ(page.layers().page.pixel(200, 100), kGreen);
    EXPECT_EQ(page.layers().page.pixel(100, 100), kRed);
}

// Without the line, the plain fill flows over the whole page; the other one keeps what it has filled.
TEST(GuidePage, fillsDifferOnceAnObjectBelowThemIsGone)
{
    for (const bool keeps : {false, true}) {
        Page page(kPage);
        CInkGraph &line = committed(page, made<CInkPencil>(Qt::black, 5), {0, 150}, {399, 150});
        Page::Object fill =
            keeps ? made<CInkFloodFillEx>(Qt::green, 1, kPage) : made<CInkFloodFill>(Qt::green, 1, kPage);
        committed(page, std::move(fill), {200, 50}, {200, 50});
        EXPECT_EQ(page.layers().page.pixel(200, 50), kGreen);
        EXPECT_EQ(page.layers().page.pixel(200, 250), kWhite);
        page.remove(line);
        EXPECT_EQ(page.layers().page.pixel(200, 50), kGreen);
        EXPECT_EQ(page.layers().page.pixel(200, 250), keeps ? kWhite : kGreen);
    }
}

// A hole stays with the selection, and the lifted pixels with the picture that shows them.
TEST(GuidePage, liftedPixelsOutliveWhatTheyWereLiftedFrom)
{
    Page page(kPage);
    CInkGraph &stroke = committed(page, made<CInkPencil>(Qt::red, 20), {50, 100}, {350, 100});
    CInkGraph &selection = committed(page, made<CInkRgnSelect>(Qt::black, 1), {100, 80}, {200, 120});
    EXPECT_EQ(page.layers().page.pixel(150, 100), kWhite);
    QImage lifted = selection.m_pImage->copy();
    CInkGraph &picture = page.begin(std::make_unique<CInkPicTure>(&lifted, QPoint(100, 200)));
    page.finish(picture);
    EXPECT_EQ(page.layers().page.pixel(150, 220), kRed);
    page.remove(stroke);
    EXPECT_EQ(page.layers().page.pixel(150, 100), kWhite);
    EXPECT_EQ(page.layers().page.pixel(150, 220), kRed);
}

// A box from (100,100) to (240,160), turned by a quarter about (150,130), which was its middle before it was stretched.
TEST(GuidePage, finishingATurnedBoxThatWasStretchedMovesIt)
{
    const Silence silence;
    const auto committedBy = [](bool finishes) {
        CInkRectangle box;
        drag(box, {100, 100}, {200, 160});
        box.m_fRotateAngle = 90;
        box.m_graphData[1].setX(240);
        if (finishes)
            box.FinishGraph();
        else
            feed(box, PT_DOWN, 390, 10);
        return drawn(box);
    };
    const QImage pressed = committedBy(false), finished = committedBy(true);
    EXPECT_EQ(pressed.pixel(120, 150), 0xFF000000U);
    EXPECT_EQ(pressed.pixel(140, 150), 0U);
    EXPECT_EQ(finished.pixel(120, 150), 0U);
    EXPECT_EQ(finished.pixel(140, 150), 0xFF000000U); // about (170,130) now
}

TEST(GuidePage, arrowLinesLeaveNoStatesForQtToComplainOf)
{
    const MessageLog log;
    Page page(kPage);
    CInkGraph &arrow = page.begin(made<CInk1ArrowLine>(Qt::red, 5));
    page.feed(arrow, PT_DOWN, {50, 50});
    page.feed(arrow, PT_MOVE, {150, 50});
    page.feed(arrow, PT_UP, {150, 50});
    page.finish(arrow);
    page.rebuild();
    EXPECT_TRUE(log.lines.isEmpty());
}

namespace {

class Reopening : public ::testing::TestWithParam<Tool>
{
protected:
    const Silence silence;
};

INSTANTIATE_TEST_SUITE_P(Tools, Reopening, ::testing::ValuesIn(allTools()),
                         [](const auto &row) { return row.param.name; });

// By hand: what has handles once it is formed, but for selection and text, of which the test has no editor.
bool hasHandles(const Tool &tool)
{
    return !tool.is(NeverEdited) && tool.name != "CInkRgnSelect";
}

} // namespace

// A press outside, and back: the object has its handles again, and the page below it is what it was.
TEST_P(Reopening, committedObjectIsEditedAgainAsItWasLeft)
{
    Page page(kPage);
    CInkGraph &graph = page.begin(Graph(GetParam().make()));
    if (!GetParam().is(BornSelected)) {
        page.feed(graph, PT_DOWN, {100, 100});
        page.feed(graph, PT_MOVE, {200, 160});
        page.feed(graph, PT_UP, {200, 160});
        for (const QPoint &tap : GetParam().taps) {
            for (const int code : {PT_DOWN, PT_UP})
                page.feed(graph, code, tap);
        }
    }
    page.rebuild(); // a picture has had no event that would have shown it
    const bool isEdited = graph.m_bEditMode && !graph.m_bFinished;
    const QImage edited = page.layers().surface.copy();
    if (isEdited)
        page.feed(graph, PT_DOWN, {380, 290});
    if (GetParam().handOver) {
        GetParam().handOver(graph);
        page.commit(graph);
    } else if (!graph.m_bFinished) {
        page.finish(graph);
    }

    const bool opens = hasHandles(GetParam()) && isEdited;
    EXPECT_EQ(Guide::canReopen(graph), opens);
    const QRect changed = page.reopen(graph);
    EXPECT_EQ(changed.isNull(), !opens);
    if (!opens)
        return;
    EXPECT_EQ(page.layers().surface, edited);
    EXPECT_EQ(page.layers().page, Guide::Layers(kPage).page);
    EXPECT_TRUE(page.committed().empty());
}

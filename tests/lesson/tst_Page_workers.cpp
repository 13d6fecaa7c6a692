// What is done by several hands comes out as one does it.

#include "PageKit.h"

#include "PointerEvent.h"
#include "RandomCases.h"
#include "Threads.h"

#include "lesson/objects/Tools.h"

#include <atomic>

using namespace PageKit;

namespace {

constexpr QSize kSize(400, 300);
constexpr int kObjects = 150;

// An object of each tool in turn, each somewhere else.
std::vector<Life> lives(unsigned seed, const QSize &page = kSize, int widest = 12)
{
    Random random(seed);
    std::vector<Life> lives;
    for (int i = 0; i < kObjects; ++i) {
        const Tool &tool = tools()[std::size_t(i) % tools().size()];
        Life life{QLatin1String(tool.name)};
        life.ink.color = QColor(random.below(256), random.below(256), random.below(256), 1 + random.below(255));
        life.ink.width = 1 + random.below(widest);
        life.canvas = page;
        const auto anywhere = [&] { return QPoint(random.below(page.width()), random.below(page.height())); };
        life.acts.emplace_back(PointerAct{PT_DOWN, anywhere()});
        life.acts.emplace_back(PointerAct{PT_MOVE, anywhere()});
        life.acts.emplace_back(PointerAct{PT_UP, anywhere()});
        life.acts.emplace_back(FinishAct());
        lives.push_back(life);
    }
    return lives;
}

void fill(Page &page, const std::vector<Life> &lives)
{
    for (std::size_t i = 0; i < lives.size(); ++i)
        page.put(itemOf({1, int(i) + 1}, lives[i]), i);
}

} // namespace

TEST(Page, severalHandsPrepareWhatOneDoes)
{
    const std::vector<Life> objects = lives(1);
    Page one(kSize), several(kSize), literal(kSize);
    literal.keepSprites(false);
    for (Page *page : {&one, &several, &literal})
        fill(*page, objects);
    one.prepare([](double) {});
    Threads threads(3);
    several.lend(&threads);
    std::vector<double> told;
    several.prepare([&told](double share) { told.push_back(share); });
    EXPECT_EQ(threads.runs, 3); // 150 objects, 64 at once
    EXPECT_EQ(told, (std::vector<double>{64 / 150.0, 128 / 150.0, 1}));
    for (std::size_t i = 0; i < several.items().size(); ++i) {
        const Item &item = *several.items()[i];
        ASSERT_EQ(bool(item.sprite), bool(one.items()[i]->sprite)) << objects[i].tool.toStdString();
        if (item.sprite) {
            ASSERT_EQ(item.sprite->rect(), one.items()[i]->sprite->rect()) << objects[i].tool.toStdString();
        }
    }
    EXPECT_TRUE(samePixels(several.picture(), literal.picture()));
    EXPECT_TRUE(samePixels(several.ink(), literal.ink()));
}

// On half of the page and more, of one that is seen already.
TEST(Page, severalHandsPrepareWhatComesAtOnce)
{
    const std::vector<Life> objects = lives(3);
    Page page(kSize), small(kSize), literal(kSize);
    literal.keepSprites(false);
    Threads threads(2), none(2);
    page.lend(&threads);
    small.lend(&none);
    for (Page *one : {&page, &small, &literal})
        one->surface();
    EXPECT_EQ(threads.runs, 0);
    for (Page *one : {&page, &literal}) {
        fill(*one, objects);
        one->repaint();
    }
    EXPECT_EQ(threads.runs, 3); // 150 objects, 64 at once
    EXPECT_TRUE(samePixels(page.picture(), literal.picture()));
    EXPECT_TRUE(samePixels(page.ink(), literal.ink()));
    // With the pixels around them, 198 x 300 of 400 x 300, then 200 x 300.
    const auto paintTwo = [&small](int number, int width) {
        for (int i = 0; i < 2; ++i)
            small.put(itemOf({1, number + i}, lineLife({10, 2}, {10 + width, 297}, QColor(kRed))), 9);
        small.repaint();
    };
    paintTwo(1, 150);
    EXPECT_EQ(none.runs, 0);
    paintTwo(3, 250);
    EXPECT_EQ(none.runs, 1);
}

// Also where it has to be made again before.
TEST(Page, eachObjectIsPreparedOnce)
{
    Page page(kSize);
    std::atomic<int> made{};
    page.relive = [&](const ObjectId &) {
        ++made;
        Life life = lineLife({20, 20}, {60, 20}, QColor(kRed));
        life.tool = QStringLiteral("color-brush");
        return live(life).object;
    };
    for (int number = 1; number <= 4; ++number) {
        Life life = lineLife({20, 20}, {60, 20}, QColor(kRed));
        life.tool = QStringLiteral("color-brush");
        auto item = itemOf({1, number}, life);
        item->isBare = true;
        page.put(std::move(item), 9);
    }
    Threads threads(2);
    page.lend(&threads);
    page.prepare([](double) {});
    EXPECT_EQ(made, 4);
    for (const auto &item : page.items())
        EXPECT_EQ(item->sprite->rect(), page.items().front()->sprite->rect());
    EXPECT_EQ(threads.runs, 1);
}

// Each thing once, and each row.
TEST(Workers, doEverythingOnce)
{
    Threads threads(3);
    std::vector<int> done(10);
    shareOut(&threads, 10, [&done](int thing, int worker) {
        ASSERT_LT(worker, 3);
        ++done[std::size_t(thing)];
    });
    EXPECT_EQ(done, std::vector<int>(10, 1));
    EXPECT_EQ(threads.runs, 1);

    std::vector<int> rows(100);
    shareOut(&threads, QRect(5, 0, 7, 100), [&rows](const QRect &part) {
        ASSERT_EQ(part.left(), 5);
        ASSERT_EQ(part.width(), 7);
        ASSERT_LE(part.height(), 9); // twelve parts
        for (int y = part.top(); y <= part.bottom(); ++y)
            ++rows[std::size_t(y)];
    });
    EXPECT_EQ(rows, std::vector<int>(100, 1));
    EXPECT_EQ(threads.runs, 2);
}

// The caller does alone what is one thing, or of which no part would be worth a hand; all of it where there is no
// other.
TEST(Workers, areNotAskedForOneThing)
{
    Threads threads(2);
    std::vector<QRect> parts;
    const auto note = [&parts](const QRect &part) { parts.push_back(part); };
    shareOut(&threads, 1, [](int, int worker) { EXPECT_EQ(worker, 0); });
    shareOut(&threads, QRect(0, 0, 3, 8), note);
    shareOut(nullptr, QRect(0, 0, 3, 500), note);
    shareOut(&threads, QRect(), note);
    EXPECT_EQ(threads.runs, 0);
    EXPECT_EQ(parts, (std::vector<QRect>{QRect(0, 0, 3, 8), QRect(0, 0, 3, 500)}));
    std::atomic<int> count{};
    shareOut(&threads, QRect(0, 0, 3, 9), [&count](const QRect &) { ++count; });
    EXPECT_EQ(threads.runs, 1);
    EXPECT_EQ(count, 2);
}

// Also where nobody has prepared it.
TEST(Page, severalHandsPaintAPageFirst)
{
    const std::vector<Life> objects = lives(3);
    Page one(kSize), several(kSize);
    Threads threads(2);
    several.lend(&threads);
    for (Page *page : {&one, &several})
        fill(*page, objects);
    EXPECT_TRUE(samePixels(several.surface(), one.surface()));
    EXPECT_TRUE(samePixels(several.ink(), one.ink()));
    EXPECT_EQ(threads.runs, 3); // 150 objects, 64 at once; laying them down is little on a page this small
}

// What is large: repaints, papers, a page that comes back, and what is shown of it.
TEST(Page, severalHandsPaintWhatOneDoes)
{
    constexpr QSize kLarge(1100, 1000); // more than 2 to the 20th
    const std::vector<Life> objects = lives(2, kLarge, 60);
    Threads threads(3);
    Page one(kLarge), several(kLarge);
    several.lend(&threads);
    int runs = 0;
    const auto expectSame = [&](const char *after) {
        SCOPED_TRACE(after);
        EXPECT_TRUE(samePixels(several.picture(), one.picture()));
        EXPECT_TRUE(samePixels(several.ink(), one.ink()));
        EXPECT_TRUE(samePixels(several.surface(), one.surface()));
        EXPECT_GT(threads.runs, runs);
        runs = threads.runs;
    };
    for (Page *page : {&one, &several})
        fill(*page, objects);
    expectSame("the first painting");
    for (Page *page : {&one, &several}) {
        page->remove({1, 75});
        page->spoil();
        page->repaint();
    }
    expectSame("a repaint");
    for (Page *page : {&one, &several}) {
        page->setPaper({Paper::Kind::Squared, {}});
        page->repaint();
    }
    expectSame("another paper");
    for (Page *page : {&one, &several}) {
        page->pack();
        page->release();
    }
    expectSame("back from its note");
}

// A small page is painted before others have begun.
TEST(Page, isPaintedAloneWhereItIsSmall)
{
    constexpr QSize kBelow(1023, 1024), kFrom(1024, 1024);
    for (const QSize &size : {kBelow, kFrom}) {
        Page page(size);
        Threads threads(2);
        page.surface();
        page.lend(&threads);
        page.spoil();
        page.repaint(); // copies the page to the surface
        EXPECT_EQ(threads.runs, size == kFrom ? 1 : 0);
    }
}

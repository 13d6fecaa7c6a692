// What is done ahead by several hands comes out as one does it.

#include "PageKit.h"

#include "PointerEvent.h"
#include "RandomCases.h"

#include "lesson/objects/Tools.h"

#include <atomic>
#include <thread>

using namespace PageKit;

namespace {

constexpr QSize kSize(400, 300);
constexpr int kObjects = 150;

class Threads : public Workers
{
public:
    explicit Threads(int count)
        : m_count(count)
    {
    }
    int count() const override { return m_count; }
    void run(const std::function<void(int)> &work) override
    {
        ++runs;
        std::vector<std::thread> threads;
        for (int worker = 0; worker < m_count; ++worker)
            threads.emplace_back(work, worker);
        for (std::thread &thread : threads)
            thread.join();
    }

    int runs{};

private:
    const int m_count;
};

// An object of each tool in turn, each somewhere else.
std::vector<Life> lives(unsigned seed)
{
    Random random(seed);
    std::vector<Life> lives;
    for (int i = 0; i < kObjects; ++i) {
        const Tool &tool = tools()[std::size_t(i) % tools().size()];
        Life life{QLatin1String(tool.name)};
        life.ink.color = QColor(random.below(256), random.below(256), random.below(256), 1 + random.below(255));
        life.ink.width = 1 + random.below(12);
        life.canvas = kSize;
        const auto anywhere = [&] { return QPoint(random.below(kSize.width()), random.below(kSize.height())); };
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
    std::vector<double> told;
    several.prepare([&told](double share) { told.push_back(share); }, &threads);
    EXPECT_EQ(threads.runs, 3); // 150 objects, 64 at once
    ASSERT_EQ(told.size(), 150U);
    EXPECT_EQ(told[74], 0.5);
    EXPECT_EQ(told.back(), 1);
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
    page.prepare([](double) {}, &threads);
    EXPECT_EQ(made, 4);
    for (const auto &item : page.items())
        EXPECT_EQ(item->sprite->rect(), page.items().front()->sprite->rect());
    EXPECT_EQ(threads.runs, 1);
}

// Records that come together are read by all hands, and settle as if one had read them.

#include "LessonKit.h"
#include "Threads.h"

#include "Exact.h"
#include "RandomCases.h"

#include "lesson/fold/Lesson.h"
#include "lesson/log/RecordCode.h"
#include "lesson/objects/Tools.h"

#include "PointerEvent.h"

#include <gtest/gtest.h>

using namespace InkLesson;

namespace {

constexpr QSize kSize(200, 150);

// An object of each tool in turn, then a change of the first one.
std::vector<QByteArray> codes(int count)
{
    Random random(7);
    std::vector<QByteArray> codes;
    for (int number = 1; number < count; ++number) {
        const Tool &tool = tools()[std::size_t(number) % tools().size()];
        Life life{QLatin1String(tool.name)};
        life.ink.color = QColor(random.below(256), random.below(256), random.below(256));
        life.canvas = kSize;
        for (const int code : {PT_DOWN, PT_MOVE, PT_UP})
            life.acts.emplace_back(PointerAct{code, {random.below(kSize.width()), random.below(kSize.height())}});
        life.acts.emplace_back(FinishAct());
        codes.push_back(toCbor(record(1, number, Draw{exactLife(life)})));
    }
    codes.push_back(toCbor(record(1, count, Delete{{{1, 1}}})));
    return codes;
}

} // namespace

TEST(LessonWorkers, whatComesTogetherIsReadByAll)
{
    const std::vector<QByteArray> all = codes(100);
    Lesson one(Header{kSize}), several(Header{kSize});
    Threads threads(3);
    several.lend(&threads);
    for (Lesson *lesson : {&one, &several})
        EXPECT_TRUE(lesson->settle(all).empty());
    EXPECT_EQ(threads.runs, 6); // 16 at once; the last four by one
    EXPECT_EQ(several.settled(), 100U);
    Page &page = several.page(kFirstPage), &literal = one.page(kFirstPage);
    EXPECT_EQ(page.items().size(), literal.items().size());
    EXPECT_GT(page.items().size(), 40U);
    EXPECT_FALSE(page.item({1, 1}));
    EXPECT_TRUE(samePixels(page.picture(), literal.picture()));
    EXPECT_TRUE(samePixels(page.ink(), literal.ink()));
}

TEST(LessonWorkers, fewAreReadByOne)
{
    std::vector<QByteArray> all = codes(7);
    Threads threads(3);
    Lesson lesson(Header{kSize});
    lesson.lend(&threads);
    EXPECT_TRUE(lesson.settle(all).empty());
    EXPECT_EQ(threads.runs, 0);
    EXPECT_EQ(lesson.settled(), 7U);
}

// The others settle; so do those that stand twice, once.
TEST(LessonWorkers, whatNobodyCanReadIsTold)
{
    std::vector<QByteArray> all = codes(20);
    all[5] = "nothing";
    all[6] = all[4];
    Threads threads(2);
    Lesson lesson(Header{kSize});
    lesson.lend(&threads);
    std::vector<std::size_t> places;
    const Lesson::Refusals refusals = lesson.settle(all, &places);
    ASSERT_EQ(refusals.size(), 1U);
    EXPECT_EQ(refusals[0].id, kNothing);
    EXPECT_FALSE(refusals[0].problem.isEmpty());
    EXPECT_EQ(lesson.settled(), 18U);
    EXPECT_EQ(places, (std::vector<std::size_t>{1, 2, 3, 4, 5, 5, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18}));
}

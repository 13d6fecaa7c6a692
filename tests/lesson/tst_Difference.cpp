#include "lesson/pages/Difference.h"

#include <gtest/gtest.h>

using namespace InkLesson;

namespace {

std::vector<std::pair<int, int>> spansOf(const Difference &difference, int y)
{
    std::vector<std::pair<int, int>> spans;
    for (const Difference::Span *span = difference.begin(y); span != difference.end(y); ++span)
        spans.emplace_back(span->from, span->to);
    return spans;
}

} // namespace

TEST(Difference, isSpansOfEachRow)
{
    QImage before(10, 4, QImage::Format_RGB32), after(10, 4, QImage::Format_RGB32);
    before.fill(Qt::white);
    after.fill(Qt::white);
    for (const QPoint &pt : {QPoint(0, 1), QPoint(4, 1), QPoint(5, 1), QPoint(9, 1), QPoint(3, 3)})
        after.setPixel(pt, 0xFFFFFFFE);
    const auto difference = Difference::of(before, after);
    ASSERT_TRUE(difference);
    EXPECT_EQ(difference->height(), 4);
    using Spans = std::vector<std::pair<int, int>>;
    EXPECT_EQ(spansOf(*difference, 0), Spans());
    EXPECT_EQ(spansOf(*difference, 1), (Spans{{0, 1}, {4, 6}, {9, 10}}));
    EXPECT_EQ(spansOf(*difference, 2), Spans());
    EXPECT_EQ(spansOf(*difference, 3), (Spans{{3, 4}}));
}

// Every second pixel of 512 in 1024 rows is 262 144 spans; one more is too much.
TEST(Difference, tooManySpansAreNone)
{
    QImage before(512, 1025, QImage::Format_RGB32);
    before.fill(Qt::white);
    QImage after = before;
    for (int y = 0; y < 1024; ++y) {
        for (int x = 0; x < 512; x += 2)
            after.setPixel(x, y, 0xFF000000);
    }
    EXPECT_TRUE(Difference::of(before, after));
    after.setPixel(7, 1024, 0xFF000000);
    EXPECT_FALSE(Difference::of(before, after));
}

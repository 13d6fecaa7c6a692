#include "lesson/log/ActText.h"

#include "PointerEvent.h"

#include <gtest/gtest.h>

#include <limits>

using namespace InkLesson;

namespace {

constexpr int kLeast = std::numeric_limits<int>::min();
constexpr int kMost = std::numeric_limits<int>::max();

std::string written(const std::vector<Act> &acts)
{
    ActText writer;
    QByteArray text;
    for (const Act &act : acts)
        EXPECT_TRUE(writer.write(act, text));
    return text.toStdString();
}

bool isEvent(const Act &act, int code, int x, int y)
{
    const auto *event = std::get_if<PointerAct>(&act);
    return event && event->code == code && event->pt.x() == x && event->pt.y() == y;
}

// Whether the text is one that says nothing.
bool isRefused(const char *text)
{
    std::vector<Act> acts;
    return !ActText().read(text, acts);
}

} // namespace

TEST(ActText, eventsAreALetterAndTheWayFromThePlaceBefore)
{
    EXPECT_EQ(written({PointerAct{PT_DOWN, {120, 44}}, PointerAct{PT_MOVE, {123, 43}}, PointerAct{PT_UP, {123, 43}},
                       PointerAct{PT_DBLCLK, {-1, -2}}, FinishAct()}),
              "d120 44m3 -1u0 0c-124 -45f");
}

TEST(ActText, whatHasNoPlaceIsALetterAlone)
{
    EXPECT_EQ(written({FinishAct(), ReopenAct(), PaintAct()}), "frp");
}

TEST(ActText, anyOtherEventIsToldByItsCode)
{
    EXPECT_EQ(written({PointerAct{0, {1, 2}}, PointerAct{3, {1, 2}}, PointerAct{-7, {0, 0}}, PointerAct{6, {0, 5}}}),
              "e0 1 2e3 0 0e-7 -1 -2e6 0 5");
}

TEST(ActText, whatNeedsMoreIsNotWritten)
{
    ActText writer;
    QByteArray text("d1 1");
    EXPECT_FALSE(writer.write(ColorAct{Qt::red}, text));
    EXPECT_FALSE(writer.write(WidthAct{3}, text));
    EXPECT_FALSE(writer.write(DashAct{Qt::DotLine}, text));
    EXPECT_FALSE(writer.write(TextAct{QStringLiteral("a"), QImage(1, 1, QImage::Format_ARGB32)}, text));
    EXPECT_EQ(text, "d1 1");
}

TEST(ActText, placesGoOnWhereTheTextBeforeEnded)
{
    ActText reader;
    std::vector<Act> acts;
    ASSERT_TRUE(reader.read("d10 20", acts));
    ASSERT_TRUE(reader.read("m1 1f", acts));
    ASSERT_EQ(acts.size(), 3u);
    EXPECT_TRUE(isEvent(acts[0], PT_DOWN, 10, 20));
    EXPECT_TRUE(isEvent(acts[1], PT_MOVE, 11, 21));
    EXPECT_TRUE(std::holds_alternative<FinishAct>(acts[2]));

    ActText writer;
    QByteArray text;
    writer.write(PointerAct{PT_DOWN, {10, 20}}, text);
    text.clear();
    writer.write(PointerAct{PT_MOVE, {11, 21}}, text);
    EXPECT_EQ(text, "m1 1");
}

TEST(ActText, everyLetterIsRead)
{
    std::vector<Act> acts;
    ASSERT_TRUE(ActText().read("d1 2m3 4u5 6c7 8e9 -1 -1rpf", acts));
    ASSERT_EQ(acts.size(), 8u);
    EXPECT_TRUE(isEvent(acts[0], 1, 1, 2));
    EXPECT_TRUE(isEvent(acts[1], 5, 4, 6));
    EXPECT_TRUE(isEvent(acts[2], 2, 9, 12));
    EXPECT_TRUE(isEvent(acts[3], 4, 16, 20));
    EXPECT_TRUE(isEvent(acts[4], 9, 15, 19));
    EXPECT_TRUE(std::holds_alternative<ReopenAct>(acts[5]));
    EXPECT_TRUE(std::holds_alternative<PaintAct>(acts[6]));
    EXPECT_TRUE(std::holds_alternative<FinishAct>(acts[7]));
}

TEST(ActText, noTextIsNoAct)
{
    std::vector<Act> acts;
    EXPECT_TRUE(ActText().read("", acts));
    EXPECT_TRUE(acts.empty());
}

TEST(ActText, theWayFromOneEndOfAnIntToTheOther)
{
    const std::vector<Act> acts{PointerAct{PT_DOWN, {kLeast, kMost}}, PointerAct{PT_MOVE, {kMost, kLeast}},
                                PointerAct{kLeast, {0, 0}}, PointerAct{kMost, {0, 0}}};
    EXPECT_EQ(written(acts), "d-2147483648 2147483647m4294967295 -4294967295e-2147483648 -2147483647 2147483648"
                             "e2147483647 0 0");
    std::vector<Act> read;
    ASSERT_TRUE(ActText().read(QByteArray::fromStdString(written(acts)), read));
    ASSERT_EQ(read.size(), 4u);
    EXPECT_TRUE(isEvent(read[0], PT_DOWN, kLeast, kMost));
    EXPECT_TRUE(isEvent(read[1], PT_MOVE, kMost, kLeast));
    EXPECT_TRUE(isEvent(read[2], kLeast, 0, 0));
    EXPECT_TRUE(isEvent(read[3], kMost, 0, 0));
}

TEST(ActText, aPlaceThatNoIntHoldsIsRefused)
{
    EXPECT_TRUE(isRefused("d2147483648 0"));
    EXPECT_TRUE(isRefused("d-2147483649 0"));
    EXPECT_TRUE(isRefused("d0 2147483648"));
    EXPECT_TRUE(isRefused("d0 -2147483649"));
    EXPECT_TRUE(isRefused("d2147483647 0m1 0"));
    EXPECT_TRUE(isRefused("e2147483648 0 0"));
    EXPECT_TRUE(isRefused("e-2147483649 0 0"));
    EXPECT_TRUE(isRefused("d99999999999999999999999999999999999999 0"));
}

TEST(ActText, whatMeansNothingIsRefused)
{
    for (const char *text : {"x", "x1 2 3", " ", "1", "f f", "d", "d1", "d1 ", "d1 m", "d--1 2", "d1  2", "d+1 2",
                             "d1,2", "e1 2", "D1 2", "d1.5 2", "d1 2 3", "d- 2", "finish"})
        EXPECT_TRUE(isRefused(text)) << text;
    std::vector<Act> acts;
    EXPECT_FALSE(ActText().read(QByteArray("f\0f", 3), acts));
}

// What others draw shows from their first point until it is a record.

#include "sharing/live/Others.h"

#include "AuthorKit.h"
#include "sharing/live/LiveSender.h"

using namespace InkSharing;
using InkLesson::kFirstPage;

namespace {

constexpr int kPen = 7; // who draws elsewhere

// A lesson of theirs, whose records come here when they are told to.
class OthersTest : public ::testing::Test
{
protected:
    OthersTest() { here.page(kFirstPage).surface(); }

    void begin(int y)
    {
        pen.begin(fresh("pencil"));
        pen.feed(PT_DOWN, {20, y});
        pen.feed(PT_MOVE, {60, y});
    }
    void stroke(int y)
    {
        begin(y);
        tell();
        pen.feed(PT_UP, {60, y});
        tell();
    }
    void tell(Others &listener)
    {
        sender.tick(now += 40);
        for (const QByteArray &payload : std::exchange(sent, {}))
            listener.heard(kPen, payload, now);
        listener.tick(now);
    }
    void tell() { tell(others); }
    void settle(std::size_t record) { here.settle({there.log()[record]}); }
    QRgb shown(int x, int y) const { return here.page(kFirstPage).surface().pixel(x, y); }
    std::size_t hands() const { return here.page(kFirstPage).hands().size(); }

    qint64 now{};
    std::vector<QByteArray> sent;
    InkLesson::Lesson there{{{200, 150}, 1}}, here{{{200, 150}, 1}};
    InkLesson::Author pen{there, kPen, [] { return qint64(1000); }};
    LiveSender sender{pen, [this](const QByteArray &payload) { sent.push_back(payload); }};
    Others others{here, 1, [](const QByteArray &) {}};
};

} // namespace

TEST_F(OthersTest, aStrokeShowsUntilItsRecordIsThere)
{
    stroke(20);
    EXPECT_EQ(shown(40, 20), kRed);
    EXPECT_EQ(hands(), 1U);
    settle(0);
    tell();
    EXPECT_EQ(hands(), 0U);
    EXPECT_EQ(shown(40, 20), kRed);
}

// To its last point, though the record may be long in coming.
TEST_F(OthersTest, theEndOfAStrokeComesBeforeItsRecord)
{
    begin(20);
    tell();
    pen.feed(PT_MOVE, {60, 20});
    pen.feed(PT_UP, {120, 20});
    for (const QByteArray &payload : std::exchange(sent, {}))
        others.heard(kPen, payload, now);
    EXPECT_EQ(shown(110, 20), kRed);
    EXPECT_EQ(here.page(kFirstPage).ink().pixel(110, 20), 0U);
    EXPECT_EQ(hands(), 1U);
    settle(0);
    others.tick(now);
    EXPECT_EQ(hands(), 0U);
    EXPECT_EQ(shown(110, 20), kRed);
}

TEST_F(OthersTest, strokesWhoseRecordsAreLateShowBesideTheNext)
{
    stroke(20);
    stroke(60);
    begin(100);
    tell();
    EXPECT_EQ(hands(), 3U);
    for (const int y : {20, 60, 100})
        EXPECT_EQ(shown(40, y), kRed) << y;
    settle(0);
    tell();
    EXPECT_EQ(hands(), 2U);
    settle(1);
    tell();
    EXPECT_EQ(hands(), 1U);
    for (const int y : {20, 60, 100})
        EXPECT_EQ(shown(40, y), kRed) << y;
}

TEST_F(OthersTest, whatHasNoRecordAfterTenSecondsIsGone)
{
    stroke(20);
    stroke(60);
    for (int i = 0; i < 247; ++i) // until 10040; the first was dropped at 80, the second at 160
        tell();
    EXPECT_EQ(hands(), 2U);
    tell();
    EXPECT_EQ(hands(), 1U);
    EXPECT_EQ(shown(40, 20), kWhite);
    EXPECT_EQ(shown(40, 60), kRed);
    tell();
    tell();
    EXPECT_EQ(hands(), 0U);
    EXPECT_EQ(shown(40, 60), kWhite);
}

TEST_F(OthersTest, nothingIsLeftOfThemOnThePageAfterwards)
{
    {
        Others passing(here, 1, [](const QByteArray &) {});
        begin(20);
        tell(passing);
        pen.feed(PT_UP, {60, 20});
        tell(passing);
        begin(60);
        tell(passing);
        EXPECT_EQ(hands(), 2U);
    }
    EXPECT_EQ(hands(), 0U);
    EXPECT_EQ(shown(40, 20), kWhite);
}

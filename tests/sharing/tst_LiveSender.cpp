#include "sharing/live/LiveSender.h"

#include "AuthorKit.h"

using namespace InkSharing;

class LiveSenderTest : public AuthorTest
{
protected:
    // What was told of acts since the last call.
    std::vector<LiveActs> told()
    {
        std::vector<LiveActs> acts;
        for (const QByteArray &payload : std::exchange(sent, {})) {
            LiveMessage message;
            QString problem;
            EXPECT_TRUE(readLive(payload, message, problem)) << problem.toStdString();
            if (std::holds_alternative<LiveActs>(message))
                acts.push_back(std::get<LiveActs>(message));
        }
        return acts;
    }

    std::vector<QByteArray> sent;
    LiveSender sender{me, [this](const QByteArray &payload) { sent.push_back(payload); }};
};

TEST_F(LiveSenderTest, actsComeWithTheTimeOfTheFirst)
{
    me.begin(fresh("pencil"));
    me.feed(PT_DOWN, {10, 10});
    me.feed(PT_MOVE, {20, 10});
    sender.tick(40);
    me.feed(PT_MOVE, {30, 10});
    me.feed(PT_MOVE, {40, 10});
    sender.tick(80);
    const std::vector<LiveActs> acts = told();
    ASSERT_EQ(acts.size(), 2U);
    EXPECT_EQ(acts[0].time, 1001);
    EXPECT_EQ(acts[1].from, 2U);
    EXPECT_EQ(acts[1].time, 1003);
}

TEST_F(LiveSenderTest, whoAsksIsToldAllWithTheTimeOfTheFirst)
{
    me.begin(fresh("pencil"));
    me.feed(PT_DOWN, {10, 10});
    sender.tick(40);
    me.feed(PT_MOVE, {20, 10});
    told();
    sender.asked();
    sender.tick(80);
    const std::vector<LiveActs> acts = told();
    ASSERT_EQ(acts.size(), 1U);
    EXPECT_EQ(acts[0].from, 0U);
    EXPECT_EQ(actsOf(acts[0].record).size(), 2U);
    EXPECT_EQ(acts[0].time, 1001);
}

// The last acts come before the record.
TEST_F(LiveSenderTest, theRestIsToldWhenTheHandLetsGo)
{
    me.begin(fresh("pencil"));
    me.feed(PT_DOWN, {10, 10});
    sender.tick(40);
    told();
    me.feed(PT_MOVE, {20, 10});
    EXPECT_TRUE(told().empty());
    me.feed(PT_UP, {30, 10});
    const std::vector<LiveActs> acts = told();
    ASSERT_EQ(acts.size(), 1U);
    EXPECT_EQ(acts[0].from, 1U);
    EXPECT_EQ(actsOf(acts[0].record).size(), 2U);
    EXPECT_EQ(acts[0].time, 1002);
    EXPECT_EQ(acts[0].record.id, InkLesson::StepId({1, 1}));
    sender.tick(80);
    EXPECT_TRUE(told().empty());
}

TEST_F(LiveSenderTest, ofQuickStrokesOneIsToldInAFrame)
{
    const auto stroke = [this](int y) {
        me.begin(fresh("pencil"));
        me.feed(PT_DOWN, {10, y});
        me.feed(PT_UP, {90, y});
        std::vector<std::size_t> counts;
        for (const LiveActs &acts : told())
            counts.push_back(actsOf(acts.record).size());
        return counts;
    };
    EXPECT_EQ(stroke(10), std::vector<std::size_t>{2});
    EXPECT_TRUE(stroke(20).empty());
    sender.tick(40);
    EXPECT_EQ(stroke(30), std::vector<std::size_t>{2});
    EXPECT_TRUE(stroke(40).empty());
    me.begin(fresh("pencil"));
    me.feed(PT_DOWN, {10, 50});
    sender.tick(80);
    me.feed(PT_UP, {90, 50}); // no quick one
    told();
    EXPECT_EQ(stroke(60), std::vector<std::size_t>{2});
}

// Right behind the record, and without one as well.
TEST_F(LiveSenderTest, whatWasLetGoIsToldToBeGone)
{
    const auto dropped = [this]() -> std::optional<int> {
        std::optional<int> number;
        for (const QByteArray &payload : std::exchange(sent, {})) {
            LiveMessage message;
            QString problem;
            if (readLive(payload, message, problem) && std::holds_alternative<LiveDrop>(message))
                number = std::get<LiveDrop>(message).number;
        }
        return number;
    };
    me.begin(fresh("pencil"));
    me.feed(PT_DOWN, {10, 10});
    sender.tick(40);
    EXPECT_EQ(dropped(), std::nullopt);
    me.feed(PT_UP, {30, 10});
    EXPECT_EQ(dropped(), 1);
    me.begin(fresh("pencil"));
    me.feed(PT_DOWN, {10, 20});
    sender.tick(80);
    EXPECT_EQ(dropped(), std::nullopt);
    me.feed(PT_UP, {40, 20});
    EXPECT_EQ(dropped(), 2);
    sender.tick(120);
    EXPECT_EQ(dropped(), std::nullopt) << "once";
}

TEST_F(LiveSenderTest, anAuthorGoesOnWithoutIt)
{
    {
        LiveSender gone{other, [this](const QByteArray &payload) { sent.push_back(payload); }};
    }
    other.begin(fresh("pencil"));
    other.feed(PT_DOWN, {10, 10});
    other.feed(PT_UP, {90, 10});
    EXPECT_TRUE(sent.empty());
    EXPECT_EQ(other.lastNumber(), 1);
}

TEST_F(LiveSenderTest, thirtyTimesASecondIsToldHoweverTheTicksFall)
{
    me.begin(fresh("pencil"));
    for (int time = 0; time <= 1000; time += 20) {
        me.feed(PT_MOVE, {10 + time % 100, 10});
        sender.tick(time);
    }
    EXPECT_EQ(told().size(), 30U);
}

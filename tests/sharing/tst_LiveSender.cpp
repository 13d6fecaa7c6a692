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

TEST_F(LiveSenderTest, thirtyTimesASecondIsToldHoweverTheTicksFall)
{
    me.begin(fresh("pencil"));
    for (int time = 0; time <= 1000; time += 20) {
        me.feed(PT_MOVE, {10 + time % 100, 10});
        sender.tick(time);
    }
    EXPECT_EQ(told().size(), 30U);
}

#include "door/jetstream/JetStreamWords.h"

#include <gtest/gtest.h>

using namespace InkDoor;

namespace {

NatsMessage saying(const char *json)
{
    NatsMessage message;
    message.data = json;
    return message;
}

} // namespace

TEST(JetStreamWords, aLessonHasNamesOfItsOwn)
{
    EXPECT_EQ(streamName(QStringLiteral("a-1")), "ink-a-1");
    EXPECT_EQ(logSubject(QStringLiteral("a-1")), "ink.log.a-1");
    EXPECT_EQ(liveSubject(QStringLiteral("a-1")), "ink.live.a-1");
    EXPECT_EQ(apiSubject("STREAM.CREATE", QStringLiteral("a-1")), "$JS.API.STREAM.CREATE.ink-a-1");
    EXPECT_EQ(apiSubject("CONSUMER.DELETE", QStringLiteral("a-1"), "x7"), "$JS.API.CONSUMER.DELETE.ink-a-1.x7");
}

TEST(JetStreamWords, aStreamIsInFilesAndKnowsDoublesForADay)
{
    EXPECT_EQ(streamOrder(QStringLiteral("a"), 3),
              R"({"discard":"new","duplicate_window":86400000000000,"max_age":0,"max_bytes":-1,"max_consumers":-1,)"
              R"("max_msgs":-1,"name":"ink-a","num_replicas":3,"retention":"limits","storage":"file",)"
              R"("subjects":["ink.log.a"]})");
}

TEST(JetStreamWords, aDeliveryBeginsWhereItIsTold)
{
    EXPECT_EQ(deliveryOrder(QStringLiteral("a"), "x7", "to.me", 7),
              R"({"config":{"ack_policy":"none","deliver_policy":"by_start_sequence","deliver_subject":"to.me",)"
              R"("flow_control":true,"idle_heartbeat":1000000000,"max_deliver":1,"mem_storage":true,)"
              R"("name":"x7","num_replicas":1,"opt_start_seq":7,"replay_policy":"instant"},"stream_name":"ink-a"})");
}

TEST(JetStreamWords, anAnswerIsDoneOrAnError)
{
    EXPECT_TRUE(readAnswer(saying(R"({"stream":"ink-a","seq":7})")).isDone);
    EXPECT_FALSE(readAnswer(saying("")).isDone);
    EXPECT_FALSE(readAnswer(saying("[1]")).isDone);
    const Answer missing = readAnswer(saying(R"({"error":{"code":404,"err_code":10059}})"));
    EXPECT_TRUE(!missing.isDone && missing.isMissing && !missing.isAlreadyThere);
    const Answer other = readAnswer(saying(R"({"error":{"code":400,"err_code":10058}})"));
    EXPECT_TRUE(!other.isDone && !other.isMissing && other.isAlreadyThere);
}

TEST(JetStreamWords, aDeliveryHasWhatItHasSentAndWhatIsLeft)
{
    const Answer answer = readAnswer(saying(R"({"delivered":{"consumer_seq":2},"num_pending":40})"));
    EXPECT_EQ(answer.entries, 42U);
}

TEST(JetStreamWords, anEntryIsNumberedTwice)
{
    const auto delivery = readDelivery("$JS.ACK.ink-a.x7.1.12.3.1669113312000000000.5");
    ASSERT_TRUE(delivery.has_value());
    EXPECT_EQ(delivery->name, "x7");
    EXPECT_EQ(delivery->place, 12U);
    EXPECT_EQ(delivery->number, 3U);
    EXPECT_EQ(delivery->stored, 1669113312000000000);
    const auto far = readDelivery("$JS.ACK.hub.account.ink-a.x7.1.12.3.99.5.chance");
    ASSERT_TRUE(far.has_value());
    EXPECT_EQ(far->name, "x7");
    EXPECT_EQ(far->place, 12U);
    EXPECT_EQ(far->stored, 99);
}

TEST(JetStreamWords, anythingElseIsNoDelivery)
{
    EXPECT_FALSE(readDelivery("").has_value());
    EXPECT_FALSE(readDelivery("$JS.FC.ink-a.x7.1.12.3.4.5").has_value());
    EXPECT_FALSE(readDelivery("$JS.ACK.ink-a.x7.1.12.3.4").has_value());
    EXPECT_FALSE(readDelivery("$JS.ACK.ink-a.x7.1.x.3.4.5").has_value());
}

#include "sharing/client/Client.h"

#include "LessonKit.h"

#include "lesson/log/RecordCode.h"

#include <gtest/gtest.h>

using namespace InkSharing;
using InkLesson::kNothing;
using InkLesson::StepId;

namespace {

const QByteArray kToken(16, 'p');

} // namespace

class ClientTest : public ::testing::Test, public ClientHost
{
protected:
    void connectToDoor() override { ++attempts; }
    void send(const QByteArray &message) override
    {
        ToDoor read;
        QString problem;
        ASSERT_TRUE(readMessage(message, read, problem)) << problem.toStdString();
        if (!std::holds_alternative<Alive>(read))
            sent.push_back(read);
    }
    void disconnectFromDoor() override { ++hangUps; }
    InkLesson::Lesson &begin(const InkLesson::Header &header) override
    {
        lesson = std::make_unique<InkLesson::Lesson>(header);
        return *lesson;
    }
    void lostStep(const InkLesson::Lesson::Refusal &refusal) override { lost.push_back(refusal.id); }
    void heard(int author, const QByteArray & /*payload*/) override { heardOf.push_back(author); }
    bool readsBeside(const QByteArray &code) override
    {
        beside.push_back(code);
        return hasReader;
    }

    void tell(const FromDoor &message) { client.received(encoded(message), now); }
    void tick(qint64 time) { client.tick(now = time); }

    // Of the lesson's author 1, and of this board's.
    QByteArray theirs(int number, InkLesson::Deed deed) { return entry({1, number}, {1, number - 1}, std::move(deed)); }
    QByteArray entry(const StepId &id, const StepId &after, InkLesson::Deed deed,
                     const InkLesson::PageId &page = InkLesson::kFirstPage)
    {
        const QByteArray code = toCbor(record(id.author, id.number, std::move(deed), page));
        return encoded(Entry(RecordEntry{id, after.number == 0 ? kNothing : after, code, {}}));
    }

    // Joins a stream that has but the lesson and this member.
    void join()
    {
        tick(0);
        tick(200);
        client.opened(now);
        tell(Welcome{me, 0, 2});
        tell(Entries{0,
                     {encoded(Entry(LessonEntry{{{200, 150}, 1}, hashOf("teacher"), {1}})),
                      encoded(Entry(MemberEntry{me, hashOf(kToken), Role::Pupil}))}});
        ASSERT_EQ(client.state(), Client::State::Open);
        sent.clear();
    }
    void draw(int number, InkLesson::Deed deed, const InkLesson::PageId &page = InkLesson::kFirstPage)
    {
        ASSERT_EQ(lesson->apply(record(me, number, std::move(deed), page)), QString());
        client.done(now);
    }
    const Append &lastAppend() const { return std::get<Append>(sent.back()); }

    const int me{authorOf(hashOf(kToken))};
    qint64 now{};
    int attempts{}, hangUps{};
    std::vector<ToDoor> sent;
    std::vector<StepId> lost;
    std::vector<int> heardOf;
    bool hasReader{};
    std::vector<QByteArray> beside; // what was offered to it
    std::unique_ptr<InkLesson::Lesson> lesson;
    Client client{{QStringLiteral("lesson"), kToken, {}}, *this, [] { return 0U; }};
};

TEST_F(ClientTest, rule1SaysHelloWithWhatItHas)
{
    join();
    client.closed(now);
    EXPECT_EQ(client.state(), Client::State::Waiting);
    tick(now + 49);
    EXPECT_EQ(attempts, 1);
    tick(now + 1);
    EXPECT_EQ(attempts, 2);
    client.opened(now);
    const auto &hello = std::get<Hello>(sent.back());
    EXPECT_EQ(hello.lesson, QStringLiteral("lesson"));
    EXPECT_EQ(hello.token, kToken);
    ASSERT_EQ(hello.places.size(), 2U);
    EXPECT_EQ(hello.places[0].length, 2U);
    EXPECT_EQ(hello.places[1].length, 1U);
}

TEST_F(ClientTest, rule3WhatIsPendingIsSentInItsOrderAndOnce)
{
    join();
    draw(1, InkLesson::Clear());
    draw(2, InkLesson::Clear());
    ASSERT_EQ(sent.size(), 2U);
    EXPECT_EQ(std::get<Append>(sent[0]).after, kNothing);
    EXPECT_EQ(lastAppend().after, (StepId{me, 1}));
    EXPECT_EQ(lastAppend().records[0].id, (StepId{me, 2}));
    tick(now + 33);
    EXPECT_EQ(sent.size(), 2U);
    tell(Entries{2, {entry({me, 1}, {me, 0}, InkLesson::Clear())}});
    EXPECT_EQ(client.pending(), 1U);
    EXPECT_EQ(lesson->settled(), 1U);
}

TEST_F(ClientTest, rule4WhatDoesNotComeBackIsSentAgain)
{
    join();
    draw(1, InkLesson::Clear());
    for (int i = 0; i < 11; ++i) {
        tick(now + 909);
        tell(Alive());
    }
    EXPECT_EQ(sent.size(), 1U);
    tick(now + 909);
    ASSERT_TRUE(std::holds_alternative<Hello>(sent.back()));
    tell(Welcome{me, 2, 2});
    ASSERT_TRUE(std::holds_alternative<Append>(sent.back()));
    EXPECT_EQ(lastAppend().records[0].id, (StepId{me, 1}));
}

TEST_F(ClientTest, rule4WhatFollowsARefusedRecordNamesTheOneBeforeThat)
{
    join();
    for (int number = 1; number <= 3; ++number)
        draw(number, InkLesson::Clear());
    tell(Refused{{me, 2}, Reason::Unreadable});
    EXPECT_EQ(lost, std::vector<StepId>{(StepId{me, 2})});
    tell(Welcome{me, 2, 2});
    EXPECT_EQ(lastAppend().after, kNothing);
    ASSERT_EQ(lastAppend().records.size(), 2U);
    EXPECT_EQ(lastAppend().records[1].id, (StepId{me, 3}));
}

TEST_F(ClientTest, rule5ABoardFromItsJournalLeavesNumbersOut)
{
    InkLesson::Lesson old({{200, 150}, 1});
    old.apply(record(me, 7, InkLesson::Clear()));
    client.take(old, Client::From::Journal);
    EXPECT_EQ(old.history().nextNumber(me), 7 + 65536 + 1);
}

TEST_F(ClientTest, rule6ADoorThatIsSilentIsGone)
{
    join();
    for (int i = 0; i < 6; ++i)
        tick(now + 800);
    EXPECT_EQ(hangUps, 0);
    tick(now + 800);
    EXPECT_EQ(hangUps, 1);
    EXPECT_EQ(client.state(), Client::State::Waiting);
}

TEST_F(ClientTest, rule6ABoardThatWasBusyForgivesTheSilence)
{
    join();
    tick(now + 60000);
    EXPECT_EQ(hangUps, 0);
}

TEST_F(ClientTest, afterALossAStepWaitsForWhatItBuildsOn)
{
    join();
    const InkLesson::Deed page = InkLesson::AddPage{1, {40, 30}};
    const InkLesson::Deed line = InkLesson::Draw{lineLife({2, 2}, {30, 20}, Qt::red)};
    tell(Entries{2, {theirs(1, page), entry({me, 1}, {me, 0}, line, {1, 1})}});
    EXPECT_EQ(lesson->page({1, 1}).items().size(), 1U);
    tell(Again());
    sent.clear();
    tell(Welcome{me, 2, 2});
    EXPECT_EQ(client.pending(), 1U);
    tick(now + 900);
    EXPECT_TRUE(sent.empty());
    tell(Entries{2, {theirs(1, page)}});
    ASSERT_EQ(sent.size(), 1U);
    EXPECT_EQ(lastAppend().records[0].id, (StepId{me, 1}));
    EXPECT_EQ(lesson->page({1, 1}).items().size(), 1U);
}

TEST_F(ClientTest, afterALossWhoDoesNotComeBackIsNotWaitedFor)
{
    join();
    const InkLesson::Deed line = InkLesson::Draw{lineLife({2, 2}, {30, 20}, Qt::red)};
    tell(Entries{2, {theirs(1, InkLesson::AddPage{1, {40, 30}}), entry({me, 1}, {me, 0}, line, {1, 1})}});
    tell(Again());
    tell(Welcome{me, 2, 2});
    sent.clear();
    for (int i = 0; i < 3; ++i) {
        tick(now + 900);
        tell(Alive());
    }
    EXPECT_TRUE(sent.empty());
    tick(now + 900);
    EXPECT_EQ(sent.size(), 1U);
}

TEST_F(ClientTest, onlyWhatComesOfOthersIntoAnOpenLessonIsReadBeside)
{
    hasReader = true;
    join();
    draw(1, InkLesson::Clear());
    tell(Entries{2, {entry({me, 1}, {me, 0}, InkLesson::Clear())}});
    EXPECT_TRUE(beside.empty());
    EXPECT_EQ(lesson->settled(), 1U);
    client.closed(now);
    tick(now + 200);
    client.opened(now);
    tell(Welcome{me, 3, 4});
    tell(Entries{3, {theirs(1, InkLesson::Clear())}});
    EXPECT_TRUE(beside.empty());
    EXPECT_EQ(lesson->settled(), 2U);
    EXPECT_EQ(client.state(), Client::State::Open);
}

TEST_F(ClientTest, recordsWaitForTheOneThatIsReadBeside)
{
    join();
    hasReader = true;
    const InkLesson::Deed line = InkLesson::Draw{lineLife({2, 2}, {30, 20}, Qt::red)};
    tell(Entries{2, {theirs(1, line), theirs(2, InkLesson::Clear())}});
    tell(Entries{4, {theirs(3, line)}});
    EXPECT_EQ(lesson->settled(), 0U);
    ASSERT_EQ(beside.size(), 1U);
    tell(LiveOf{1, "ink"});
    EXPECT_EQ(heardOf, std::vector<int>{1});
    draw(1, line);
    ASSERT_EQ(sent.size(), 1U);
    EXPECT_EQ(lastAppend().records[0].id, (StepId{me, 1}));

    client.wasRead("another", {}, now);
    EXPECT_EQ(lesson->settled(), 0U);
    hasReader = false;
    client.wasRead(beside[0], InkLesson::Lesson::arriving(beside[0]), now);
    const std::vector<StepId> expected{{1, 1}, {1, 2}, {1, 3}, {me, 1}};
    EXPECT_EQ(lesson->ids(), expected);
    EXPECT_EQ(lesson->settled(), 3U);
    EXPECT_EQ(lesson->page(InkLesson::kFirstPage).items().size(), 2U);
    client.wasRead(beside[0], {}, now);
    EXPECT_EQ(lesson->settled(), 3U);
}

TEST_F(ClientTest, whatCannotBeReadBesideIsPassedOver)
{
    join();
    hasReader = true;
    tell(Entries{2, {theirs(1, InkLesson::Clear())}});
    InkLesson::Lesson::Arriving broken;
    broken.problem = QStringLiteral("broken");
    hasReader = false;
    client.wasRead(beside[0], std::move(broken), now);
    EXPECT_EQ(lesson->settled(), 0U);
    tell(Entries{3, {theirs(2, InkLesson::Clear())}});
    EXPECT_EQ(lesson->settled(), 1U);
}

// What has come is kept, since the door may never be there again.
TEST_F(ClientTest, afterACutNothingIsReadBesideAnyMore)
{
    join();
    hasReader = true;
    tell(Entries{2, {theirs(1, InkLesson::Clear()), theirs(2, InkLesson::Clear())}});
    client.closed(now);
    EXPECT_EQ(lesson->settled(), 2U);
    EXPECT_EQ(beside.size(), 1U);
    client.wasRead(beside[0], InkLesson::Lesson::arriving(beside[0]), now);
    EXPECT_EQ(lesson->settled(), 2U);
    tick(now + 200);
    client.opened(now);
    EXPECT_EQ(std::get<Hello>(sent.back()).places[0].length, 4U);
    tell(Welcome{me, 4, 4});
    EXPECT_EQ(client.state(), Client::State::Open);
}

TEST_F(ClientTest, whatWasReadBesideIsThereWhenTheLessonEnds)
{
    join();
    hasReader = true;
    tell(Entries{2, {theirs(1, InkLesson::Clear()), theirs(2, InkLesson::Clear())}});
    tell(Gone{Reason::Ended});
    EXPECT_EQ(client.state(), Client::State::Gone);
    EXPECT_EQ(lesson->settled(), 2U);
}

TEST_F(ClientTest, whatWasReadBesideIsThereWhenTheDoorAsksForAnotherHello)
{
    join();
    hasReader = true;
    tell(Entries{2, {theirs(1, InkLesson::Clear()), theirs(2, InkLesson::Clear())}});
    tell(Again());
    EXPECT_EQ(lesson->settled(), 2U);
    EXPECT_EQ(std::get<Hello>(sent.back()).places[0].length, 4U);
}

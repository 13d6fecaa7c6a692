#include "door/jetstream/JetStreamEngine.h"

#include "EngineKit.h"
#include "ServerKit.h"

#include <QtCore/QDir>

using namespace InkDoor;
using namespace InkSharing;
using namespace DoorTest;

namespace {

const QString kLesson = QStringLiteral("lesson");
using Entries = std::vector<QByteArray>;

class ServerWorld : public EngineWorld
{
public:
    ServerWorld() { EXPECT_TRUE(m_server.start()); }

    std::unique_ptr<Engine> engine() override
    {
        return std::make_unique<JetStreamEngine>(JetStreamEngine::Settings{m_server.address()});
    }
    bool runUntil(const std::function<bool()> &isSo) override { return DoorTest::runUntil(isSo); }
    void runOut() override { runFor(300); }
    bool setBack(const QString &lesson, std::size_t length) override
    {
        m_server.stop();
        return m_server.truncate(lesson, length) && m_server.start();
    }

private:
    Server m_server;
};

std::unique_ptr<EngineWorld> serverWorld()
{
    return std::make_unique<ServerWorld>();
}

} // namespace

INSTANTIATE_TEST_SUITE_P(JetStream, EngineConformance, testing::Values(&serverWorld));

namespace {

class JetStream : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(server.start()); }

    std::unique_ptr<Engine> engine() const
    {
        return std::make_unique<JetStreamEngine>(JetStreamEngine::Settings{server.address()});
    }

    // Until it is stored, as one who sends again does.
    bool append(Stream &stream, const QByteArray &bytes)
    {
        bool isStored = false;
        std::function<void()> send = [&] {
            stream.append(bytes, [&](Appended how) {
                if (how == Appended::Stored)
                    isStored = true;
                else
                    send();
            });
        };
        send();
        return runUntil([&] { return isStored; });
    }

    Server server;
};

Entries numbers(int count)
{
    Entries all;
    for (int i = 1; i <= count; ++i)
        all.push_back(QByteArray::number(i));
    return all;
}

} // namespace

TEST_F(JetStream, aKilledServerLosesNothingThatWasStored)
{
    const auto one = engine(), two = engine();
    NotingListener writing, reading;
    const auto mine = one->open(kLesson, Engine::Open::Create, writing);
    ASSERT_TRUE(runUntil([&] { return writing.catchings == 1; }));
    const auto theirs = two->open(kLesson, Engine::Open::Existing, reading);
    for (int i = 1; i <= 300; ++i) {
        ASSERT_TRUE(append(*mine, QByteArray::number(i)));
        if (i % 100 == 50) {
            ASSERT_TRUE(server.killed());
        }
    }
    ASSERT_TRUE(runUntil([&] { return reading.told.size() >= 300 && writing.told.size() >= 300; }));
    EXPECT_EQ(reading.told, numbers(300));
    EXPECT_EQ(writing.told, numbers(300));
    EXPECT_EQ(reading.losses + writing.losses, 0);
}

TEST_F(JetStream, anAppendWithoutAServerIsUnknownAtOnce)
{
    const auto one = engine();
    NotingListener listener;
    const auto stream = one->open(kLesson, Engine::Open::Create, listener);
    ASSERT_TRUE(runUntil([&] { return listener.catchings == 1; }));
    server.stop();
    ASSERT_TRUE(runUntil([&] { return !static_cast<JetStreamEngine &>(*one).isUp(); }));
    bool isUnknown = false;
    stream->append("a", [&](Appended how) { isUnknown = how == Appended::Unknown; });
    EXPECT_FALSE(isUnknown);
    EXPECT_TRUE(runUntil([&] { return isUnknown; }, 1'000));
}

TEST_F(JetStream, onesThatWereOpenedBeforeTheServerIsThereAreServedOnceItIs)
{
    server.stop();
    const auto one = engine();
    NotingListener listener;
    const auto stream = one->open(kLesson, Engine::Open::Create, listener);
    runFor(300);
    EXPECT_EQ(listener.catchings, 0);
    ASSERT_TRUE(server.start());
    EXPECT_TRUE(runUntil([&] { return listener.catchings == 1; }));
    EXPECT_TRUE(append(*stream, "a"));
}

TEST_F(JetStream, aStoreThatIsPutBackIsLost)
{
    const auto one = engine();
    NotingListener first, again;
    auto mine = one->open(kLesson, Engine::Open::Create, first);
    ASSERT_TRUE(append(*mine, "a"));
    server.stop();
    ASSERT_TRUE(server.keepStore() && server.start());
    ASSERT_TRUE(append(*mine, "b"));
    ASSERT_TRUE(runUntil([&] { return first.told.size() == 2; }));
    server.stop();
    ASSERT_TRUE(server.putStoreBack() && server.start());
    ASSERT_TRUE(runUntil([&] { return first.losses == 1; }));
    EXPECT_EQ(first.told, Entries({"a", "b"}));
    mine = one->open(kLesson, Engine::Open::Create, again);
    ASSERT_TRUE(runUntil([&] { return again.catchings == 1; }));
    EXPECT_EQ(again.told, Entries({"a"}));
}

TEST_F(JetStream, oneThatWasSetBackIsLostAlsoWhereOthersHaveFilledItToTheSameEntry)
{
    const auto one = engine();
    NotingListener first;
    const auto mine = one->open(kLesson, Engine::Open::Create, first);
    for (const char *entry : {"a", "b", "c"})
        ASSERT_TRUE(append(*mine, entry));
    ASSERT_TRUE(runUntil([&] { return first.told.size() == 3; }));
    server.stop();
    ASSERT_TRUE(server.truncate(kLesson, 1));
    {
        Server elsewhere{server}; // where the first does not see it
        ASSERT_TRUE(elsewhere.start());
        JetStreamEngine two{{elsewhere.address()}};
        NotingListener second;
        const auto theirs = two.open(kLesson, Engine::Open::Existing, second);
        ASSERT_TRUE(append(*theirs, "x"));
        ASSERT_TRUE(append(*theirs, "c"));
        ASSERT_TRUE(runUntil([&] { return second.told.size() == 3; }));
        EXPECT_EQ(second.told, Entries({"a", "x", "c"}));
    }
    ASSERT_TRUE(server.start());
    EXPECT_TRUE(runUntil([&] { return first.losses == 1; }));
    EXPECT_EQ(first.told, Entries({"a", "b", "c"}));
}

TEST_F(JetStream, oneThatIsRemovedWhileTheServerIsAwayIsLost)
{
    const auto one = engine();
    NotingListener first;
    const auto mine = one->open(kLesson, Engine::Open::Create, first);
    ASSERT_TRUE(append(*mine, "a"));
    ASSERT_TRUE(runUntil([&] { return first.told.size() == 1; }));
    server.stop();
    ASSERT_TRUE(QDir{server.folder() + QStringLiteral("/store")}.removeRecursively());
    ASSERT_TRUE(server.start());
    EXPECT_TRUE(runUntil([&] { return first.losses == 1; }));
    EXPECT_EQ(first.absences, 0);
}

TEST_F(JetStream, whatIsAppendedAgainIsStoredAgain)
{
    const auto one = engine();
    NotingListener listener;
    const auto stream = one->open(kLesson, Engine::Open::Create, listener);
    for (const char *entry : {"1", "2", "1"})
        ASSERT_TRUE(append(*stream, entry));
    ASSERT_TRUE(runUntil([&] { return listener.told.size() == 3; }));
    EXPECT_EQ(listener.told, Entries({"1", "2", "1"}));
}

TEST_F(JetStream, aLongStreamComesWholeAndInOrder)
{
    const auto one = engine(), two = engine();
    NotingListener first, second;
    const auto mine = one->open(kLesson, Engine::Open::Create, first);
    ASSERT_TRUE(runUntil([&] { return first.catchings == 1; }));
    const QByteArray filling(4'000, 'x');
    Entries sent;
    int stored = 0;
    for (int i = 0; i < 5'000; ++i) {
        sent.push_back(QByteArray::number(i) + filling);
        mine->append(sent.back(), [&](Appended how) { stored += how == Appended::Stored ? 1 : 0; });
        if (i % 500 == 499) {
            ASSERT_TRUE(runUntil([&] { return stored == i + 1; }));
        }
    }
    const auto theirs = two->open(kLesson, Engine::Open::Existing, second);
    ASSERT_TRUE(runUntil([&] { return second.catchings == 1; }));
    EXPECT_EQ(second.toldWhenCaughtUp, 5'000U);
    EXPECT_TRUE(second.told == sent);
    EXPECT_TRUE(runUntil([&] { return first.told.size() == 5'000; }));
    EXPECT_TRUE(first.told == sent);
}

#include "BoardKit.h"
#include "Cddl.h"
#include "DoorKit.h"
#include "ServerKit.h"

#include <gtest/gtest.h>

using namespace DoorTest;

namespace {

const QString kLesson = QStringLiteral("class-7b");
constexpr int kActEvery = 40;    // ms, of each board
constexpr int kLongest = 60'000; // ms

class SharedLesson : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(server.start()); }

    QStringList engine() const { return {QStringLiteral("--engine"), server.address()}; }
    static QStringList atPort(const DoorProgram &door)
    {
        return {QStringLiteral("--port"), QString::number(door.address().port())};
    }

    Board &addBoard(const QUrl &door)
    {
        const auto seed = static_cast<unsigned>(boards.size());
        boards.push_back(
            std::make_unique<Board>(door, kLesson, seed, boards.empty() ? Board::Role::Begins : Board::Role::Joins));
        boards.back()->tap = [this](bool isToDoor, const QByteArray &message) {
            messages[{isToDoor, QCborValue::fromCbor(message).toMap().value(0).toInteger()}].insert(message);
        };
        return *boards.back();
    }

    // What has gone over the wires is as the documents say, and of all that there is in a lesson without faults.
    void expectGrammar()
    {
        QFile file(QStringLiteral(PROTOCOL_CDDL));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const Cddl cddl(QString::fromUtf8(file.readAll()));
        for (const auto &[kind, all] : messages) {
            for (const QByteArray &message : all) {
                const QString rule = kind.first ? QStringLiteral("to-door") : QStringLiteral("from-door");
                ASSERT_EQ(cddl.problem(rule, QCborValue::fromCbor(message)), QString()) << message.toHex().constData();
            }
        }
        constexpr int kHello = 1, kAppend = 2, kWelcome = 1, kEntries = 2;
        EXPECT_EQ(messages[std::pair(true, kHello)].size(), boards.size());
        EXPECT_GT(messages[std::pair(true, kAppend)].size(), 30U);
        EXPECT_EQ(messages[std::pair(false, kWelcome)].size(), boards.size());
        EXPECT_GT(messages[std::pair(false, kEntries)].size(), 30U);
    }
    bool allAre(bool (Board::*how)() const)
    {
        return runUntil(
            [&] {
                return std::all_of(boards.begin(), boards.end(), [&](const auto &board) { return (*board.*how)(); });
            },
            kLongest);
    }
    void drawFor(int milliseconds)
    {
        QTimer acts;
        QObject::connect(&acts, &QTimer::timeout, [this] {
            for (const auto &board : boards)
                board->act();
        });
        acts.start(kActEvery);
        runFor(milliseconds);
    }

    // Until nobody has anything that is not everybody's.
    void settle()
    {
        ASSERT_TRUE(allAre(&Board::isOpen));
        for (const auto &board : boards)
            board->letGo();
        ASSERT_TRUE(allAre(&Board::isQuiet));
        ASSERT_TRUE(runUntil(
            [&] {
                return std::all_of(boards.begin(), boards.end(), [&](const auto &board) {
                    return board->client().length() == boards[0]->client().length();
                });
            },
            kLongest));
    }

    // Everybody has the same lesson, and each step is in it once.
    void expectSame()
    {
        const std::vector<QImage> pictures = boards[0]->pictures();
        for (const auto &board : boards) {
            EXPECT_EQ(board->client().chain(), boards[0]->client().chain());
            EXPECT_EQ(board->lesson().log(), boards[0]->lesson().log());
            EXPECT_TRUE(board->pictures() == pictures);
            EXPECT_EQ(board->lostSteps(), 0);
        }
        const auto &ids = boards[0]->lesson().ids();
        const std::set<std::pair<int, int>> once = [&] {
            std::set<std::pair<int, int>> all;
            for (const auto &id : ids)
                all.emplace(id.author, id.number);
            return all;
        }();
        EXPECT_EQ(once.size(), ids.size());
        EXPECT_GT(ids.size(), 30U);
    }

    Server server;
    std::map<std::pair<bool, qint64>, std::set<QByteArray>> messages; // by whether to the door, and kind
    std::vector<std::unique_ptr<Board>> boards;
};

} // namespace

TEST_F(SharedLesson, isTheSameAtTwoDoorsAndForOneWhoComesLate)
{
    DoorProgram one, two;
    ASSERT_TRUE(one.start(engine()) && two.start(engine()));
    addBoard(one.socketAddress());
    ASSERT_TRUE(allAre(&Board::isOpen));
    addBoard(two.socketAddress());
    addBoard(one.socketAddress());
    ASSERT_TRUE(allAre(&Board::isOpen));
    drawFor(3'000);
    addBoard(two.socketAddress());
    drawFor(1'000);
    settle();
    expectSame();
    EXPECT_EQ(one.metric("inkboard_connections"), 2);
    EXPECT_EQ(one.metric("inkboard_lessons"), 1);
    EXPECT_GT(one.metric("inkboard_records_total"), 50);
    EXPECT_EQ(one.metric("inkboard_append_seconds_count"), one.metric("inkboard_append_seconds_bucket{le=\"+Inf\"}"));
    EXPECT_EQ(one.metric("inkboard_wrong_messages_total"), 0);
    expectGrammar();
}

TEST_F(SharedLesson, outlivesItsDoorItsEngineAndACable)
{
    DoorProgram one, two;
    ASSERT_TRUE(one.start(engine()) && two.start(engine()));
    Cable cable{one.socketAddress()};
    addBoard(one.socketAddress());
    ASSERT_TRUE(allAre(&Board::isOpen));
    addBoard(one.socketAddress());
    addBoard(two.socketAddress());
    addBoard(cable.address());
    ASSERT_TRUE(allAre(&Board::isOpen));
    drawFor(1'000);
    cable.pull();
    drawFor(1'500);
    cable.plugIn();
    drawFor(1'000);
    ASSERT_TRUE(one.killed());
    drawFor(700);
    ASSERT_TRUE(one.start(engine() + atPort(one)));
    drawFor(1'500);
    ASSERT_TRUE(server.killed());
    drawFor(1'500);
    settle();
    expectSame();
}

TEST_F(SharedLesson, isFilledAgainByItsBoardsWhenTheEngineHasLostItsEnd)
{
    DoorProgram door;
    ASSERT_TRUE(door.start(engine()));
    addBoard(door.socketAddress());
    ASSERT_TRUE(allAre(&Board::isOpen));
    addBoard(door.socketAddress());
    addBoard(door.socketAddress());
    ASSERT_TRUE(allAre(&Board::isOpen));
    drawFor(2'000);
    settle();
    const std::size_t before = boards[0]->lesson().log().size();
    server.stop();
    ASSERT_TRUE(server.truncate(kLesson, 40));
    drawFor(500);
    ASSERT_TRUE(server.start());
    drawFor(1'500);
    settle();
    expectSame();
    EXPECT_GT(boards[0]->lesson().log().size(), before);
    EXPECT_GE(door.metric("inkboard_lost_streams_total"), 1);
}

TEST_F(SharedLesson, isHandedOnWhenItsDoorIsAskedToEnd)
{
    DoorProgram door;
    ASSERT_TRUE(door.start(engine()));
    addBoard(door.socketAddress());
    ASSERT_TRUE(allAre(&Board::isOpen));
    addBoard(door.socketAddress());
    ASSERT_TRUE(allAre(&Board::isOpen));
    drawFor(2'000);
    door.terminate();
    drawFor(500);
    ASSERT_TRUE(door.ends());
    EXPECT_EQ(door.exitCode(), 0);
    ASSERT_TRUE(door.start(engine() + atPort(door)));
    drawFor(2'000);
    settle();
    expectSame();
}

TEST_F(SharedLesson, livesInMemoryAsWell)
{
    DoorProgram door;
    ASSERT_TRUE(door.start({QStringLiteral("--engine"), QStringLiteral("memory")}));
    addBoard(door.socketAddress());
    ASSERT_TRUE(allAre(&Board::isOpen));
    addBoard(door.socketAddress());
    ASSERT_TRUE(allAre(&Board::isOpen));
    drawFor(2'000);
    ASSERT_TRUE(door.killed()); // and its memory with it
    ASSERT_TRUE(door.start({QStringLiteral("--engine"), QStringLiteral("memory"), QStringLiteral("--port"),
                            QString::number(door.address().port())}));
    drawFor(2'000);
    settle();
    expectSame();
}

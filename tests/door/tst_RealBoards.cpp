// A lesson of real processes: eight boards that draw by chance, a door and an engine. Each of them is lost once.

#include "BoardKit.h"
#include "DoorKit.h"
#include "ServerKit.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>

#include <QtCore/QDir>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>
#include <set>
#include <sys/prctl.h>

using namespace DoorTest;

namespace {

constexpr int kBoards = 8, kStrokes = 20, kPoints = 30, kPace = 30; // twenty seconds
constexpr int kAll = kBoards * kStrokes;
constexpr int kLongest = 300'000; // ms

class RealBoards : public testing::Test
{
protected:
    class Process : public QProcess
    {
    protected:
        void setupChildProcess() override { ::prctl(PR_SET_PDEATHSIG, SIGKILL); }
    };

    void SetUp() override
    {
        ASSERT_TRUE(server.start());
        ASSERT_TRUE(door.start({QStringLiteral("--engine"), server.address()}));
        for (int name = 0; name < kBoards; ++name)
            ASSERT_TRUE(writeStrokes(name));
    }

    QString file(int name, const char *suffix) const
    {
        return folder.filePath(QString::number(name) + QLatin1String(suffix));
    }

    static QByteArray contents(const QString &path)
    {
        QFile file{path};
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    bool writeStrokes(int name) const
    {
        Random random{unsigned(name)};
        QJsonArray strokes;
        for (int stroke = 0; stroke < kStrokes; ++stroke) {
            int x = random.from(20, 380), y = random.from(20, 280);
            QJsonArray points;
            for (int point = 0; point < kPoints; ++point)
                points.append(QJsonArray{x += random.from(-6, 6), y += random.from(-6, 6)});
            strokes.append(QJsonObject{
                {QStringLiteral("color"), QStringLiteral("#%1").arg(0x1f0000 * (name + 1), 6, 16, QChar('0'))},
                {QStringLiteral("width"), random.from(1, 8)},
                {QStringLiteral("points"), points}});
        }
        QFile out{file(name, ".json")};
        const QJsonObject all{
            {QStringLiteral("width"), 400}, {QStringLiteral("height"), 300}, {QStringLiteral("strokes"), strokes}};
        return out.open(QIODevice::WriteOnly) && out.write(QJsonDocument(all).toJson()) > 0;
    }

    void start(int name, const QStringList &how)
    {
        auto &board = boards[std::size_t(name)];
        board = std::make_unique<Process>();
        board->setProcessChannelMode(QProcess::ForwardedChannels);
        board->start(QStringLiteral(INKBOARD),
                     how + QStringList{QStringLiteral("--play"), file(name, ".json"), QStringLiteral("--pace"),
                                       QString::number(kPace), QStringLiteral("--until"), QString::number(kAll),
                                       QStringLiteral("--png"), file(name, ".png"), QStringLiteral("--timeout"),
                                       QString::number(kLongest / 1000), QStringLiteral("--record-latency"),
                                       file(name, ".txt")});
    }

    QStringList joining(const QUrl &address) const
    {
        QUrl link{QString::fromUtf8(contents(folder.filePath(QStringLiteral("link"))).trimmed())};
        link.setPort(address.port());
        return {QStringLiteral("--join"), link.toString()};
    }

    // Of the objects of others, as they have come to a board.
    QList<QByteArray> seenBy(int name) const
    {
        QList<QByteArray> seen;
        for (const QByteArray &line : contents(file(name, ".txt")).split('\n')) {
            if (line.count(' ') == 2)
                seen.append(line.left(line.lastIndexOf(' ')));
        }
        return seen;
    }

    bool hasEnded(int name) const { return boards[std::size_t(name)]->state() == QProcess::NotRunning; }

    // Until the first board has seen so many objects of others. False also where it has ended.
    bool untilSeen(int count) const
    {
        return runUntil([&] { return hasEnded(0) || seenBy(0).size() >= count; }, kLongest) && !hasEnded(0);
    }

    // All have ended well, with the same page, and have heard of each object of others once; but for one that had told
    // of some of them before it was killed.
    void expectSame(int killed)
    {
        for (const auto &board : boards) {
            ASSERT_TRUE(runUntil([&] { return board->state() == QProcess::NotRunning; }, kLongest));
            EXPECT_EQ(board->exitStatus(), QProcess::NormalExit);
            EXPECT_EQ(board->exitCode(), 0);
        }
        const QByteArray page = contents(file(0, ".png"));
        EXPECT_FALSE(page.isEmpty());
        for (int name = 0; name < kBoards; ++name) {
            EXPECT_TRUE(contents(file(name, ".png")) == page) << name;
            const QList<QByteArray> seen = seenBy(name);
            EXPECT_EQ(std::set<QByteArray>(seen.begin(), seen.end()).size(), std::size_t(seen.size())) << name;
            if (name != killed) {
                EXPECT_EQ(seen.size(), kAll - kStrokes) << name;
            }
        }
    }

    Server server;
    DoorProgram door;
    QTemporaryDir folder;
    std::array<std::unique_ptr<Process>, kBoards> boards;
};

} // namespace

TEST_F(RealBoards, haveTheSamePageWhateverWasLost)
{
    constexpr int kCut[] = {1, 2};
    constexpr int kKilled = 3;
    Cable cable{door.address()};
    const QString link = folder.filePath(QStringLiteral("link")),
                  journals = folder.filePath(QStringLiteral("journals"));
    start(0, {QStringLiteral("--share"), QStringLiteral("--door"), door.address().toString(),
              QStringLiteral("--link-file"), link});
    ASSERT_TRUE(runUntil([&] { return hasEnded(0) || QFile::exists(link); }, kLongest));
    ASSERT_FALSE(hasEnded(0));
    for (const int name : kCut)
        start(name, joining(cable.address()));
    const QStringList withJournal = joining(door.address()) + QStringList{QStringLiteral("--journal"), journals};
    start(kKilled, withJournal);
    for (int name = kKilled + 1; name < kBoards; ++name)
        start(name, joining(door.address()));

    ASSERT_TRUE(untilSeen(10));
    cable.pull();
    ASSERT_TRUE(untilSeen(25));
    cable.plugIn();
    boards[kKilled]->kill();
    ASSERT_TRUE(runUntil([&] { return hasEnded(kKilled); }));
    ASSERT_EQ(QDir{journals}.entryList(QDir::Files).filter(QRegularExpression(QStringLiteral("\\.inkboard$"))).size(),
              1);
    ASSERT_TRUE(untilSeen(35));
    start(kKilled, withJournal);
    ASSERT_TRUE(untilSeen(50));
    ASSERT_TRUE(door.killed());
    runFor(500); // all of them notice
    ASSERT_TRUE(door.start({QStringLiteral("--engine"), server.address(), QStringLiteral("--port"),
                            QString::number(door.address().port())}));
    ASSERT_TRUE(untilSeen(70));
    ASSERT_TRUE(server.killed());

    expectSame(kKilled);
    EXPECT_EQ(QDir{journals}.entryList(QDir::Files), QStringList()) << "it was held to its end";
    EXPECT_EQ(door.metric("inkboard_wrong_messages_total"), 0);
}

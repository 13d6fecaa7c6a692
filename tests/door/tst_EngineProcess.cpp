#include "ServerKit.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QUrl>
#include <QtNetwork/QTcpSocket>

#include <gtest/gtest.h>

#include <csignal>
#include <unistd.h>

using namespace InkDoor;
using namespace DoorTest;

namespace {

// What the server says to one who connects, and to what it is then told.
QByteArray said(quint16 port, const QByteArray &words)
{
    QTcpSocket socket;
    socket.connectToHost(QStringLiteral("127.0.0.1"), port);
    socket.write(words);
    QByteArray all;
    runUntil([&] {
        all += socket.readAll();
        return all.count('\n') >= 2;
    });
    return all;
}

} // namespace

TEST(EngineProcess, answersOnLoopbackToItsPasswordAlone)
{
    Server server;
    ASSERT_TRUE(server.start());
    const QUrl address{server.address()};
    EXPECT_EQ(address.host(), QStringLiteral("127.0.0.1"));
    EXPECT_EQ(address.password().size(), 64);
    const auto port = static_cast<quint16>(address.port());
    const QByteArray known =
        said(port, R"(CONNECT {"verbose":true,"user":"door","pass":")" + address.password().toLatin1() + "\"}\r\n");
    EXPECT_TRUE(known.startsWith("INFO {")) << known.constData();
    EXPECT_TRUE(known.endsWith("+OK\r\n")) << known.constData();
    EXPECT_TRUE(known.contains("\"jetstream\":true"));
    EXPECT_TRUE(
        said(port, "CONNECT {\"user\":\"door\",\"pass\":\"x\"}\r\n").contains("-ERR 'Authorization Violation'"));
}

TEST(EngineProcess, keepsItsPasswordToItselfAndTakesItAway)
{
    Server server;
    ASSERT_TRUE(server.start());
    const QString file = server.folder() + QStringLiteral("/engine.conf");
    EXPECT_EQ(int(QFile::permissions(file) & 0x0fff),
              int(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser) & 0x0fff);
    server.stop();
    EXPECT_FALSE(QFile::exists(file));
    Server another;
    ASSERT_TRUE(another.start());
    EXPECT_NE(QUrl{another.address()}.password(), QUrl{server.address()}.password());
}

TEST(EngineProcess, comesBackAtTheSameAddressWhenItIsKilled)
{
    Server server;
    ASSERT_TRUE(server.start());
    const QString before = server.address();
    const qint64 process = server.process().processId();
    QString words;
    QObject::connect(&server.process(), &EngineProcess::ended, [&](const QString &told) { words = told; });
    ASSERT_TRUE(server.killed());
    EXPECT_EQ(server.address(), before);
    EXPECT_NE(server.process().processId(), process);
    EXPECT_EQ(words, QStringLiteral("nats-server has ended: it says nothing about why"));
}

TEST(EngineProcess, endsWithItsOwner)
{
    qint64 process{};
    {
        Server server;
        ASSERT_TRUE(server.start());
        process = server.process().processId();
        EXPECT_EQ(::kill(static_cast<pid_t>(process), 0), 0);
    }
    EXPECT_NE(::kill(static_cast<pid_t>(process), 0), 0);
}

TEST(EngineProcess, leavesAFolderToTheOneThatUsesIt)
{
    Server server;
    ASSERT_TRUE(server.start());
    EngineProcess second{server.folder()};
    QString words;
    QObject::connect(&second, &EngineProcess::failed, [&](const QString &told) { words = told; });
    second.start();
    ASSERT_TRUE(runUntil([&] { return !words.isEmpty(); }));
    EXPECT_EQ(words, QStringLiteral("the folder %1 is used by another engine").arg(server.folder()));
}

TEST(EngineProcess, saysWhatIsMissing)
{
    const QTemporaryDir folder;
    QString words;
    EngineProcess none{folder.path()};
    none.setProgram(QString());
    QObject::connect(&none, &EngineProcess::failed, [&](const QString &told) { words = told; });
    none.start();
    ASSERT_TRUE(runUntil([&] { return !words.isEmpty(); }));
    EXPECT_EQ(words, QStringLiteral("there is no nats-server on this machine"));
    words.clear();
    EngineProcess nowhere{QStringLiteral("/proc/none/engine")};
    QObject::connect(&nowhere, &EngineProcess::failed, [&](const QString &told) { words = told; });
    nowhere.start();
    ASSERT_TRUE(runUntil([&] { return !words.isEmpty(); }));
    EXPECT_EQ(words, QStringLiteral("the folder /proc/none/engine cannot be made"));
}

TEST(EngineProcess, saysWhyAServerDoesNotStart)
{
    const QTemporaryDir folder;
    QFile store{folder.filePath(QStringLiteral("store"))};
    ASSERT_TRUE(store.open(QIODevice::WriteOnly)); // where a folder is to be
    EngineProcess engine{folder.path()};
    QString words;
    QObject::connect(&engine, &EngineProcess::failed, [&](const QString &told) { words = told; });
    engine.start();
    ASSERT_TRUE(runUntil([&] { return !words.isEmpty(); }));
    EXPECT_TRUE(words.startsWith(QStringLiteral("nats-server has ended: "))) << qPrintable(words);
    EXPECT_TRUE(words.contains(QStringLiteral("not a directory"))) << qPrintable(words);
}

#include "DoorKit.h"
#include "ServerKit.h"

#include <QtCore/QFile>
#include <QtNetwork/QSslCertificate>
#include <QtNetwork/QSslConfiguration>
#include <QtNetwork/QSslSocket>
#include <QtNetwork/QTcpServer>
#include <QtNetwork/QTcpSocket>
#include <QtWebSockets/QWebSocket>

#include <gtest/gtest.h>

#include <csignal>

using namespace DoorTest;

namespace {

const auto kMemory = QStringList{QStringLiteral("--engine"), QStringLiteral("memory")};
const QByteArray kWordsOfMemory = "inkboard-door: lessons are kept in memory: when this program ends, the journals of "
                                  "the boards are the only copies\n";

bool isWell(const DoorProgram &door)
{
    return door.answerTo("/health").startsWith("HTTP/1.1 200 OK\r\n");
}

bool isThere(qint64 process)
{
    return ::kill(static_cast<pid_t>(process), 0) == 0;
}

} // namespace

TEST(Program, printsItsAddressAndEndsWhenItIsAskedTo)
{
    DoorProgram door;
    ASSERT_TRUE(door.start(kMemory));
    EXPECT_TRUE(door.output().startsWith("http://127.0.0.1:")) << door.output().constData();
    EXPECT_EQ(door.output().count('\n'), 1);
    EXPECT_TRUE(isWell(door));
    EXPECT_EQ(door.metric("inkboard_connections"), 0);
    EXPECT_EQ(door.metric("inkboard_http_requests_total"), 3);
    door.terminate();
    ASSERT_TRUE(door.ends(3'000));
    EXPECT_EQ(door.exitCode(), 0);
    EXPECT_EQ(door.errors(), kWordsOfMemory + "inkboard-door: is ending\n");
}

// 1001 of RFC 6455. Who does not answer is not waited for.
TEST(Program, tellsBoardsThatItGoesAway)
{
    DoorProgram door;
    ASSERT_TRUE(door.start(kMemory));
    QWebSocket board;
    board.open(door.socketAddress());
    QTcpSocket mute;
    mute.connectToHost(QHostAddress::LocalHost, quint16(door.address().port()));
    mute.write("GET /socket HTTP/1.1\r\nHost: a\r\nConnection: Upgrade\r\nUpgrade: websocket\r\n"
               "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\nSec-WebSocket-Version: 13\r\n\r\n");
    ASSERT_TRUE(runUntil([&] { return door.metric("inkboard_connections") == 2; }));
    door.terminate();
    ASSERT_TRUE(runUntil([&] { return board.state() == QAbstractSocket::UnconnectedState; }));
    EXPECT_EQ(board.closeCode(), QWebSocketProtocol::CloseCodeGoingAway);
    ASSERT_TRUE(door.ends(3'000));
    EXPECT_EQ(door.exitCode(), 0);
}

// As a board ends the lesson that it has begun.
TEST(Program, endsItsLessonsWhenItIsToldThatTheyAreOver)
{
    DoorProgram door;
    ASSERT_TRUE(door.start(kMemory));
    ::kill(static_cast<pid_t>(door.processId()), SIGUSR1);
    ASSERT_TRUE(door.ends(3'000));
    EXPECT_EQ(door.exitCode(), 0);
    EXPECT_EQ(door.errors(), kWordsOfMemory + "inkboard-door: is ending\n");
}

TEST(Program, countsWhatItsDocumentNames)
{
    DoorProgram door;
    ASSERT_TRUE(door.start(kMemory));
    QFile document{QStringLiteral(SHARING_DOCUMENT)};
    ASSERT_TRUE(document.open(QIODevice::ReadOnly));
    const QByteArray named = document.readAll();
    const QByteArray counted = door.answerTo("/metrics");
    int metrics = 0;
    for (const QByteArray &line : counted.split('\n'))
        if (line.startsWith("# TYPE ")) {
            ++metrics;
            EXPECT_TRUE(named.contains('`' + line.split(' ')[2] + '`')) << line.constData();
        }
    EXPECT_EQ(metrics, 20);
    EXPECT_EQ(named.count("`inkboard_"), 20);
}

TEST(Program, saysWhenAPortIsTaken)
{
    QTcpServer other;
    ASSERT_TRUE(other.listen(QHostAddress::LocalHost));
    DoorProgram door;
    EXPECT_FALSE(door.start(kMemory + QStringList{QStringLiteral("--port"), QString::number(other.serverPort())}));
    ASSERT_TRUE(door.ends());
    EXPECT_EQ(door.exitCode(), 2);
    EXPECT_EQ(door.output(), "");
    EXPECT_EQ(door.errors(), kWordsOfMemory + "inkboard-door: port " + QByteArray::number(other.serverPort()) +
                                 " cannot be listened at: The bound address is already in use\n");
}

TEST(Program, saysWhatIsWrongWithItsArguments)
{
    DoorProgram door;
    EXPECT_FALSE(door.start({QStringLiteral("--replicas"), QStringLiteral("many")}));
    ASSERT_TRUE(door.ends());
    EXPECT_EQ(door.exitCode(), 2);
    EXPECT_EQ(door.errors(), "--replicas takes a number from 1 to 5\n");
}

TEST(Program, isWellAsLongAsItsEngineIs)
{
    Server server;
    ASSERT_TRUE(server.start());
    DoorProgram door;
    ASSERT_TRUE(door.start({QStringLiteral("--engine"), server.address()}));
    EXPECT_TRUE(runUntil([&] { return isWell(door); }));
    server.stop();
    EXPECT_TRUE(runUntil([&] { return !isWell(door); }));
    ASSERT_TRUE(server.start());
    EXPECT_TRUE(runUntil([&] { return isWell(door); }));
    door.terminate();
    ASSERT_TRUE(door.ends(5'000));
    EXPECT_EQ(door.errors(), "inkboard-door: the engine is there\n"
                             "inkboard-door: the engine cannot be reached; it is tried again\n"
                             "inkboard-door: the engine is there\n"
                             "inkboard-door: is ending\n");
}

TEST(Program, startsItsOwnEngineAgainAndTakesItAlong)
{
    const QTemporaryDir folder;
    DoorProgram door;
    ASSERT_TRUE(door.start({QStringLiteral("--own-engine"), folder.filePath(QStringLiteral("engine"))}));
    ASSERT_TRUE(runUntil([&] { return isWell(door); }));
    const auto engines = childrenOf(door.processId());
    ASSERT_EQ(engines.size(), 1U);
    ::kill(static_cast<pid_t>(engines[0]), SIGKILL);
    ASSERT_TRUE(runUntil([&] {
        const auto now = childrenOf(door.processId());
        return now.size() == 1 && now != engines && isWell(door);
    }));
    const qint64 second = childrenOf(door.processId())[0];
    ASSERT_TRUE(door.killed());
    EXPECT_TRUE(runUntil([&] { return !isThere(second); }));
    ASSERT_TRUE(door.start({QStringLiteral("--own-engine"), folder.filePath(QStringLiteral("engine"))}));
    const qint64 third = childrenOf(door.processId())[0];
    door.terminate();
    ASSERT_TRUE(door.ends());
    EXPECT_EQ(door.exitCode(), 0);
    EXPECT_FALSE(isThere(third));
}

TEST(Program, saysWhyItHasNoEngineOfItsOwn)
{
    DoorProgram door;
    EXPECT_FALSE(door.start({QStringLiteral("--own-engine"), QStringLiteral("/proc/none")}));
    ASSERT_TRUE(door.ends());
    EXPECT_EQ(door.exitCode(), 2);
    EXPECT_EQ(door.errors(), "inkboard-door: the folder /proc/none cannot be made\n");
}

class ProgramWithTls : public testing::Test
{
protected:
    void SetUp() override
    {
        QProcess openssl; // for 127.0.0.1, for a day
        openssl.start(QStringLiteral("openssl"),
                      {"req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes", "-days",
                       "1", "-subj", "/CN=127.0.0.1", "-addext", "subjectAltName=IP:127.0.0.1", "-keyout", key, "-out",
                       certificate});
        ASSERT_TRUE(openssl.waitForFinished() && openssl.exitCode() == 0);
    }

    const QTemporaryDir folder;
    const QString key = folder.filePath(QStringLiteral("key.pem"));
    const QString certificate = folder.filePath(QStringLiteral("certificate.pem"));
    DoorProgram door;
};

TEST_F(ProgramWithTls, speaksTlsAlone)
{
    ASSERT_TRUE(door.start(kMemory + QStringList{"--tls-certificate", certificate, "--tls-key", key}));
    EXPECT_TRUE(door.output().startsWith("https://127.0.0.1:"));
    QSslSocket socket;
    auto configuration = socket.sslConfiguration();
    configuration.setCaCertificates(QSslCertificate::fromPath(certificate));
    socket.setSslConfiguration(configuration);
    socket.connectToHostEncrypted(QStringLiteral("127.0.0.1"), static_cast<quint16>(door.address().port()));
    socket.write("GET /version HTTP/1.1\r\nHost: a\r\n\r\n");
    ASSERT_TRUE(runUntil([&] { return socket.state() == QTcpSocket::UnconnectedState; }, 6'000));
    EXPECT_TRUE(socket.readAll().startsWith("HTTP/1.1 200 OK\r\n")) << qPrintable(socket.errorString());
    EXPECT_EQ(door.answerTo("/version"), "");
}

TEST_F(ProgramWithTls, saysWhatIsNoCertificateAndNoKey)
{
    EXPECT_FALSE(door.start(kMemory + QStringList{"--tls-certificate", key, "--tls-key", key}));
    ASSERT_TRUE(door.ends());
    EXPECT_EQ(door.errors(), kWordsOfMemory + "inkboard-door: " + key.toUtf8() + " holds no certificate\n");
    EXPECT_FALSE(door.start(kMemory + QStringList{"--tls-certificate", certificate, "--tls-key", certificate}));
    ASSERT_TRUE(door.ends());
    EXPECT_EQ(door.errors(), kWordsOfMemory + "inkboard-door: " + certificate.toUtf8() + " holds no key\n");
    EXPECT_EQ(door.exitCode(), 2);
}

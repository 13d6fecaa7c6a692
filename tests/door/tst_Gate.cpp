#include "door/gate/Gate.h"

#include "ServerKit.h"

#include <QtNetwork/QTcpSocket>
#include <QtWebSockets/QWebSocket>

#include <gtest/gtest.h>

using namespace InkDoor;
using namespace DoorTest;

namespace {

constexpr int kMost = 20;

class GateTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(gate.listen(QHostAddress::LocalHost));
        QObject::connect(&ticks, &QTimer::timeout, [this] { gate.tick(); });
        ticks.start(50);
    }

    void TearDown() override
    {
        for (const auto &socket : accepted)
            socket->abort();
        accepted.clear();
    }

    std::unique_ptr<QTcpSocket> visitor() const
    {
        auto socket = std::make_unique<QTcpSocket>();
        socket->connectToHost(QHostAddress::LocalHost, gate.serverPort());
        EXPECT_TRUE(runUntil([&] { return socket->state() == QTcpSocket::ConnectedState; }));
        return socket;
    }

    // All that comes until the gate ends the connection.
    QByteArray answerTo(const QByteArray &request) const
    {
        const auto socket = visitor();
        socket->write(request);
        EXPECT_TRUE(hasEnded(*socket));
        return socket->readAll();
    }
    static bool hasEnded(const QTcpSocket &socket, int milliseconds = 8'000)
    {
        return runUntil([&] { return socket.state() == QTcpSocket::UnconnectedState; }, milliseconds);
    }
    QUrl address(const QString &path) const
    {
        return QUrl{QStringLiteral("ws://127.0.0.1:%1%2").arg(gate.serverPort()).arg(path)};
    }

    bool isWell = true;
    std::vector<std::unique_ptr<QWebSocket>> accepted;
    Gate gate{Site{[this] { return isWell; }, "1.2.3", [] { return QByteArray("a 1\n"); }}, kMost,
              [this](std::unique_ptr<QWebSocket> socket) {
                  socket->setParent(nullptr);
                  accepted.push_back(std::move(socket));
              }};
    QTimer ticks;
};

} // namespace

TEST_F(GateTest, answersRequests)
{
    EXPECT_EQ(answerTo("GET /health HTTP/1.1\r\nHost: a\r\n\r\n"), "HTTP/1.1 200 OK\r\n"
                                                                   "Content-Type: text/plain; charset=utf-8\r\n"
                                                                   "Content-Length: 5\r\n"
                                                                   "Cache-Control: no-store\r\n"
                                                                   "X-Content-Type-Options: nosniff\r\n"
                                                                   "Connection: close\r\n"
                                                                   "\r\n"
                                                                   "well\n");
    EXPECT_TRUE(answerTo("GET /version HTTP/1.1\r\nHost: a\r\n\r\n").endsWith("\r\n\r\n1.2.3\n"));
    EXPECT_TRUE(answerTo("GET /metrics HTTP/1.1\r\nHost: a\r\n\r\n").endsWith("\r\n\r\na 1\n"));
    EXPECT_TRUE(answerTo("HEAD /version HTTP/1.1\r\nHost: a\r\n\r\n").endsWith("close\r\n\r\n"));
    EXPECT_TRUE(answerTo("GET / HTTP/1.1\r\nHost: a\r\n\r\n").startsWith("HTTP/1.1 404 Not Found\r\n"));
    EXPECT_TRUE(answerTo("PUT /health HTTP/1.1\r\nHost: a\r\n\r\n").startsWith("HTTP/1.1 405 Method Not Allowed\r\n"));
    EXPECT_EQ(gate.requests(), 6U);
    isWell = false;
    EXPECT_TRUE(answerTo("GET /health HTTP/1.1\r\nHost: a\r\n\r\n").startsWith("HTTP/1.1 503 Service Unavailable\r\n"));
}

TEST_F(GateTest, readsARequestThatComesInPieces)
{
    const auto socket = visitor();
    for (const char letter : QByteArray("GET /version HTTP/1.1\r\nHost: a\r\n\r\n")) {
        socket->write(&letter, 1);
        socket->flush();
        runFor(2);
    }
    ASSERT_TRUE(hasEnded(*socket));
    EXPECT_TRUE(socket->readAll().endsWith("1.2.3\n"));
}

TEST_F(GateTest, handsAWebSocketOnAtItsPathAlone)
{
    QWebSocket socket;
    socket.open(address(QStringLiteral("/socket")));
    ASSERT_TRUE(runUntil([&] { return accepted.size() == 1 && socket.state() == QAbstractSocket::ConnectedState; }));
    EXPECT_EQ(gate.visitors(), 0);
    QByteArray heard;
    QObject::connect(accepted[0].get(), &QWebSocket::binaryMessageReceived,
                     [&](const QByteArray &told) { heard = told; });
    socket.sendBinaryMessage("hello");
    EXPECT_TRUE(runUntil([&] { return heard == "hello"; }));

    QWebSocket elsewhere;
    elsewhere.open(address(QStringLiteral("/other")));
    EXPECT_TRUE(runUntil([&] { return elsewhere.error() != QAbstractSocket::UnknownSocketError; }));
    EXPECT_EQ(accepted.size(), 1U);
}

TEST_F(GateTest, aWebSocketThatWasHandedOnOutlivesTheTimeOfVisitors)
{
    QWebSocket socket;
    socket.open(address(QStringLiteral("/socket")));
    ASSERT_TRUE(runUntil([&] { return accepted.size() == 1; }));
    runFor(5'500);
    EXPECT_EQ(socket.state(), QAbstractSocket::ConnectedState);
}

TEST_F(GateTest, sendsAwayWhoSaysNothingOrNotEnough)
{
    const auto silent = visitor();
    const auto slow = visitor();
    slow->write("GET / HTTP/1.1\r\n");
    ASSERT_TRUE(runUntil([&] { return gate.visitors() == 2; }));
    EXPECT_FALSE(hasEnded(*silent, 4'000));
    EXPECT_TRUE(hasEnded(*silent, 2'000));
    EXPECT_TRUE(hasEnded(*slow, 500));
    EXPECT_EQ(gate.visitors(), 0);
    EXPECT_EQ(gate.sentAway(), 2U);
}

TEST_F(GateTest, sendsAwayWhoSendsSomethingElseAtOnce)
{
    EXPECT_TRUE(answerTo("\x16\x03\x01").startsWith("HTTP/1.1 400 Bad Request\r\n"));
    EXPECT_TRUE(answerTo(QByteArray(100'000, 'x')).startsWith("HTTP/1.1 400 Bad Request\r\n"));
    EXPECT_EQ(gate.requests(), 0U);
    EXPECT_EQ(gate.sentAway(), 2U);
}

TEST_F(GateTest, letsNoMoreInThanItHasPlaceFor)
{
    int others = 5;
    gate.setOthers([&] { return others; });
    std::vector<std::unique_ptr<QTcpSocket>> visitors;
    for (int i = 0; i < kMost - others; ++i)
        visitors.push_back(visitor());
    ASSERT_TRUE(runUntil([&] { return gate.visitors() == 15; }));
    const auto another = visitor();
    EXPECT_TRUE(hasEnded(*another, 1'000));
    EXPECT_EQ(gate.visitors(), 15);
    visitors.pop_back();
    ASSERT_TRUE(runUntil([&] { return gate.visitors() == 14; }));
    EXPECT_TRUE(answerTo("GET /health HTTP/1.1\r\nHost: a\r\n\r\n").startsWith("HTTP/1.1 200 OK\r\n"));
}

TEST_F(GateTest, whoGoesInTheMiddleOfAnythingLeavesNothing)
{
    for (const char *said : {"", "GET", "GET / HTTP/1.1\r\nHost: a\r\n\r\n",
                             "GET /socket HTTP/1.1\r\nHost: a\r\nConnection: Upgrade\r\nUpgrade: websocket\r\n"
                             "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\nSec-WebSocket-Version: 13\r\n\r\n"})
        for (int i = 0; i < 20; ++i) {
            const auto socket = visitor();
            socket->write(said);
            socket->flush();
            socket->abort();
        }
    EXPECT_TRUE(runUntil([&] { return gate.visitors() == 0; }));
    EXPECT_TRUE(answerTo("GET /health HTTP/1.1\r\nHost: a\r\n\r\n").startsWith("HTTP/1.1 200 OK\r\n"));
}

#include "door/gate/Gate.h"
#include "door/gate/Wires.h"

#include "ServerKit.h"

#include <QtNetwork/QTcpSocket>
#include <QtWebSockets/QWebSocket>

#include <gtest/gtest.h>

using namespace InkDoor;
using namespace DoorTest;

namespace {

class WiresTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(gate.listen(QHostAddress::LocalHost));
        QObject::connect(&ticks, &QTimer::timeout, [this] { wires.tick(); });
        ticks.start(100);
    }

    void TearDown() override { wires.clear(); }

    std::unique_ptr<QWebSocket> board()
    {
        const std::size_t before = connected.size();
        auto socket = std::make_unique<QWebSocket>();
        QObject::connect(socket.get(), &QWebSocket::binaryMessageReceived,
                         [this](const QByteArray &message) { heard.push_back(message); });
        socket->open(QUrl{QStringLiteral("ws://127.0.0.1:%1/socket").arg(gate.serverPort())});
        EXPECT_TRUE(runUntil([&] { return connected.size() > before; }));
        EXPECT_TRUE(runUntil([&] { return socket->state() == QAbstractSocket::ConnectedState; }));
        return socket;
    }

    // One that reads nothing of what it is sent.
    std::unique_ptr<QTcpSocket> deafBoard()
    {
        const std::size_t before = connected.size();
        auto socket = std::make_unique<QTcpSocket>();
        socket->setReadBufferSize(1);
        socket->connectToHost(QHostAddress::LocalHost, gate.serverPort());
        socket->write("GET /socket HTTP/1.1\r\nHost: a\r\nConnection: Upgrade\r\nUpgrade: websocket\r\n"
                      "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\nSec-WebSocket-Version: 13\r\n\r\n");
        EXPECT_TRUE(runUntil([&] { return connected.size() > before; }));
        return socket;
    }

    std::vector<int> connected, written, gone;
    std::vector<std::pair<int, QByteArray>> received;
    std::vector<QByteArray> heard;
    Wires wires{{[this](int connection) { connected.push_back(connection); },
                 [this](int connection, const QByteArray &message) { received.emplace_back(connection, message); },
                 [this](int connection) { written.push_back(connection); },
                 [this](int connection) { gone.push_back(connection); }}};
    Gate gate{Site{[] { return true; }, {}, [] { return QByteArray(); }}, 100,
              [this](std::unique_ptr<QWebSocket> socket) { wires.add(std::move(socket)); }};
    QTimer ticks;
};

} // namespace

TEST_F(WiresTest, connectionsHaveNumbersThatAreNotUsedAgain)
{
    auto first = board();
    first.reset();
    ASSERT_TRUE(runUntil([&] { return gone.size() == 1; }));
    const auto second = board();
    EXPECT_EQ(connected, (std::vector<int>{1, 2}));
    EXPECT_EQ(gone, std::vector<int>{1});
    EXPECT_EQ(wires.count(), 1);
}

TEST_F(WiresTest, messagesGoBothWays)
{
    const auto socket = board();
    const QByteArray large(640 << 10, 'x');
    socket->sendBinaryMessage("a");
    socket->sendBinaryMessage(large);
    ASSERT_TRUE(runUntil([&] { return received.size() == 2; }));
    EXPECT_EQ(received[0], (std::pair<int, QByteArray>(1, "a")));
    EXPECT_TRUE(received[1].second == large);
    wires.send(1, large);
    EXPECT_GT(wires.unsent(1), 0);
    ASSERT_TRUE(runUntil([&] { return heard.size() == 1 && wires.unsent(1) == 0; }));
    EXPECT_TRUE(heard[0] == large);
    EXPECT_TRUE(runUntil([&] { return !written.empty(); }));
    wires.send(7, "to nobody");
}

TEST_F(WiresTest, whatIsLargerThanAnyMessageEndsItsConnection)
{
    const auto socket = board();
    socket->sendBinaryMessage("a");
    socket->sendBinaryMessage(QByteArray((640 << 10) + 1, 'x'));
    EXPECT_TRUE(runUntil([&] { return gone.size() == 1; }));
    EXPECT_EQ(received.size(), 1U);
}

TEST_F(WiresTest, theFirstMessageIsSmall)
{
    const auto first = board(), second = board();
    first->sendBinaryMessage(QByteArray(16 << 10, 'x'));
    second->sendBinaryMessage(QByteArray((16 << 10) + 1, 'x'));
    EXPECT_TRUE(runUntil([&] { return gone.size() == 1 && received.size() == 1; }));
    EXPECT_EQ(gone, std::vector<int>{2});
    EXPECT_EQ(received[0].second.size(), 16 << 10);
}

TEST_F(WiresTest, aTextEndsItsConnection)
{
    const auto socket = board();
    socket->sendTextMessage(QStringLiteral("hello"));
    EXPECT_TRUE(runUntil([&] { return gone.size() == 1; }));
    EXPECT_EQ(wires.cutOff(), 1U);
}

TEST_F(WiresTest, oneThatIsClosedHasHeardAllBefore)
{
    const auto socket = board();
    const QByteArray large(4 << 20, 'x');
    wires.send(1, large);
    wires.close(1);
    EXPECT_EQ(gone.size(), 0U); // not from inside the call
    ASSERT_TRUE(runUntil([&] { return gone.size() == 1 && heard.size() == 1; }, 4'000));
    EXPECT_TRUE(heard[0] == large);
    EXPECT_EQ(wires.count(), 0);
}

TEST_F(WiresTest, whatComesAfterTheCloseIsNotTold)
{
    const auto socket = board();
    wires.close(1);
    socket->sendBinaryMessage("late");
    ASSERT_TRUE(runUntil([&] { return gone.size() == 1; }));
    EXPECT_EQ(received.size(), 0U);
}

TEST_F(WiresTest, oneThatReadsNothingIsCutOffAfterTenSeconds)
{
    const auto deaf = deafBoard();
    const auto other = board();
    wires.send(1, QByteArray(15 << 20, 'x')); // more than the kernel takes
    runFor(8'000);
    EXPECT_EQ(gone.size(), 0U);
    ASSERT_TRUE(runUntil([&] { return gone.size() == 1; }, 4'000));
    EXPECT_EQ(gone[0], 1);
    EXPECT_EQ(wires.cutOff(), 1U);
    EXPECT_EQ(other->state(), QAbstractSocket::ConnectedState);
}

TEST_F(WiresTest, oneWithTooMuchUnsentIsCutOffAtOnce)
{
    const auto deaf = deafBoard();
    const QByteArray megabyte(1 << 20, 'x');
    for (int i = 0; i < 40; ++i)
        wires.send(1, megabyte);
    EXPECT_LE(wires.unsent(1), (16 << 20) + 100'000);
    EXPECT_EQ(gone.size(), 0U);
    EXPECT_TRUE(runUntil([&] { return gone.size() == 1; }, 1'000));
}

// The door knows how much one who is slow has not got.
TEST_F(WiresTest, whatTheNetworkDoesNotTakeDoesNotVanishInTheSystem)
{
    const auto deaf = deafBoard();
    wires.send(1, QByteArray(4 << 20, 'x'));
    runUntil([] { return false; }, 300);
    EXPECT_GT(wires.unsent(1), 3 << 20);
}

TEST_F(WiresTest, oneThatIsClosedAndDoesNotReadToTheEndIsCutOff)
{
    const auto deaf = deafBoard();
    wires.send(1, QByteArray(15 << 20, 'x'));
    wires.close(1);
    runFor(3'000);
    EXPECT_EQ(gone.size(), 0U);
    EXPECT_TRUE(runUntil([&] { return gone.size() == 1; }, 4'000));
}

#include "BoardKit.h"
#include "DoorKit.h"
#include "ServerKit.h"

#include "sharing/wire/Message.h"

#include <QtNetwork/QTcpSocket>

#include <gtest/gtest.h>

using namespace DoorTest;
using namespace InkSharing;

namespace {

const QString kLesson = QStringLiteral("class-7b");
constexpr unsigned kSeed = 4640;

// Messages that are right, for a lesson that others hold.
std::vector<QByteArray> rightMessages()
{
    const QByteArray token(16, 't');
    const int author = authorOf(hashOf(token));
    Append append;
    append.records.push_back({{author, 1}, {}, QByteArray(200, 'r')});
    return {encoded(ToDoor{Hello{kLesson, token}}), encoded(ToDoor{append}),
            encoded(ToDoor{SendPiece{{author, hashOf("x"), 0, 1, "x"}}}), encoded(ToDoor{SendLive{"acts"}}),
            encoded(ToDoor{Alive{}})};
}

QByteArray spoiled(QByteArray message, Random &random)
{
    for (int times = random.below(4); times > 0 && !message.isEmpty(); --times) {
        const int at = random.below(message.size());
        switch (random.below(3)) {
        case 0:
            message[at] = static_cast<char>(random.below(256));
            break;
        case 1:
            message.remove(at, 1 + random.below(8));
            break;
        default:
            message.insert(at, QByteArray(1 + random.below(8), static_cast<char>(random.below(256))));
        }
    }
    return message;
}

class HostileGuests : public testing::Test
{
protected:
    void SetUp() override
    {
        RecordProperty("seed", static_cast<int>(kSeed));
        ASSERT_TRUE(door.start({QStringLiteral("--engine"), QStringLiteral("memory")}));
        teacher = std::make_unique<Board>(door.socketAddress(), kLesson, 1, Board::Role::Begins);
        ASSERT_TRUE(runUntil([this] { return teacher->isOpen(); }));
        pupil = std::make_unique<Board>(door.socketAddress(), kLesson, 2, Board::Role::Joins);
        ASSERT_TRUE(runUntil([this] { return pupil->isOpen(); }));
    }

    // Nobody who behaves has noticed anything.
    void expectWell()
    {
        for (int i = 0; i < 30; ++i) {
            teacher->act();
            pupil->act();
            runFor(5);
        }
        teacher->letGo();
        pupil->letGo();
        ASSERT_TRUE(runUntil([this] {
            return teacher->isQuiet() && pupil->isQuiet() && teacher->client().length() == pupil->client().length();
        }));
        EXPECT_EQ(teacher->lesson().log(), pupil->lesson().log());
        EXPECT_TRUE(teacher->pictures() == pupil->pictures());
        EXPECT_TRUE(door.answerTo("/health").startsWith("HTTP/1.1 200 OK\r\n"));
    }

    Random random{kSeed};
    DoorProgram door;
    std::unique_ptr<Board> teacher, pupil;
};

} // namespace

TEST_F(HostileGuests, spoiledMessagesEndTheirConnectionsAlone)
{
    const std::vector<QByteArray> right = rightMessages();
    for (int guest = 0; guest < 200; ++guest) {
        QWebSocket socket;
        socket.open(door.socketAddress());
        ASSERT_TRUE(runUntil([&] { return socket.state() == QAbstractSocket::ConnectedState; })) << guest;
        if (random.oneIn(2))
            socket.sendBinaryMessage(right[0]);
        for (int i = 0; i < 20; ++i)
            socket.sendBinaryMessage(spoiled(right[static_cast<std::size_t>(random.below(5))], random));
        socket.flush();
        if (random.oneIn(4))
            runFor(5);
    }
    expectWell();
    EXPECT_GE(door.metric("inkboard_wrong_messages_total"), 100);
}

TEST_F(HostileGuests, anythingElseThanARequestIsSentAway)
{
    for (int guest = 0; guest < 200; ++guest) {
        QTcpSocket socket;
        socket.connectToHost(door.address().host(), static_cast<quint16>(door.address().port()));
        QByteArray junk = random.oneIn(2) ? QByteArray("GET /socket HTTP/1.1\r\n") : QByteArray();
        for (int i = random.below(600); i > 0; --i)
            junk += static_cast<char>(random.below(256));
        socket.write(junk);
        runUntil([&] { return socket.state() == QTcpSocket::UnconnectedState; }, 20);
    }
    expectWell();
    EXPECT_GE(door.metric("inkboard_sent_away_total"), 100);
}

TEST_F(HostileGuests, framesThatAreNoneEndTheirConnection)
{
    for (int guest = 0; guest < 100; ++guest) {
        QTcpSocket socket;
        socket.connectToHost(door.address().host(), static_cast<quint16>(door.address().port()));
        socket.write("GET /socket HTTP/1.1\r\nHost: a\r\nConnection: Upgrade\r\nUpgrade: websocket\r\n"
                     "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\nSec-WebSocket-Version: 13\r\n\r\n");
        ASSERT_TRUE(runUntil([&] { return socket.bytesAvailable() > 0; }));
        QByteArray junk;
        for (int i = 1 + random.below(200); i > 0; --i)
            junk += static_cast<char>(random.below(256));
        socket.write(junk);
        runUntil([&] { return socket.state() == QTcpSocket::UnconnectedState; }, 20);
    }
    expectWell();
}

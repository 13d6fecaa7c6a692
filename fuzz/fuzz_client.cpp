// What a door tells a board, most of it broken. The board stands, and its lesson can be read again.

#include "Input.h"
#include "Messages.h"

#include "sharing/client/Client.h"
#include "sharing/live/Others.h"

#include "lesson/log/RecordCode.h"
#include "lesson/log/RecordReader.h"

#include <cstdlib>

using namespace InkSharing;

namespace {

void require(bool kept)
{
    if (!kept)
        std::abort();
}

const QByteArray kToken(16, 'p');

struct Board : public ClientHost
{
    std::unique_ptr<InkLesson::Lesson> lesson;
    std::unique_ptr<Others> others;
    Client client{{QStringLiteral("lesson"), kToken, {}}, *this, [] { return 1U; }};
    qint64 now{};
    bool isConnected{};

    void connectToDoor() override { isConnected = true; }
    void send(const QByteArray &message) override
    {
        ToDoor read;
        QString problem;
        require(readMessage(message, read, problem));
    }
    void disconnectFromDoor() override { isConnected = false; }
    InkLesson::Lesson &begin(const InkLesson::Header &header) override
    {
        lesson = std::make_unique<InkLesson::Lesson>(header);
        others = std::make_unique<Others>(*lesson, client.author(), [](const QByteArray &) {});
        return *lesson;
    }
    void lostStep(const InkLesson::Lesson::Refusal &refusal) override { require(!refusal.problem.isEmpty()); }
    void heard(int author, const QByteArray &payload) override
    {
        if (others)
            others->heard(author, payload, now);
    }

    ~Board() override { others.reset(); }

    void connect()
    {
        while (!isConnected && client.state() != Client::State::Gone)
            client.tick(now += 500);
        if (client.state() == Client::State::Connecting)
            client.opened(now);
    }
    void tell(const QByteArray &message)
    {
        connect();
        client.received(message, now);
    }
};

} // namespace

void Fuzz::run(const std::uint8_t *data, std::size_t size)
{
    Board board;
    board.connect();
    const int author = board.client.author();
    const Entry lesson = LessonEntry{{{200, 150}, 1}, QByteArray(kHashBytes, 't'), {1}};
    const Entry member = MemberEntry{author, hashOf(kToken), Role::Pupil};
    board.tell(encoded(FromDoor(Welcome{author, 0, 2})));
    board.tell(encoded(FromDoor(Entries{0, {encoded(lesson), encoded(member)}})));
    require(board.client.state() == Client::State::Open);
    int number = 0;
    for (const Part &part : partsOf(data, size)) {
        if (part.number >= 224) {
            ++number; // a step of its own in between
            board.lesson->apply({{author, number}, number, 0, InkLesson::kFirstPage, InkLesson::Clear()});
            board.client.done(board.now);
        }
        board.now += part.number;
        board.client.tick(board.now);
        board.others->tick(board.now);
        board.tell(part.bytes);
    }
    for (const QByteArray &code : board.lesson->log()) {
        InkLesson::RecordReader reader;
        InkLesson::Record record;
        require(reader.readCbor(code, record));
    }
    require(board.lesson->settled() <= board.lesson->log().size());
}

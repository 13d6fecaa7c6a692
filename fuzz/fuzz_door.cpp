// What strangers tell a door, most of it broken. The door stands, what it puts into the stream can be read, and whoever
// comes after them shares the lesson as if they had never been there.

#include "Input.h"
#include "Messages.h"

#include "sharing/door/Door.h"
#include "sharing/engine/MemoryEngine.h"

#include "lesson/log/RecordCode.h"

#include <cstdlib>
#include <deque>
#include <set>

using namespace InkSharing;

namespace {

void require(bool kept)
{
    if (!kept)
        std::abort();
}

constexpr int kGood = 1000; // a connection of somebody who does everything right
const QByteArray kTeacher(16, 't'), kPupil(16, 'p');

// A door on an engine in memory, and all that it has told.
struct World : public DoorWires
{
    std::deque<std::function<void()>> calls;
    MemoryStore store;
    MemoryEngine engine{store, [this](std::function<void()> call) { calls.push_back(std::move(call)); }};
    qint64 now{};
    std::set<int> closed;
    int welcomes{}, entries{};
    Door door{engine, *this, [this] { return now; }};

    void send(int connection, const QByteArray &message) override
    {
        FromDoor read;
        QString problem;
        require(readMessage(message, read, problem));
        if (connection != kGood)
            return;
        welcomes += std::holds_alternative<Welcome>(read) ? 1 : 0;
        if (const auto *some = std::get_if<Entries>(&read))
            entries += int(some->entries.size());
    }
    void close(int connection) override { closed.insert(connection); }
    qint64 unsent(int /*connection*/) const override { return 0; }

    void run()
    {
        while (!calls.empty()) {
            const auto call = std::move(calls.front());
            calls.pop_front();
            call();
        }
        for (const int connection : std::exchange(closed, {}))
            door.disconnected(connection);
    }
    void tell(int connection, const QByteArray &message)
    {
        door.received(connection, message);
        run();
    }
};

Hello hello(const QByteArray &token, bool begins)
{
    Hello hello{QStringLiteral("lesson"), token};
    if (begins)
        hello.created = LessonEntry{{{200, 150}, 1}, QByteArray(kHashBytes, '\0'), {1}};
    return hello;
}

} // namespace

void Fuzz::run(const std::uint8_t *data, std::size_t size)
{
    constexpr int kStrangers = 4;
    World world;
    for (int connection = 0; connection < kStrangers; ++connection)
        world.door.connected(connection);
    world.tell(0, encoded(ToDoor(hello(kTeacher, true)))); // the first of them has begun a lesson
    for (const Part &part : partsOf(data, size)) {
        world.now += 7 * part.number;
        world.door.connected(part.number % kStrangers); // again, where it was closed
        world.tell(part.number % kStrangers, part.bytes);
        if (part.number >= 128)
            world.door.tick();
        world.run();
    }
    for (const QByteArray &entry : *world.store.entries(QStringLiteral("lesson"))) {
        Entry read;
        QString problem;
        require(readEntry(entry, read, problem));
    }
    world.door.connected(kGood);
    world.tell(kGood, encoded(ToDoor(hello(kPupil, false))));
    require(world.welcomes == 1);
    const int author = authorOf(hashOf(kPupil));
    const QByteArray code = InkLesson::toCbor({{author, 1}, 1, 0, InkLesson::kFirstPage, InkLesson::Clear()});
    const int before = world.entries;
    world.tell(kGood, encoded(ToDoor(Append{InkLesson::kNothing, {{{author, 1}, InkLesson::kNothing, code, {}}}})));
    require(world.entries == before + 1);
}

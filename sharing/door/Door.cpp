#include "sharing/door/Door.h"

#include "sharing/door/DoorLesson.h"

#include <algorithm>

namespace InkSharing {

namespace {

constexpr qint64 kSilence = 10000;   // milliseconds after which a board is gone
constexpr qint64 kAliveEvery = 1000; // milliseconds
constexpr qint64 kKeptEmpty = 60000; // milliseconds that a lesson without guests is kept at hand

} // namespace

DoorWires::~DoorWires() = default;

Door::Door(Engine &engine, DoorWires &wires, Clock clock)
    : m_engine(engine)
    , m_clock(std::move(clock))
    , m_outlet(wires)
{
}

Door::~Door() = default;

void Door::connected(int connection)
{
    m_connections[connection].heard = m_clock();
}

void Door::disconnected(int connection)
{
    const auto found = m_connections.find(connection);
    if (found == m_connections.end())
        return;
    if (found->second.lesson)
        found->second.lesson->leave(connection);
    m_connections.erase(found);
}

void Door::written(int connection)
{
    const auto found = m_connections.find(connection);
    if (found != m_connections.end() && found->second.lesson)
        found->second.lesson->written(connection);
}

void Door::received(int id, const QByteArray &bytes)
{
    const auto found = m_connections.find(id);
    if (found == m_connections.end())
        return;
    Connection &connection = found->second;
    connection.heard = m_clock();
    m_outlet.counts().bytesIn += quint64(bytes.size());
    ToDoor message;
    QString problem;
    if (!readMessage(bytes, message, problem)) {
        ++m_outlet.counts().wrongMessages;
        turnAway(id, connection, Reason::Unreadable);
    } else if (const auto *hello = std::get_if<Hello>(&message)) {
        greet(id, connection, *hello);
    } else if (DoorLesson *lesson = connection.lesson) {
        if (const auto *append = std::get_if<Append>(&message))
            lesson->append(id, *append);
        else if (const auto *piece = std::get_if<SendPiece>(&message))
            lesson->piece(id, *piece);
        else if (const auto *live = std::get_if<SendLive>(&message))
            lesson->live(id, live->payload);
    }
}

void Door::greet(int id, Connection &connection, const Hello &hello)
{
    const bool isKnown = connection.lesson != nullptr;
    if (m_isDraining || (isKnown && !connection.lesson->has(id))) // it is about to be closed
        return;
    if (!isLessonName(hello.lesson) || (isKnown && connection.name != hello.lesson)) {
        turnAway(id, connection, Reason::NoLesson);
        return;
    }
    auto &lesson = m_lessons[hello.lesson];
    if (!lesson)
        lesson = std::make_unique<DoorLesson>(hello.lesson, m_engine, m_outlet);
    connection.lesson = lesson.get();
    connection.name = hello.lesson;
    lesson->hello(id, hello, m_clock());
}

void Door::turnAway(int id, Connection &connection, Reason reason)
{
    if (connection.lesson)
        connection.lesson->leave(id);
    m_outlet.send(id, Gone{reason});
    m_outlet.close(id);
}

void Door::tick()
{
    const qint64 now = m_clock();
    const bool isTimeToTell = now - m_told >= kAliveEvery;
    if (isTimeToTell)
        m_told = now;
    for (auto &[id, connection] : m_connections) {
        if (now - connection.heard >= kSilence)
            m_outlet.close(id);
        else if (isTimeToTell)
            m_outlet.send(id, Alive());
    }
    for (const auto &[name, lesson] : m_lessons)
        lesson->tick(now);
    forgetLessons(now);
}

// Those that nobody has come for in a while.
void Door::forgetLessons(qint64 now)
{
    for (auto it = m_lessons.begin(); it != m_lessons.end();) {
        const DoorLesson *lesson = it->second.get();
        const bool isHeld =
            !lesson->isEmpty() || std::any_of(m_connections.begin(), m_connections.end(),
                                              [&](const auto &one) { return one.second.lesson == lesson; });
        if (isHeld)
            m_used[it->first] = now;
        if (now - m_used[it->first] < kKeptEmpty) {
            ++it;
            continue;
        }
        m_used.erase(it->first);
        it = m_lessons.erase(it);
    }
}

bool Door::drain()
{
    m_isDraining = true;
    bool isDrained = true;
    for (const auto &[name, lesson] : m_lessons)
        isDrained = lesson->drain() && isDrained;
    return isDrained;
}

void Door::endLessons()
{
    for (auto &[id, connection] : m_connections) {
        if (connection.lesson)
            turnAway(id, connection, Reason::Ended);
    }
}

} // namespace InkSharing

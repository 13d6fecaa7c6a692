#pragma once

#include "sharing/door/DoorOutlet.h"
#include "sharing/engine/Engine.h"

#include <map>

namespace InkSharing {

class DoorLesson;

// The only one that boards speak to: knows who each connection is, refuses what cannot count, puts the rest into the
// lessons' streams, and hands streams and live acts to everybody. Holds no truth of its own.
//
// Connections are numbers that are not used again. Whoever carries them calls connected() first, received() for each
// binary message, and disconnected() at the end, also after close(); tick() every 100 milliseconds or so, and written()
// when a connection has written what it had to send, so that a reader who is far behind gets more.
class Door
{
public:
    using Clock = std::function<qint64()>; // milliseconds; never goes back

    // Engine and wires outlive the door.
    Door(Engine &engine, DoorWires &wires, Clock clock);
    ~Door();

    void connected(int connection);
    void received(int connection, const QByteArray &message);
    void written(int connection);
    void disconnected(int connection);
    void tick();

    // Takes no more records, hands everybody what there is, and tells them to come again elsewhere. True once nothing
    // is under way any more.
    bool drain();

    // Tells everybody that the lessons have been ended for good: nobody comes again.
    void endLessons();

    const DoorCounts &counts() const { return m_outlet.counts(); }
    int connections() const { return int(m_connections.size()); }
    int lessons() const { return int(m_lessons.size()); }

private:
    struct Connection
    {
        DoorLesson *lesson{}; // null before the first hello
        QString name{};       // of the lesson
        qint64 heard{};       // when it told something last
    };

    void greet(int id, Connection &connection, const Hello &hello);
    void turnAway(int id, Connection &connection, Reason reason);
    void forgetLessons(qint64 now);

    Engine &m_engine;
    const Clock m_clock;
    DoorOutlet m_outlet;
    std::map<int, Connection> m_connections;
    std::map<QString, std::unique_ptr<DoorLesson>> m_lessons;
    std::map<QString, qint64> m_used; // when somebody was in a lesson last
    qint64 m_told{};                  // when all were told last that this door is alive
    bool m_isDraining{};
};

} // namespace InkSharing

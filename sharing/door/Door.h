#pragma once

#include "sharing/engine/Engine.h"

#include <map>

namespace InkSharing {

class DoorLesson;

// What a door needs of those who carry its connections. None of these calls comes back into the door.
class DoorWires
{
public:
    virtual ~DoorWires();
    virtual void send(int connection, const QByteArray &message) = 0; // one binary message
    virtual void close(int connection) = 0;                           // once all that was sent is written
    virtual qint64 unsent(int connection) const = 0;                  // bytes that are not written yet
};

// What a door has done since it began, for those who watch over it.
struct DoorCounts
{
    quint64 records{}; // put into streams
    quint64 bytesIn{}; // of messages
    quint64 bytesOut{};
    quint64 refusals{};      // of records
    quint64 wrongMessages{}; // that nobody could read; their connections were closed
    quint64 liveDropped{};   // for readers that were too slow
    quint64 lostStreams{};
};

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

    const DoorCounts &counts() const { return m_counts; }
    int connections() const { return int(m_connections.size()); }
    int lessons() const { return int(m_lessons.size()); }

private:
    struct Connection;

    Engine &m_engine;
    DoorWires &m_wires;
    const Clock m_clock;
    DoorCounts m_counts;
    std::map<int, std::unique_ptr<Connection>> m_connections;
    std::map<QString, std::unique_ptr<DoorLesson>> m_lessons;
};

} // namespace InkSharing

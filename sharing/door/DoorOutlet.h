#pragma once

#include "sharing/wire/Message.h"

namespace InkSharing {

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
    quint64 unknownAppends{};
    quint64 lostStreams{};
};

// The way out of a door: writes messages, and counts them.
class DoorOutlet
{
public:
    explicit DoorOutlet(DoorWires &wires)
        : m_wires(wires)
    {
    }

    void send(int connection, const FromDoor &message) { sendBytes(connection, encoded(message)); }
    void sendBytes(int connection, const QByteArray &message)
    {
        m_counts.bytesOut += quint64(message.size());
        m_wires.send(connection, message);
    }
    void close(int connection) { m_wires.close(connection); }
    qint64 unsent(int connection) const { return m_wires.unsent(connection); }

    DoorCounts &counts() { return m_counts; }
    const DoorCounts &counts() const { return m_counts; }

private:
    DoorWires &m_wires;
    DoorCounts m_counts;
};

} // namespace InkSharing

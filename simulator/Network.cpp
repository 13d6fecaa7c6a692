#include "Network.h"

#include <algorithm>

namespace Simulator {

namespace {

constexpr qint64 kTick = 100; // milliseconds

} // namespace

DoorProcess::DoorProcess(World &world, Server &server)
    : m_world(world)
    , m_server(server)
{
    start();
    tick();
}

void DoorProcess::start()
{
    m_engine = std::make_unique<FaultyEngine>(m_server);
    m_door = std::make_unique<InkSharing::Door>(*m_engine, *this, [this] { return m_world.now(); });
}

void DoorProcess::kill()
{
    for (const int connection : connections())
        breakOne(connection, m_world.random.oneIn(4));
    m_door.reset();
    m_engine.reset();
    m_wires.clear();
}

void DoorProcess::tick()
{
    if (m_door)
        m_door->tick();
    m_world.after(kTick, [this] { tick(); });
}

std::vector<int> DoorProcess::connections() const
{
    std::vector<int> connections;
    for (const auto &[id, wire] : m_wires)
        connections.push_back(id);
    return connections;
}

DoorProcess::Wire *DoorProcess::wire(int connection)
{
    const auto found = m_wires.find(connection);
    return found == m_wires.end() || found->second.isBroken ? nullptr : &found->second;
}

qint64 DoorProcess::delay(const Wire &wire)
{
    const qint64 delay = m_world.random.below(int(wire.slowness) + 1);
    if (delay >= 1000)
        m_world.saw(Sight::Delay);
    return delay;
}

int DoorProcess::connect(Caller &caller, qint64 slowness, qint64 bytesPerSecond)
{
    const int id = ++m_last;
    Wire &wire = m_wires[id];
    wire.caller = &caller;
    wire.slowness = slowness;
    wire.bytesPerSecond = bytesPerSecond;
    wire.toDoor = std::make_unique<Way>(m_world);
    wire.toBoard = std::make_unique<Way>(m_world);
    wire.toDoor->send(delay(wire), [this, id] {
        if (m_door && this->wire(id))
            m_door->connected(id);
    });
    wire.toBoard->send(2 * slowness, [this, id] {
        if (Wire *there = this->wire(id))
            there->caller->opened();
    });
    return id;
}

void DoorProcess::fromBoard(int connection, const QByteArray &message)
{
    Wire *way = wire(connection);
    if (!way)
        return;
    if (m_server.tap)
        m_server.tap(true, message);
    way->busyBefore = std::max(way->busyBefore, m_world.now()) + 1000 * message.size() / way->bytesPerSecond;
    way->toDoor->send(way->busyBefore - m_world.now() + delay(*way), [this, connection, message] {
        if (m_door && wire(connection))
            m_door->received(connection, message);
    });
}

void DoorProcess::send(int connection, const QByteArray &message)
{
    Wire *way = wire(connection);
    if (!way)
        return;
    if (m_server.tap)
        m_server.tap(false, message);
    way->unsent += message.size();
    way->busyUntil = std::max(way->busyUntil, m_world.now()) + 1000 * message.size() / way->bytesPerSecond;
    m_world.at(way->busyUntil, [this, connection, message] {
        Wire *written = wire(connection);
        if (!written)
            return;
        written->unsent -= message.size();
        written->toBoard->send(delay(*written), [this, connection, message] {
            if (Wire *there = wire(connection))
                there->caller->received(message);
        });
        if (m_door)
            m_door->written(connection);
    });
}

void DoorProcess::close(int connection)
{
    Wire *way = wire(connection);
    if (!way)
        return;
    m_world.at(std::max(way->busyUntil, m_world.now()), [this, connection] {
        if (Wire *written = wire(connection))
            written->toBoard->send(delay(*written), [this, connection] { breakOne(connection, false); });
    });
}

qint64 DoorProcess::unsent(int connection) const
{
    const auto found = m_wires.find(connection);
    return found == m_wires.end() ? 0 : found->second.unsent;
}

void DoorProcess::hangUp(int connection)
{
    if (Wire *way = wire(connection)) {
        way->isBroken = true;
        m_world.after(delay(*way), [this, connection] {
            m_wires.erase(connection);
            if (m_door)
                m_door->disconnected(connection);
        });
    }
}

// The door finds a connection that broke silently by its silence, and so does the board.
void DoorProcess::breakOne(int connection, bool isSilent)
{
    Wire *way = wire(connection);
    if (!way)
        return;
    way->isBroken = true;
    if (!isSilent)
        way->caller->closed();
    m_world.after(isSilent ? 20000 : m_world.random.below(2000), [this, connection] {
        m_wires.erase(connection);
        if (m_door)
            m_door->disconnected(connection);
    });
}

} // namespace Simulator

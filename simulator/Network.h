#pragma once

#include "FaultyEngine.h"

#include "sharing/door/Door.h"

#include <map>
#include <memory>

namespace Simulator {

// The board's end of a connection.
class Caller
{
public:
    virtual ~Caller() = default;
    virtual void opened() = 0;
    virtual void received(const QByteArray &message) = 0;
    virtual void closed() = 0;
};

// A door, its engine, and the wires of its connections, which may be late and may break.
class DoorProcess : public InkSharing::DoorWires
{
public:
    DoorProcess(World &world, Server &server);

    // Numbers are not used again.
    int connect(Caller &caller, qint64 slowness, qint64 bytesPerSecond);
    void fromBoard(int connection, const QByteArray &message);
    void hangUp(int connection); // by the board, which is told nothing more

    // A connection breaks. Nobody is told of a silent break.
    void breakOne(int connection, bool isSilent);
    std::vector<int> connections() const;

    void kill();
    void start();
    bool isUp() const { return m_door != nullptr; }

    void send(int connection, const QByteArray &message) override;
    void close(int connection) override;
    qint64 unsent(int connection) const override;

private:
    struct Wire
    {
        Caller *caller{};
        std::unique_ptr<Way> toDoor, toBoard;
        qint64 slowness{}, bytesPerSecond{1};
        qint64 busyUntil{};  // towards the board
        qint64 busyBefore{}; // towards the door
        qint64 unsent{};
        bool isBroken{};
    };

    Wire *wire(int connection);
    qint64 delay(const Wire &wire);
    void tick();

    World &m_world;
    Server &m_server;
    std::unique_ptr<FaultyEngine> m_engine;
    std::unique_ptr<InkSharing::Door> m_door;
    std::map<int, Wire> m_wires;
    int m_last{};
};

} // namespace Simulator

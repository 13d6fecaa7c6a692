#pragma once

#include "door/engine/EngineProcess.h"

#include <QtCore/QTemporaryDir>

#include <functional>

namespace DoorTest {

// Runs the event loop until it is so. False where it is not within the time.
bool runUntil(const std::function<bool()> &isSo, int milliseconds = 20'000);
void runFor(int milliseconds);

// A real nats-server with a store of its own, which are gone with this.
class Server
{
public:
    Server();
    explicit Server(const Server &other); // on the store of another, which does not run meanwhile

    bool start();  // and waits until it answers
    void stop();   // in order
    bool killed(); // with -9, in the middle of whatever it does; true once it answers again
    QString address() const { return m_process.address(); }
    QString folder() const { return m_folder; }
    InkDoor::EngineProcess &process() { return m_process; }

    // While it does not run: takes the entries beyond a length away from a stream, as a disk does that had not all of
    // them yet.
    bool truncate(const QString &lesson, std::size_t length);

    // While it does not run: keeps what the store has, and puts that back.
    bool keepStore();
    bool putStoreBack();

private:
    explicit Server(const QString &folder);

    QTemporaryDir m_temporary;
    const QString m_folder;
    InkDoor::EngineProcess m_process;
    int m_readies{};
    QString m_failure;
};

} // namespace DoorTest

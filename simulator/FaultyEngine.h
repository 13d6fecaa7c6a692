#pragma once

#include "World.h"

#include "sharing/engine/MemoryEngine.h"

#include <memory>
#include <set>

namespace Simulator {

class FaultyStream;

// Sees messages, of boards and of doors.
using Tap = std::function<void(bool isToDoor, const QByteArray &message)>;

// What all doors' engines have in common: one server, which may be down, and whose disk may lose its last minute.
struct Server
{
    explicit Server(World &itsWorld)
        : world(itsWorld)
    {
    }

    World &world;
    Tap tap{};
    InkSharing::MemoryStore store;
    bool isUp{true};
    bool isFaulty{true};
    qint64 slowness{2};          // milliseconds to and from it, at most
    qint64 latest{};             // when one of those was sent that have come
    std::vector<qint64> times{}; // when each entry came

    const std::vector<QByteArray> &entries() const;

    // What was stored just now came now.
    void note() { times.resize(entries().size(), world.now()); }

    // Comes up again without what its disk had not yet.
    void setBack(qint64 milliseconds);
};

const QString kLesson = QStringLiteral("lesson");

// An engine in memory as a door sees it from afar: late, sometimes not at all.
class FaultyEngine : public InkSharing::Engine
{
public:
    explicit FaultyEngine(Server &server);

    std::unique_ptr<InkSharing::Stream> open(const QString &lesson, Open how,
                                             InkSharing::StreamListener &listener) override;
    void remove(const QString &lesson, std::function<void(bool)> done) override;

private:
    friend class FaultyStream;
    Server &m_server;
    InkSharing::MemoryEngine m_engine;
};

} // namespace Simulator

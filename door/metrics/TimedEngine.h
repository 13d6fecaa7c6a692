#pragma once

#include "door/metrics/Histogram.h"
#include "sharing/engine/Engine.h"

namespace InkDoor {

// What appends to an engine take, for those who watch over a door.
struct AppendCounts
{
    Histogram stored; // from the call to the answer
    quint64 unknown{};
    qint64 underWay{};
};

// An engine that does what another does, and counts.
class TimedEngine : public InkSharing::Engine
{
public:
    explicit TimedEngine(InkSharing::Engine &engine);

    std::unique_ptr<InkSharing::Stream> open(const QString &lesson, Open how,
                                             InkSharing::StreamListener &listener) override;
    void remove(const QString &lesson, std::function<void(bool isRemoved)> done) override;

    const AppendCounts &counts() const { return *m_counts; }

private:
    InkSharing::Engine &m_engine;
    const std::shared_ptr<AppendCounts> m_counts;
};

} // namespace InkDoor

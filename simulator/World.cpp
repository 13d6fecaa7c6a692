#include "World.h"

namespace Simulator {

const char *nameOf(Sight sight)
{
    constexpr const char *kNames[] = {
        "delay",
        "append lost",
        "answer lost",
        "stored twice",
        "overtaken",
        "no effect",
        "connection cut",
        "connection silent",
        "board killed",
        "steps forgotten",
        "own step returned",
        "door killed",
        "engine killed",
        "engine set back",
        "taken back",
        "pending again",
        "disk full",
        "whole class",
        "late join",
        "came before",
        "undo while pending",
        "contents",
        "contents anew",
        "one object, two hands",
        "page gone",
        "lived",
        "live lost",
        "read beside",
        "settled",
    };
    static_assert(std::size(kNames) == std::size_t(Sight::Count));
    return kNames[std::size_t(sight)];
}

void World::at(qint64 time, std::function<void()> call)
{
    m_events.push({std::max(time, m_now), m_order++, std::move(call)});
}

void World::runUntil(qint64 time)
{
    while (!m_events.empty() && m_events.top().time <= time) {
        const Event event = m_events.top();
        m_events.pop();
        m_now = event.time;
        event.call();
    }
    m_now = time;
}

} // namespace Simulator

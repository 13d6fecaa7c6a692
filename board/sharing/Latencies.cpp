#include "board/sharing/Latencies.h"

#include <algorithm>

namespace Board {

using namespace InkSharing;

void Latencies::shown(int author, const QByteArray &payload, qint64 now)
{
    LiveMessage message;
    QString problem;
    if (!readLive(payload, message, problem))
        return;
    std::deque<Drawn> &drawn = m_drawn[author];
    if (const auto *acts = std::get_if<LiveActs>(&message)) {
        take(drawn, *acts, now);
    } else if (const auto *drop = std::get_if<LiveDrop>(&message)) {
        if (!drawn.empty() && drawn.back().taken == drop->taken)
            drawn.back().last = drop->number;
    }
}

// Acts that have a gap before them are not shown, and of those that come again nobody knows how long they took.
void Latencies::take(std::deque<Drawn> &drawn, const LiveActs &acts, qint64 now)
{
    const bool isNew = drawn.empty() || drawn.back().taken != acts.taken;
    if (isNew && acts.from == 0 && std::holds_alternative<InkLesson::Draw>(acts.record.deed))
        drawn.push_back({acts.taken});
    if (drawn.empty() || drawn.back().taken != acts.taken || drawn.back().acts != acts.from || acts.time == 0)
        return;
    drawn.back().acts += actsOf(acts.record).size();
    drawn.back().worst = std::max(drawn.back().worst, now - acts.time);
}

qint64 Latencies::settled(const InkLesson::Record &record, qint64 now)
{
    std::deque<Drawn> &drawn = m_drawn[record.id.author];
    while (!drawn.empty() && drawn.front().last != 0 && drawn.front().last < record.id.number)
        drawn.pop_front(); // it left no mark
    if (drawn.empty())
        return now - record.time;
    const Drawn first = drawn.front();
    drawn.pop_front();
    const bool isWhole = first.acts >= actsOf(record).size();
    return isWhole ? first.worst : std::max(first.worst, now - record.time); // its last points came with it
}

} // namespace Board

#include "board/sharing/Latencies.h"

#include <algorithm>
#include <iterator>

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
    if (drawn.empty() || drawn.back().taken != acts.taken || drawn.back().acts() != acts.from || acts.time == 0)
        return;
    drawn.back().parts.push_back({acts.from, actsOf(acts.record).size(), acts.time, now});
}

// The acts of a part were done one after the other until the next part began.
qint64 Latencies::settled(const InkLesson::Record &record, qint64 now)
{
    std::deque<Drawn> &drawn = m_drawn[record.id.author];
    while (!drawn.empty() && drawn.front().last != 0 && drawn.front().last < record.id.number)
        drawn.pop_front(); // it left no mark
    const quint64 middle = actsOf(record).size() / 2;
    if (drawn.empty() || drawn.front().acts() <= middle) {
        if (!drawn.empty())
            drawn.pop_front();
        return now - record.time;
    }
    const std::vector<Part> parts = std::move(drawn.front().parts);
    drawn.pop_front();
    const auto part =
        std::find_if(parts.begin(), parts.end(), [&](const Part &one) { return one.from + one.count > middle; });
    const qint64 end = std::next(part) == parts.end() ? record.time : std::next(part)->time;
    return part->shown - part->time - (end - part->time) * qint64(middle - part->from) / qint64(part->count);
}

} // namespace Board

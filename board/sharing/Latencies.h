#pragma once

#include "sharing/live/LiveMessage.h"

#include <deque>
#include <map>
#include <vector>

namespace Board {

// How long what others draw takes from their hands to the pixels here, measured on one machine, by its one clock.
class Latencies
{
public:
    // What another is doing was shown at that time, in milliseconds since 1970.
    void shown(int author, const QByteArray &payload, qint64 now);

    // An object came as a record and is pixels. The milliseconds from the point in the middle of it to the pixels of
    // that point here: of many objects they are spread as those of all points are. From the end of the object where
    // that point was not seen before.
    qint64 settled(const InkLesson::Record &record, qint64 now);

private:
    struct Part // acts that were shown at once
    {
        quint64 from;
        quint64 count;
        qint64 time; // of the first
        qint64 shown;
    };
    struct Drawn
    {
        int taken{};
        std::vector<Part> parts{};
        int last{}; // number of a record: it is this one or one before. 0 while it is in the hand

        quint64 acts() const { return parts.empty() ? 0 : parts.back().from + parts.back().count; }
    };
    void take(std::deque<Drawn> &drawn, const InkSharing::LiveActs &acts, qint64 now);

    std::map<int, std::deque<Drawn>> m_drawn; // of each author, that no record has come of, the oldest first
};

} // namespace Board

#pragma once

#include "sharing/live/LiveMessage.h"

#include "lesson/fold/Lesson.h"

#include <map>
#include <vector>

namespace InkSharing {

// What the others are doing just now: who is there, and the objects that they have in hand, which are shown on the
// pages as they grow. Who is not heard of for five seconds is gone, with all of it.
class Others
{
public:
    using Send = std::function<void(const QByteArray &payload)>;

    // The lesson outlives it. `me` is the author here.
    Others(InkLesson::Lesson &lesson, int me, Send send);
    ~Others();

    // Returns whether this author is asked for all acts of the object in hand.
    bool heard(int author, const QByteArray &payload, qint64 now);
    void tick(qint64 now);

    struct Other
    {
        Presence presence;
        qint64 heard{};
        int taken{}; // the object in hand that is known of, 0 for none
        InkLesson::PageId page{};
        quint64 acts{};
        std::optional<int> dropped{}; // it has left the hand, and shows until this record is there
        qint64 droppedAt{};
        std::optional<qint64> askedAt{};
    };
    const std::map<int, Other> &all() const { return m_others; }

    // Who holds a committed object; 0 where nobody does.
    int holderOf(const InkLesson::ObjectId &object) const;

    std::function<void()> changed; // of who is there, and where
    std::function<void()> missed;  // acts were missed, and are asked for

private:
    void take(int author, Other &other, const Presence &presence, qint64 now);
    void take(int author, Other &other, const LiveActs &acts, qint64 now);
    void begin(int author, Other &other, const LiveActs &acts);
    void hold(int author, const Other &other, const InkLesson::ObjectId &held);
    void letGo(int author, Other &other);
    void leave(int author, Other &other);
    void takeLeft(qint64 now);
    bool isOver(int author, int record, qint64 droppedAt, qint64 now) const;
    void ask(int author, Other &other, qint64 now);
    void show(const InkLesson::PageId &page, const QRegion &area);

    InkLesson::Lesson &m_lesson;
    const int m_me;
    const Send m_send;
    std::map<int, Other> m_others;

    // What has left a hand that has something else now, until its record is there.
    struct Left
    {
        int author;
        int hand; // of the page, that nobody has
        InkLesson::PageId page;
        int record;
        qint64 droppedAt;
    };
    std::vector<Left> m_left;
    int m_lastHand{};
};

} // namespace InkSharing

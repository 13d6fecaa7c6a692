#pragma once

#include "sharing/live/LiveMessage.h"

#include "lesson/authoring/Author.h"

namespace InkSharing {

// Tells the others what this author is doing, as it is done: the acts since the last message, collected for a frame.
class LiveSender
{
public:
    using Send = std::function<void(const QByteArray &payload)>;

    // The author outlives it, and has no other one.
    LiveSender(InkLesson::Author &author, Send send);
    ~LiveSender();

    // Who this is and where; the object in hand is added.
    void setPresence(const Presence &presence);

    // Tells what there is to tell. To be called thirty times a second, and right after an object has left the hand.
    void tick(qint64 now);

    // Somebody has missed acts: all of them are told again.
    void asked();

    // Of the object in hand, those that were told.
    quint64 acts() const { return m_acts; }

private:
    Q_DISABLE_COPY(LiveSender)

    void tellTaken();
    void tellRest();
    void tellIfGone();
    void tellHand(const InkLesson::Hand &hand);
    bool tellActs(const InkLesson::Hand &hand);
    void tellDrop();
    void tellPresence(qint64 now);
    bool isTold(const InkLesson::Hand &hand) const;

    InkLesson::Author &m_author;
    const Send m_send;
    Presence m_presence;
    bool m_isChanged{true};
    qint64 m_frame{};   // of the last one
    qint64 m_present{}; // when presence was told last
    int m_taken{};      // that was told of last, 0 for none
    quint64 m_acts{};   // of it, that were told
    InkLesson::ObjectId m_held{};
    bool m_isAsked{};
    bool m_hasRoom{true}; // for an object that was not told of in this frame
    bool m_isTooLarge{};  // for live acts: its record tells of it
};

} // namespace InkSharing

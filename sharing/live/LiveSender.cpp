#include "sharing/live/LiveSender.h"

#include "sharing/wire/Message.h"

#include <algorithm>

namespace InkSharing {

using namespace InkLesson;

namespace {

constexpr qint64 kFrame = 33;           // milliseconds
constexpr qint64 kPresentEvery = 1000;  // milliseconds
constexpr std::size_t kMostActs = 2000; // in one message

} // namespace

LiveSender::LiveSender(Author &author, Send send)
    : m_author(author)
    , m_send(std::move(send))
{
    m_author.aboutToSettle = [this] { tellRest(); };
    m_author.settled = [this] { tellIfGone(); };
}

LiveSender::~LiveSender()
{
    m_author.aboutToSettle = nullptr;
    m_author.settled = nullptr;
}

void LiveSender::setPresence(const Presence &presence)
{
    m_presence = presence;
    m_isChanged = true;
}

void LiveSender::asked()
{
    m_isAsked = true;
}

void LiveSender::tick(qint64 now)
{
    if (now - m_frame < kFrame)
        return;
    m_frame = now - m_frame < 2 * kFrame ? m_frame + kFrame : now; // thirty a second, however the ticks fall
    m_hasRoom = true;
    tellTaken();
    m_isAsked = false;
    tellPresence(now);
}

// What is in the hand now, and that what was told of before is there no more.
void LiveSender::tellTaken()
{
    tellIfGone();
    const Hand *hand = m_author.hand();
    if (hand && (m_author.taken() != m_taken || std::exchange(m_isAsked, false))) {
        m_taken = m_author.taken();
        m_acts = 0;
        m_held = kNothing;
        m_isTooLarge = m_author.actsBefore() == 0 && !hand->life.picture.isNull();
    }
    if (hand)
        tellHand(*hand);
}

// The record may come much later, behind a large one. Of what is drawn faster than a frame there is one in each; others
// are told by their records alone.
void LiveSender::tellRest()
{
    if (m_author.taken() == m_taken || std::exchange(m_hasRoom, false))
        tellTaken();
}

// So that nobody paints it beside what its record has made of it.
void LiveSender::tellIfGone()
{
    if (m_taken != 0 && (!m_author.hand() || m_author.taken() != m_taken))
        tellDrop();
}

bool LiveSender::isTold(const Hand &hand) const
{
    return hand.life.acts.size() <= m_author.actsBefore() + m_acts && hand.held == m_held;
}

void LiveSender::tellHand(const Hand &hand)
{
    if (m_acts == 0 && !m_isTooLarge)
        m_isTooLarge = !tellActs(hand);
    while (!m_isTooLarge && !isTold(hand))
        m_isTooLarge = !tellActs(hand);
}

// The next acts. False where they are too large for a message.
bool LiveSender::tellActs(const Hand &hand)
{
    const std::size_t from = m_author.actsBefore() + m_acts;
    const std::size_t count = std::min(hand.life.acts.size() - from, kMostActs);
    const auto first = hand.life.acts.begin() + std::ptrdiff_t(from);
    const std::vector<Act> acts(first, first + std::ptrdiff_t(count));
    const bool isCommitted = m_author.actsBefore() != 0;
    LiveActs message{m_taken, m_acts, {{m_author.number(), 1}, 1, 0, m_author.page(), Clear()}, hand.held};
    if (m_acts < m_author.actTimes().size())
        message.time = m_author.actTimes()[m_acts];
    if (m_acts == 0 && !isCommitted) {
        Life life{hand.life.tool, hand.life.ink, hand.life.canvas, {}, hand.life.position, acts};
        message.record.deed = Draw{std::move(life)};
    } else {
        Change change{hand.held == kNothing ? ObjectId{m_author.number(), 1} : hand.held};
        change.acts = acts;
        message.record.deed = std::move(change);
    }
    const QByteArray payload = encoded(LiveMessage(message));
    if (payload.size() > kMostLiveBytes)
        return false;
    m_send(payload);
    m_acts += count;
    m_held = hand.held;
    return true;
}

void LiveSender::tellDrop()
{
    // Numbers that were left out are no records.
    m_send(encoded(LiveMessage(LiveDrop{m_taken, m_author.lastNumber()})));
    m_taken = 0;
    m_isChanged = true;
}

void LiveSender::tellPresence(qint64 now)
{
    if (!m_isChanged && now - m_present < kPresentEvery)
        return;
    m_isChanged = false;
    m_present = now;
    m_presence.taken = m_isTooLarge ? 0 : m_taken;
    m_presence.acts = m_acts;
    m_send(encoded(LiveMessage(m_presence)));
}

} // namespace InkSharing

#include "sharing/live/Others.h"

#include "lesson/objects/Tools.h"

#include <algorithm>

namespace InkSharing {

using namespace InkLesson;

namespace {

constexpr qint64 kSilence = 5000;   // milliseconds after which somebody is gone
constexpr qint64 kOutlived = 10000; // milliseconds that a dropped object waits for its record
constexpr qint64 kAskedAgain = 500; // milliseconds
constexpr std::size_t kMostOthers = 256;
constexpr std::size_t kMostLeft = 256; // objects

} // namespace

Others::Others(Lesson &lesson, int me, Send send)
    : m_lesson(lesson)
    , m_me(me)
    , m_send(std::move(send))
{
}

Others::~Others()
{
    for (auto &[author, other] : m_others)
        letGo(author, other);
    for (const Left &left : m_left)
        show(left.page, m_lesson.page(left.page).drop(left.hand));
}

void Others::show(const PageId &page, const QRegion &area)
{
    if (!area.isEmpty() && m_lesson.pageChanged)
        m_lesson.pageChanged(page, area);
}

bool Others::heard(int author, const QByteArray &payload, qint64 now)
{
    LiveMessage message;
    QString problem;
    if (author == m_me || !readLive(payload, message, problem))
        return false;
    if (m_others.size() >= kMostOthers && m_others.count(author) == 0)
        return false;
    Other &other = m_others[author];
    other.heard = now;
    if (const auto *presence = std::get_if<Presence>(&message)) {
        take(author, other, *presence, now);
    } else if (const auto *acts = std::get_if<LiveActs>(&message)) {
        take(author, other, *acts, now);
    } else if (const auto *drop = std::get_if<LiveDrop>(&message)) {
        if (drop->taken == other.taken && !other.dropped) {
            other.dropped = drop->number;
            other.droppedAt = now;
            tick(now);
        }
    } else if (const auto *ask = std::get_if<LiveAsk>(&message)) {
        return ask->author == m_me;
    }
    return false;
}

void Others::take(int author, Other &other, const Presence &presence, qint64 now)
{
    other.presence = presence;
    if (presence.taken != 0 && (presence.taken != other.taken || presence.acts > other.acts))
        ask(author, other, now);
    if (presence.taken == 0 && other.taken != 0 && !other.dropped) { // nobody has told that it was dropped
        other.dropped = 0;
        other.droppedAt = now;
    }
    if (changed)
        changed();
}

// Those that are known already are passed over: somebody else has asked for them.
void Others::take(int author, Other &other, const LiveActs &acts, qint64 now)
{
    if (acts.taken != other.taken && acts.from == 0)
        begin(author, other, acts);
    const std::vector<Act> &told = actsOf(acts.record);
    if (acts.taken != other.taken || acts.from > other.acts) {
        ask(author, other, now);
        return;
    }
    const quint64 known = other.acts - acts.from;
    Page &page = m_lesson.page(other.page);
    if (acts.held != kNothing && page.hand(author) && page.hand(author)->held != acts.held)
        hold(author, other, acts.held);
    if (known >= told.size())
        return;
    show(other.page, page.act(author, {told.begin() + std::ptrdiff_t(known), told.end()}));
    other.acts = acts.from + told.size();
    other.askedAt.reset();
}

// Without its acts.
void Others::begin(int author, Other &other, const LiveActs &acts)
{
    if (other.dropped)
        leave(author, other);
    letGo(author, other);
    Hand hand{author, {}, {}};
    if (const auto *draw = std::get_if<Draw>(&acts.record.deed)) {
        hand.life = draw->life;
        hand.life.acts.clear();
        hand.object = createObject(hand.life);
    } else if (const std::optional<Life> life = m_lesson.life(acts.held)) {
        hand.life = *life;
        hand.object = live(*life).object;
        hand.held = acts.held;
    }
    const bool isShown = hand.object && m_lesson.hasPage(acts.record.page);
    other.taken = acts.taken;
    other.page = isShown ? acts.record.page : kFirstPage;
    other.acts = 0;
    if (!isShown)
        return; // what is held is not there any more
    setDrawnElsewhere(*hand.object, author);
    show(other.page, m_lesson.page(other.page).take(std::move(hand)));
}

// What was drawn anew has become a committed object, which stays in the hand.
void Others::hold(int author, const Other &other, const ObjectId &held)
{
    Page &page = m_lesson.page(other.page);
    Hand hand{author, {}, {}};
    QRegion area = page.drop(author, &hand);
    hand.held = held;
    area |= page.take(std::move(hand));
    show(other.page, area);
}

void Others::letGo(int author, Other &other)
{
    if (other.taken != 0)
        show(other.page, m_lesson.page(other.page).drop(author));
    other.taken = 0;
    other.acts = 0;
    other.dropped.reset();
    other.askedAt.reset();
}

// The record of what was drawn anew may come late: it shows beside what the hand takes next.
void Others::leave(int author, Other &other)
{
    Page &page = m_lesson.page(other.page);
    Hand hand{author, {}, {}};
    if (!page.hand(author) || page.hand(author)->held != kNothing || m_left.size() >= kMostLeft)
        return;
    QRegion area = page.drop(author, &hand);
    hand.author = --m_lastHand; // authors are not negative
    m_left.push_back({author, hand.author, other.page, *other.dropped, other.droppedAt});
    area |= page.take(std::move(hand));
    show(other.page, area);
}

void Others::takeLeft(qint64 now)
{
    const auto over = std::stable_partition(m_left.begin(), m_left.end(), [&](const Left &left) {
        return !isOver(left.author, left.record, left.droppedAt, now);
    });
    const std::vector<Left> gone(over, m_left.end());
    m_left.erase(over, m_left.end());
    for (const Left &left : gone)
        show(left.page, m_lesson.page(left.page).drop(left.hand));
}

bool Others::isOver(int author, int record, qint64 droppedAt, qint64 now) const
{
    return m_lesson.history().lastNumber(author) >= record || now - droppedAt >= kOutlived;
}

void Others::ask(int author, Other &other, qint64 now)
{
    if (other.askedAt && now - *other.askedAt < kAskedAgain)
        return;
    other.askedAt = now;
    m_send(encoded(LiveMessage(LiveAsk{author})));
    if (missed)
        missed();
}

void Others::tick(qint64 now)
{
    takeLeft(now);
    for (auto it = m_others.begin(); it != m_others.end();) {
        auto &[author, other] = *it;
        const bool isGone = now - other.heard >= kSilence;
        const bool isSettled = other.dropped && isOver(author, *other.dropped, other.droppedAt, now);
        if (isGone || isSettled)
            letGo(author, other);
        it = isGone ? m_others.erase(it) : std::next(it);
        if (isGone && changed)
            changed();
    }
}

int Others::holderOf(const ObjectId &object) const
{
    for (const auto &[author, other] : m_others) {
        const Hand *hand = other.taken == 0 ? nullptr : m_lesson.page(other.page).hand(author);
        if (hand && hand->held == object)
            return author;
    }
    return 0;
}

} // namespace InkSharing

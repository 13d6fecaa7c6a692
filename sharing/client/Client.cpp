#include "sharing/client/Client.h"

#include "lesson/log/RecordReader.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace InkSharing {

namespace {

constexpr qint64 kShortWait = 100, kLongWait = 2000; // milliseconds between attempts
constexpr qint64 kSilence = 5000;                    // milliseconds after which a door is gone
constexpr qint64 kAliveEvery = 1000;                 // milliseconds
constexpr qint64 kBusy = 1000;                       // milliseconds between two ticks
constexpr qint64 kStall = 10000;                     // milliseconds after which what was sent is asked for
constexpr qint64 kMissing = 3000; // milliseconds that others have to bring back what the stream has lost
constexpr quint64 kMuch = 200;    // entries
constexpr int kLeftOut = 1 << 16; // numbers, of steps that a journal may have missed

std::vector<int> authorsOf(const Client::Settings &settings)
{
    return settings.authors.empty() ? std::vector<int>{authorOf(hashOf(settings.token))} : settings.authors;
}

} // namespace

ClientHost::~ClientHost() = default;

Client::Client(Settings settings, ClientHost &host, Random random)
    : m_settings(std::move(settings))
    , m_authors(authorsOf(m_settings))
    , m_host(host)
    , m_random(std::move(random))
    , m_patience(kShortWait)
{
}

void Client::take(InkLesson::Lesson &lesson, From from)
{
    m_lesson = &lesson;
    if (from == From::Journal)
        lesson.leaveOut(author(), lesson.history().nextNumber(author()) - 1 + kLeftOut);
}

bool Client::isMine(int author) const
{
    return std::find(m_authors.begin(), m_authors.end(), author) != m_authors.end();
}

void Client::send(const ToDoor &message)
{
    m_told = m_now;
    m_host.send(encoded(message));
}

void Client::sendLive(const QByteArray &payload, qint64 now)
{
    m_now = now;
    if (m_state == State::Open && payload.size() <= kMostLiveBytes)
        send(SendLive{payload});
}

void Client::opened(qint64 now)
{
    m_now = m_heard = now;
    if (m_state == State::Connecting)
        hello();
}

// With places that lie farther and farther apart: where the stream was set back, not much comes twice.
void Client::hello()
{
    m_state = State::Greeting;
    m_heard = m_now;
    settleWaiting();
    m_mustGreet = false;
    forgetSent();
    Hello hello{m_settings.lesson, m_settings.token};
    const std::size_t length = m_reader.length();
    for (std::size_t back = 0; back < length; back = back == 0 ? 1 : 2 * back)
        hello.places.push_back({length - back, m_reader.chainAt(length - back)});
    if (!m_settings.authors.empty() && m_lesson)
        hello.created = LessonEntry{m_lesson->header(), QByteArray(kHashBytes, '\0'), m_settings.authors};
    send(hello);
}

void Client::forgetSent()
{
    m_sent.clear();
    m_sentRecords.clear();
    m_pieces.clear();
    m_lastSent.reset();
    m_onItsWay = 0;
    m_progress = m_now;
}

void Client::closed(qint64 now)
{
    m_now = now;
    if (m_state != State::Gone)
        waitAWhile(0);
}

// The next attempts come later and later, and not all boards' at once.
void Client::waitAWhile(qint64 least)
{
    m_batch.reset();
    m_state = State::Waiting;
    settleWaiting();
    m_patience = std::max(m_patience, least);
    m_retryAt = m_now + m_patience / 2 + qint64(m_random() % quint32(m_patience / 2 + 1));
    m_patience = std::min(2 * m_patience, kLongWait);
}

void Client::giveUp()
{
    m_host.disconnectFromDoor();
    waitAWhile(0);
}

void Client::tick(qint64 now)
{
    m_now = now;
    if (now - std::exchange(m_ticked, now) >= kBusy) // this board was busy, and has not listened
        m_heard = now;
    if (m_state == State::Gone)
        return;
    if (m_state == State::Waiting) {
        if (now < m_retryAt)
            return;
        m_state = State::Connecting;
        m_heard = now;
        m_host.connectToDoor();
        return;
    }
    if (now - m_heard >= kSilence) {
        giveUp();
        return;
    }
    if (m_state == State::Connecting)
        return;
    if (!m_sent.empty() && now - m_progress >= kStall)
        hello();
    if (now - m_told >= kAliveEvery)
        send(Alive());
    sendPending();
}

void Client::done(qint64 now)
{
    m_now = now;
    sendPending();
}

void Client::received(const QByteArray &bytes, qint64 now)
{
    m_now = m_heard = now;
    if (m_state != State::Greeting && m_state != State::CatchingUp && m_state != State::Open)
        return;
    FromDoor message;
    QString problem;
    if (readMessage(bytes, message, problem))
        std::visit([this](const auto &one) { take(one); }, message);
    else
        giveUp();
}

void Client::take(const Welcome &welcome)
{
    if (m_state != State::Greeting)
        return;
    if (welcome.author != author() || welcome.from > m_reader.length()) {
        giveUp();
        return;
    }
    const auto from = std::size_t(welcome.from);
    if (from < m_reader.length()) {
        m_reader.takeBackTo(from);
        m_counted.resize(from);
        setBackTo(from == 0 ? 0 : m_counted.back());
    }
    m_last = welcome.last;
    m_patience = kShortWait;
    m_state = State::CatchingUp;
    catchUp();
}

// Of the records of the stream that count, only so many are there any more.
void Client::setBackTo(std::size_t records)
{
    m_places.resize(records);
    const std::size_t place = records == 0 ? 0 : m_places.back();
    if (!m_lesson || place >= m_lesson->settled())
        return;
    const auto &ids = m_lesson->ids();
    std::copy_if(ids.begin() + std::ptrdiff_t(place), ids.begin() + std::ptrdiff_t(m_lesson->settled()),
                 std::inserter(m_missing, m_missing.end()),
                 [this](const InkLesson::StepId &id) { return !isMine(id.author); });
    m_missingUntil = m_now + kMissing;
    tell(m_lesson->setBack(place, [this](int author) { return isMine(author); }));
}

void Client::take(const Entries &entries)
{
    if (m_state == State::Greeting)
        return; // of before the door was greeted anew
    if (entries.from != m_reader.length() + m_waiting.size()) {
        giveUp();
        return;
    }
    m_waiting.insert(m_waiting.end(), entries.entries.begin(), entries.entries.end());
    takeWaiting();
    goOn();
}

// As far as records can be settled.
void Client::takeWaiting()
{
    std::vector<QByteArray> codes;
    for (; !m_waiting.empty() && !m_beside; m_waiting.pop_front()) {
        const std::optional<Entry> entry = m_reader.take(m_waiting.front());
        const auto *record = entry ? std::get_if<RecordEntry>(&*entry) : nullptr;
        const auto *lesson = entry ? std::get_if<LessonEntry>(&*entry) : nullptr;
        m_counted.push_back((m_counted.empty() ? 0 : m_counted.back()) + (record ? 1 : 0));
        if (lesson && !m_lesson)
            m_lesson = &m_host.begin(lesson->header);
        if (record) {
            const QByteArray code = codeOf(*record);
            if (isReadBeside(*record, code))
                m_beside = code;
            else
                codes.push_back(code);
        }
        if (entry)
            arrived(*entry);
    }
    settle(codes);
}

void Client::goOn()
{
    if (std::exchange(m_mustGreet, false)) {
        hello();
        return;
    }
    catchUp();
    sendPending();
}

// Not while there is nothing to go on with meanwhile.
bool Client::isReadBeside(const RecordEntry &entry, const QByteArray &code)
{
    return m_state == State::Open && !isMine(entry.id.author) && m_host.readsBeside(code);
}

void Client::wasRead(const QByteArray &code, InkLesson::Lesson::Arriving arriving, qint64 now)
{
    m_now = now;
    if (m_beside != code)
        return;
    m_beside.reset();
    settle({code}, &arriving);
    takeWaiting();
    goOn();
}

// Of a lesson that is not open any more: nothing is waited for.
void Client::settleWaiting()
{
    if (const std::optional<QByteArray> code = std::exchange(m_beside, {}))
        settle({*code});
    takeWaiting();
}

// Its contents are whole, or it would not count.
QByteArray Client::codeOf(const RecordEntry &entry) const
{
    if (entry.contents.empty())
        return entry.record;
    return attached(entry.record, [this](const QByteArray &hash) { return m_reader.content(hash); });
}

// A lesson from a journal has some of the records settled already; they come again from the first on.
void Client::settle(const std::vector<QByteArray> &codes, InkLesson::Lesson::Arriving *first)
{
    if (!codes.empty() && m_state == State::CatchingUp && m_last - m_reader.length() > kMuch && !m_batch)
        m_batch = std::make_unique<InkLesson::Lesson::Batch>(*m_lesson);
    auto code = codes.begin();
    std::size_t place = m_places.empty() ? 0 : m_places.back();
    for (; code != codes.end() && place < m_lesson->settled() && m_lesson->log()[place] == *code; ++code)
        m_places.push_back(++place);
    if (code == codes.end())
        return;
    if (place < m_lesson->settled())
        setBackTo(m_places.size());
    tell(m_lesson->settle({code, codes.end()}, &m_places, code == codes.begin() ? first : nullptr));
}

void Client::catchUp()
{
    if (m_state != State::CatchingUp || m_reader.length() < m_last)
        return;
    m_state = State::Open;
    setBackTo(m_places.size()); // a journal may have more than the stream has now
    m_batch.reset();
    m_progress = m_now;
    sendPending();
}

void Client::tell(const InkLesson::Lesson::Refusals &refusals)
{
    for (const InkLesson::Lesson::Refusal &refusal : refusals) {
        if (isMine(refusal.id.author))
            m_host.lostStep(refusal);
    }
}

void Client::take(const LiveOf &live)
{
    if (m_state == State::Open)
        m_host.heard(live.author, live.payload);
}

// What was sent after it names it, so the door passes that over, too.
void Client::take(const Refused &refused)
{
    if (m_state != State::Open || !m_lesson)
        return;
    const auto found =
        std::find_if(m_sent.begin(), m_sent.end(), [&](const Sent &sent) { return sent.id == refused.record; });
    if (found == m_sent.end())
        return;
    hello();
    if (m_lesson->drop(refused.record))
        m_host.lostStep({refused.record, QStringLiteral("refused")});
}

void Client::take(const Again & /*again*/)
{
    hello();
}

// Where there is no such lesson now there may be one soon: who has begun it comes again, too.
void Client::take(const Gone &gone)
{
    m_reason = gone.reason;
    m_host.disconnectFromDoor();
    waitAWhile(kLongWait);
    if (gone.reason != Reason::NoLesson && gone.reason != Reason::TooMuch)
        m_state = State::Gone;
}

} // namespace InkSharing

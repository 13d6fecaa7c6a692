#include "door/jetstream/JetStreamEngine.h"

#include "door/jetstream/JetStreamStream.h"

#include <QtCore/QUuid>

#include <limits>

namespace InkDoor {

namespace {

constexpr qint64 kPatience = 5'000; // ms for an answer
constexpr int kTick = 100;          // ms
constexpr int kNobodyListens = 503;

// What comes to the inbox.
const char *const kAnswers = "a";
const char *const kDeliveries = "d";

} // namespace

JetStreamEngine::JetStreamEngine(const Settings &settings)
    : m_settings(settings)
    , m_name{QUuid::createUuid().toByteArray(QUuid::Id128)}
    , m_inbox{"_INBOX." + m_name + '.'}
    , m_link{settings.addresses,
             m_inbox,
             {[this](bool isUp) { changed(isUp); }, [this](const NatsMessage &message) { arrived(message); },
              [this] { paused(); }}}
{
    m_clock.start();
    m_link.listen(m_inbox + kAnswers + ".*");
    QObject::connect(&m_ticks, &QTimer::timeout, &m_ticks, [this] { tick(); });
    m_ticks.start(kTick);
    m_soon.setSingleShot(true);
    QObject::connect(&m_soon, &QTimer::timeout, &m_soon, [this] { giveUp(-1); });
}

JetStreamEngine::~JetStreamEngine() = default;

std::unique_ptr<InkSharing::Stream> JetStreamEngine::open(const QString &lesson, Open how,
                                                          InkSharing::StreamListener &listener)
{
    Q_ASSERT(InkSharing::isLessonName(lesson));
    const quint64 number = ++m_lastStream;
    auto stream = std::make_unique<JetStreamStream>(*this, number, lesson, how, listener);
    m_streams.emplace(number, stream.get());
    const QByteArray subject = liveSubject(lesson);
    std::set<quint64> &listening = m_listening[subject];
    if (listening.empty())
        m_link.listen(subject);
    listening.insert(number);
    if (isUp())
        stream->begin();
    return stream;
}

void JetStreamEngine::remove(const QString &lesson, std::function<void(bool isRemoved)> done)
{
    NatsMessage message;
    message.subject = apiSubject("STREAM.DELETE", lesson);
    ask(0, std::move(message), [this, lesson, done = std::move(done)](const NatsMessage *answer) {
        const Answer read = answer ? readAnswer(*answer) : Answer{};
        const bool isRemoved = read.isDone || read.isMissing;
        if (isRemoved)
            for (const auto &[number, stream] : m_streams)
                if (stream->lesson() == lesson)
                    stream->begin(); // which finds that it is gone
        done(isRemoved);
    });
}

// What cannot be sent is answered soon, by nothing.
void JetStreamEngine::ask(quint64 stream, NatsMessage message, Answered answered)
{
    const quint64 number = ++m_lastQuestion;
    message.reply = m_inbox + kAnswers + '.' + QByteArray::number(number);
    const bool isSent = !message.subject.isEmpty() && m_link.send(std::move(message));
    m_questions.emplace(number, Question{stream, isSent ? m_clock.elapsed() + kPatience : -1, std::move(answered)});
    if (!isSent)
        m_soon.start(0);
}

void JetStreamEngine::forget(quint64 stream)
{
    const auto found = m_streams.find(stream);
    if (found == m_streams.end())
        return;
    const QByteArray subject = liveSubject(found->second->lesson());
    std::set<quint64> &listening = m_listening[subject];
    listening.erase(stream);
    if (listening.empty()) {
        m_listening.erase(subject);
        m_link.unlisten(subject);
    }
    m_streams.erase(found);
    for (auto question = m_questions.begin(); question != m_questions.end();)
        question = question->second.stream == stream ? m_questions.erase(question) : std::next(question);
}

JetStreamStream *JetStreamEngine::find(quint64 stream) const
{
    const auto found = m_streams.find(stream);
    return found == m_streams.end() ? nullptr : found->second;
}

void JetStreamEngine::arrived(const NatsMessage &message)
{
    if (message.subject.startsWith(m_inbox))
        takeOfInbox(message);
    else if (message.reply.isEmpty())
        takeLive(message);
    else
        takeDelivered(message);
}

void JetStreamEngine::takeOfInbox(const NatsMessage &message)
{
    const QList<QByteArray> words = message.subject.mid(m_inbox.size()).split('.');
    if (words.size() == 2 && words[0] == kAnswers) {
        const auto question = m_questions.find(words[1].toULongLong());
        if (question == m_questions.end())
            return;
        const Answered answered = std::move(question->second.answered);
        m_questions.erase(question);
        answered(message.status == kNobodyListens ? nullptr : &message);
    } else if (words.size() == 3 && words[0] == kDeliveries) {
        if (JetStreamStream *const stream = find(words[1].toULongLong()))
            stream->takeWord(words[2].toULongLong(), message);
    }
}

// An entry keeps the subject that it was stored under, and says by what delivery it comes.
void JetStreamEngine::takeDelivered(const NatsMessage &message)
{
    const std::optional<Delivery> delivery = readDelivery(message.reply);
    const QList<QByteArray> words = delivery ? delivery->name.split('-') : QList<QByteArray>();
    if (words.size() != 3 || words[0] != m_name)
        return;
    const quint64 number = words[1].toULongLong();
    if (JetStreamStream *const stream = find(number)) {
        stream->take(words[2].toULongLong(), *delivery, message.data);
        m_touched.insert(number);
    }
}

void JetStreamEngine::takeLive(const NatsMessage &message)
{
    const auto listening = m_listening.find(message.subject);
    if (listening == m_listening.end())
        return;
    const std::set<quint64> all = listening->second; // any of which may go meanwhile
    for (const quint64 number : all)
        if (JetStreamStream *const stream = find(number))
            stream->hear(message);
}

QByteArray JetStreamEngine::deliveryName(quint64 stream, quint64 turn) const
{
    return m_name + '-' + QByteArray::number(stream) + '-' + QByteArray::number(turn);
}

QByteArray JetStreamEngine::deliverySubject(quint64 stream, quint64 turn) const
{
    return m_inbox + kDeliveries + '.' + QByteArray::number(stream) + '.' + QByteArray::number(turn);
}

void JetStreamEngine::paused()
{
    for (const quint64 number : std::exchange(m_touched, {}))
        if (JetStreamStream *const stream = find(number))
            stream->tell();
}

void JetStreamEngine::changed(bool isUp)
{
    paused();
    std::vector<quint64> numbers;
    for (const auto &[number, stream] : m_streams)
        numbers.push_back(number);
    for (const quint64 number : numbers)
        if (JetStreamStream *const stream = find(number))
            isUp ? stream->begin() : stream->pause();
    if (!isUp)
        giveUp(std::numeric_limits<qint64>::max());
    if (m_changed)
        m_changed(isUp);
}

void JetStreamEngine::tick()
{
    giveUp(m_clock.elapsed());
    std::vector<quint64> numbers;
    for (const auto &[number, stream] : m_streams)
        numbers.push_back(number);
    for (const quint64 number : numbers)
        if (JetStreamStream *const stream = find(number))
            stream->tick(m_clock.elapsed());
    paused();
}

// Those that were asked up to now, in their order; not what is asked meanwhile.
void JetStreamEngine::giveUp(qint64 until)
{
    const quint64 last = m_lastQuestion;
    for (auto question = m_questions.begin(); question != m_questions.end() && question->first <= last;) {
        if (question->second.deadline > until) {
            ++question;
            continue;
        }
        const quint64 number = question->first;
        const Answered answered = std::move(question->second.answered);
        m_questions.erase(question);
        answered(nullptr);
        question = m_questions.upper_bound(number);
    }
}

} // namespace InkDoor

#include "door/jetstream/JetStreamStream.h"

#include "door/jetstream/JetStreamEngine.h"

namespace InkDoor {

using InkSharing::Appended;
using InkSharing::Engine;

namespace {

constexpr qint64 kPause = 250;         // ms before it tries again
constexpr qint64 kLongSilence = 3'500; // ms; the engine says something each second
constexpr int kWordOfDelivery = 100;
constexpr std::size_t kMostEarly = 4096; // messages

} // namespace

JetStreamStream::JetStreamStream(JetStreamEngine &engine, quint64 number, const QString &lesson, Engine::Open how,
                                 InkSharing::StreamListener &listener)
    : m_engine(engine)
    , m_number{number}
    , m_lesson{lesson}
    , m_how{how}
    , m_listener(listener)
{
}

JetStreamStream::~JetStreamStream()
{
    endDelivery();
    m_engine.forget(m_number);
}

qint64 JetStreamStream::now() const
{
    return m_engine.m_clock.elapsed();
}

// Each append has a name of its own, which the engine stores once, whatever the way there doubles. One that
// follows from the record would not do: what is sent again, since a record before it was lost, has to come into the
// stream once more.
void JetStreamStream::append(const QByteArray &bytes, std::function<void(Appended)> done)
{
    NatsMessage message;
    if (bytes.size() <= Engine::kMostEntryBytes) // otherwise it cannot be sent
        message.subject = logSubject(m_lesson);
    message.data = bytes;
    message.headers = {{"Nats-Msg-Id", m_engine.appendName()}, {"Nats-Expected-Stream", streamName(m_lesson)}};
    m_engine.ask(m_number, std::move(message), [done = std::move(done)](const NatsMessage *answer) {
        done(answer && readAnswer(*answer).isDone ? Appended::Stored : Appended::Unknown);
    });
}

void JetStreamStream::publish(const QByteArray &bytes)
{
    NatsMessage message;
    message.subject = liveSubject(m_lesson);
    message.data = bytes;
    m_engine.m_link.send(std::move(message));
}

void JetStreamStream::begin()
{
    if (m_state == State::Ended)
        return;
    if (m_how == Engine::Open::Create && !m_wasThere)
        make();
    else
        order();
}

void JetStreamStream::pause()
{
    if (m_state == State::Ended)
        return;
    endDelivery();
    later();
}

// Tries again after a while.
void JetStreamStream::later()
{
    m_state = State::Waiting;
    m_due = now() + kPause;
}

void JetStreamStream::make()
{
    m_state = State::Making;
    NatsMessage message;
    message.subject = apiSubject("STREAM.CREATE", m_lesson);
    message.data = streamOrder(m_lesson, m_engine.m_settings.replicas);
    m_engine.ask(m_number, std::move(message), [this](const NatsMessage *said) {
        if (m_state != State::Making)
            return;
        const Answer answer = said ? readAnswer(*said) : Answer{};
        if (!answer.isDone && !answer.isAlreadyThere)
            return later();
        m_wasThere = true;
        order();
    });
}

void JetStreamStream::order()
{
    endDelivery();
    m_state = State::Ordering;
    m_early.clear();
    m_taken = 0;
    m_isCompared = m_last.bytes.isNull();
    m_delivery = m_engine.deliveryName(m_number, ++m_turn);
    const QByteArray subject = m_engine.deliverySubject(m_number, m_turn);
    m_engine.m_link.listen(subject); // itself: the engine sends nothing to one who listens to all that begins like it
    NatsMessage message;
    message.subject = apiSubject("CONSUMER.CREATE", m_lesson, m_delivery);
    message.data = deliveryOrder(m_lesson, m_delivery, subject, m_isCompared ? 1 : m_last.delivery.place);
    m_engine.ask(m_number, std::move(message), [this, turn = m_turn](const NatsMessage *said) {
        if (m_state == State::Ordering && turn == m_turn)
            ordered(said ? readAnswer(*said) : Answer{});
    });
}

void JetStreamStream::ordered(const Answer &answer)
{
    if (answer.isMissing)
        return end(!m_wasThere);
    if (!answer.isDone)
        return later();
    if (!m_isCompared && answer.entries == 0)
        return end(false);
    m_wasThere = true;
    m_toCatchUp = answer.entries;
    m_heardAt = now();
    m_state = State::Following;
    const quint64 turn = m_turn;
    for (Taken &entry : std::exchange(m_early, {}))
        if (m_state == State::Following && turn == m_turn)
            take(std::move(entry));
    m_engine.m_touched.insert(m_number);
}

void JetStreamStream::take(quint64 turn, const Delivery &delivery, const QByteArray &bytes)
{
    if (turn != m_turn)
        return;
    m_heardAt = now();
    if (m_state == State::Following)
        take({delivery, bytes});
    else if (m_state == State::Ordering && m_early.size() < kMostEarly)
        m_early.push_back({delivery, bytes});
}

void JetStreamStream::take(Taken entry)
{
    if (entry.delivery.number != m_taken + 1)
        return order();
    ++m_taken;
    if (!std::exchange(m_isCompared, true)) {
        const Delivery &last = m_last.delivery;
        if (entry.delivery.place != last.place || entry.delivery.stored != last.stored || entry.bytes != m_last.bytes)
            end(false);
        return;
    }
    m_entries.push_back(entry.bytes);
    m_last = std::move(entry);
}

// A heartbeat, or a question whether what was sent has been taken.
void JetStreamStream::takeWord(quint64 turn, const NatsMessage &message)
{
    if (turn != m_turn || m_state != State::Following || message.status != kWordOfDelivery)
        return;
    m_heardAt = now();
    NatsMessage answer;
    answer.subject = message.reply.isEmpty() ? message.stalledSubject : message.reply;
    if (!answer.subject.isEmpty())
        m_engine.m_link.send(std::move(answer));
    if (message.reply.isEmpty() && message.lastOfConsumer != m_taken)
        order();
}

void JetStreamStream::hear(const NatsMessage &message)
{
    if (m_state != State::Ended)
        m_listener.heard(message.data);
}

void JetStreamStream::tell()
{
    const std::map<quint64, JetStreamStream *> &all = m_engine.m_streams;
    const quint64 number = m_number;
    if (!m_entries.empty())
        m_listener.entries(std::exchange(m_entries, {}));
    if (all.count(number) == 0)
        return;
    if (m_state == State::Ended && !std::exchange(m_isEndTold, true))
        return m_isAbsent ? m_listener.absent() : m_listener.lost();
    if (m_state == State::Following && !m_isCaughtUp && m_taken >= m_toCatchUp) {
        m_isCaughtUp = true;
        m_listener.caughtUp();
    }
}

void JetStreamStream::end(bool isAbsent)
{
    endDelivery();
    m_state = State::Ended;
    m_isAbsent = isAbsent;
    m_engine.m_touched.insert(m_number);
}

void JetStreamStream::endDelivery()
{
    if (m_delivery.isEmpty())
        return;
    m_engine.m_link.unlisten(m_engine.deliverySubject(m_number, m_turn));
    NatsMessage message;
    message.subject = apiSubject("CONSUMER.DELETE", m_lesson, std::exchange(m_delivery, {}));
    m_engine.m_link.send(std::move(message));
}

void JetStreamStream::tick(qint64 now)
{
    if (m_state == State::Waiting && m_engine.isUp() && now >= m_due)
        begin();
    else if (m_state == State::Following && now - m_heardAt > kLongSilence)
        order();
}

} // namespace InkDoor

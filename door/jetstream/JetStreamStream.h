#pragma once

#include "door/jetstream/JetStreamWords.h"
#include "sharing/engine/Engine.h"

#include <vector>

namespace InkDoor {

class JetStreamEngine;

// One open stream. What it tells is in the order of the stream: entries come by a delivery, which numbers them. A gap
// in these, silence, or an engine that is back makes it order another delivery, which begins with the entry that was
// told last: whether that is still the same is how a stream is known that was set back.
class JetStreamStream : public InkSharing::Stream
{
public:
    JetStreamStream(JetStreamEngine &engine, quint64 number, const QString &lesson, InkSharing::Engine::Open how,
                    InkSharing::StreamListener &listener);
    ~JetStreamStream() override;

    void append(const QByteArray &bytes, std::function<void(InkSharing::Appended)> done) override;
    void publish(const QByteArray &bytes) override;

    const QString &lesson() const { return m_lesson; }

    void begin();                                                               // the engine can be reached
    void pause();                                                               // and cannot be
    void take(quint64 turn, const Delivery &delivery, const QByteArray &bytes); // an entry
    void takeWord(quint64 turn, const NatsMessage &message);                    // of the engine about a delivery
    void hear(const NatsMessage &message);
    void tell(); // what was taken, and how it has ended; this may be gone then
    void tick(qint64 now);

private:
    enum class State { Waiting, Making, Ordering, Following, Ended };

    // An entry as it came.
    struct Taken
    {
        Delivery delivery;
        QByteArray bytes;
    };

    void make();
    void order();
    void ordered(const Answer &answer);
    void take(Taken entry);
    void endDelivery();
    void later();
    void end(bool isAbsent);
    qint64 now() const;

    JetStreamEngine &m_engine;
    const quint64 m_number;
    const QString m_lesson;
    const InkSharing::Engine::Open m_how;
    InkSharing::StreamListener &m_listener;

    State m_state{State::Waiting};
    qint64 m_due{};     // when it tries again, while waiting
    qint64 m_heardAt{}; // of the delivery
    bool m_wasThere{};  // the stream: not made again
    bool m_isCaughtUp{};
    bool m_isAbsent{}; // is how it has ended
    bool m_isEndTold{};
    quint64 m_turn{};                  // numbers the deliveries
    QByteArray m_delivery;             // the name of the one that is ordered
    std::vector<Taken> m_early;        // before the answer to the order
    quint64 m_taken{};                 // of this delivery
    quint64 m_toCatchUp{};             // of this delivery
    bool m_isCompared{};               // its first entry was the last of the one before, or there was none
    Taken m_last;                      // told, or about to be
    std::vector<QByteArray> m_entries; // to be told
};

} // namespace InkDoor

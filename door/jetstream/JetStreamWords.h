#pragma once

#include "door/jetstream/NatsMessage.h"

#include <QtCore/QString>

#include <optional>

namespace InkDoor {

// What is said to JetStream, and what it says: plain functions over bytes.

QByteArray streamName(const QString &lesson);
QByteArray logSubject(const QString &lesson);
QByteArray liveSubject(const QString &lesson);

QByteArray streamOrder(const QString &lesson, int replicas);

// What is asked of the engine, by its name in capitals.
QByteArray apiSubject(const QByteArray &what, const QString &lesson, const QByteArray &delivery = {});

// A delivery of its own name, of the entries from a place in the stream on, the first being 1, to a subject.
QByteArray deliveryOrder(const QString &lesson, const QByteArray &name, const QByteArray &subject, quint64 from);

// Where the engine stands when it answers.
struct Answer
{
    bool isDone{};
    bool isMissing{};      // there is no such stream
    bool isAlreadyThere{}; // such a stream, made with other settings
    quint64 entries{};     // that were there for a delivery
};
Answer readAnswer(const NatsMessage &message);

// How an entry comes.
struct Delivery
{
    QByteArray name;
    quint64 place{};  // in the stream
    quint64 number{}; // within the delivery: 1, 2, 3, ...
    qint64 stored{};  // when, in ns
};
std::optional<Delivery> readDelivery(const QByteArray &reply);

} // namespace InkDoor

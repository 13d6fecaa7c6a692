#pragma once

#include <QtCore/QByteArray>

#include <utility>
#include <vector>

namespace InkDoor {

struct NatsMessage
{
    QByteArray subject;
    QByteArray reply; // where an answer goes; may be empty
    QByteArray data;
    std::vector<std::pair<QByteArray, QByteArray>> headers; // to send

    // Of one that came without data, which is how the engine speaks about a delivery.
    int status{};              // 100: a heartbeat or a question of flow control; 503: nobody listens there
    quint64 lastOfConsumer{};  // with a heartbeat: how many messages have been delivered
    QByteArray stalledSubject; // with a heartbeat: what waits for an answer that was lost
};

} // namespace InkDoor

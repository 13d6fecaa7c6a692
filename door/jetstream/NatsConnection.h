#pragma once

#include "door/jetstream/NatsInbox.h"

#include <QtCore/QStringList>

#include <map>
#include <memory>

struct __natsConnection;
struct __natsSubscription;

namespace InkDoor {

// One connection of the NATS library, with its subscriptions. It belongs to one thread, which its calls may block.
class NatsConnection
{
public:
    NatsConnection(const QStringList &addresses, QByteArray privatePrefix, std::shared_ptr<NatsInbox> inbox);

    // Unsubscribes, sends what waits for a second at most, closes.
    ~NatsConnection();
    NatsConnection(const NatsConnection &) = delete;
    NatsConnection &operator=(const NatsConnection &) = delete;

    // Whether it will not come back by itself: a refused password ends it, and another may be made.
    bool isClosed() const;

    void send(const NatsMessage &message);
    void listen(const QByteArray &subject);
    void unlisten(const QByteArray &subject);

private:
    struct Subscription;

    const QByteArray m_privatePrefix;
    const std::shared_ptr<NatsInbox> m_inbox;
    const std::size_t m_number;
    __natsConnection *m_connection{};
    std::map<QByteArray, std::unique_ptr<Subscription>> m_subscriptions;
};

} // namespace InkDoor

#include "door/jetstream/NatsConnection.h"

#include <nats/nats.h>

#include <algorithm>
#include <climits>
#include <iterator>

namespace InkDoor {

namespace {

constexpr int kPause = 100;          // ms between two tries to reach a server, with as much again by chance
constexpr int kTimeout = 2'000;      // ms to connect, and to write
constexpr int kPingEvery = 2'000;    // ms
constexpr int kMostPings = 2;        // without an answer
constexpr int kLastFlush = 1'000;    // ms
constexpr int kMostPending = 65'536; // messages of one subscription within the library

std::size_t numberOf(const void *closure)
{
    return reinterpret_cast<std::size_t>(closure);
}

void *closureOf(std::size_t number)
{
    return reinterpret_cast<void *>(number); // NOLINT: never followed
}

void tellUp(natsConnection *, void *closure)
{
    if (const auto inbox = findInbox(numberOf(closure)))
        inbox->putState(true);
}

void tellDown(natsConnection *, void *closure)
{
    if (const auto inbox = findInbox(numberOf(closure)))
        inbox->putState(false);
}

// Nothing is to be done: what is lost is noticed by those who wait for it. Without a handler the library prints.
void ignoreError(natsConnection *, natsSubscription *, natsStatus, void *) {}

QByteArray headerOf(natsMsg *message, const char *name)
{
    const char *value{};
    return natsMsgHeader_Get(message, name, &value) == NATS_OK ? QByteArray(value) : QByteArray();
}

NatsMessage copied(natsMsg *message)
{
    NatsMessage copy;
    copy.subject = natsMsg_GetSubject(message);
    copy.reply = natsMsg_GetReply(message);
    copy.data = QByteArray(natsMsg_GetData(message), natsMsg_GetDataLength(message));
    if (copy.data.isEmpty()) {
        copy.status = headerOf(message, "Status").toInt();
        copy.lastOfConsumer = headerOf(message, "Nats-Last-Consumer").toULongLong();
        copy.stalledSubject = headerOf(message, "Nats-Consumer-Stalled");
    }
    return copy;
}

template <bool mayBeLost>
void takeMessage(natsConnection *, natsSubscription *, natsMsg *message, void *closure)
{
    if (const auto inbox = findInbox(numberOf(closure)))
        inbox->put(copied(message), mayBeLost);
    natsMsg_Destroy(message);
}

struct OptionsDeleter
{
    void operator()(natsOptions *options) const { natsOptions_Destroy(options); }
};
using Options = std::unique_ptr<natsOptions, OptionsDeleter>;

Options makeOptions(const QStringList &addresses, std::size_t number)
{
    natsOptions *made{};
    if (natsOptions_Create(&made) != NATS_OK)
        return nullptr;
    Options options{made};
    std::vector<QByteArray> bytes;
    std::vector<const char *> servers;
    std::transform(addresses.begin(), addresses.end(), std::back_inserter(bytes),
                   [](const QString &address) { return address.toUtf8(); });
    std::transform(bytes.begin(), bytes.end(), std::back_inserter(servers),
                   [](const QByteArray &address) { return address.constData(); });
    void *const closure = closureOf(number);
    const bool isWhole =
        natsOptions_SetServers(made, servers.data(), static_cast<int>(servers.size())) == NATS_OK &&
        natsOptions_SetName(made, "inkboard-door") == NATS_OK && natsOptions_SetTimeout(made, kTimeout) == NATS_OK &&
        natsOptions_SetWriteDeadline(made, kTimeout) == NATS_OK &&
        natsOptions_SetPingInterval(made, kPingEvery) == NATS_OK &&
        natsOptions_SetMaxPingsOut(made, kMostPings) == NATS_OK &&
        natsOptions_SetMaxReconnect(made, INT_MAX) == NATS_OK &&
        natsOptions_SetReconnectWait(made, kPause) == NATS_OK &&
        natsOptions_SetReconnectJitter(made, kPause, kPause) == NATS_OK &&
        // What was given while it was away is not sent late.
        natsOptions_SetReconnectBufSize(made, 1) == NATS_OK &&
        natsOptions_SetMaxPendingMsgs(made, kMostPending) == NATS_OK && natsOptions_SetNoEcho(made, true) == NATS_OK &&
        natsOptions_SetErrorHandler(made, ignoreError, nullptr) == NATS_OK &&
        natsOptions_SetDisconnectedCB(made, tellDown, closure) == NATS_OK &&
        natsOptions_SetReconnectedCB(made, tellUp, closure) == NATS_OK &&
        natsOptions_SetClosedCB(made, tellDown, closure) == NATS_OK &&
        natsOptions_SetRetryOnFailedConnect(made, true, tellUp, closure) == NATS_OK;
    return isWhole ? std::move(options) : nullptr;
}

} // namespace

struct NatsConnection::Subscription
{
    Subscription() = default;
    ~Subscription()
    {
        natsSubscription_Unsubscribe(subscription);
        natsSubscription_Destroy(subscription);
    }
    Subscription(const Subscription &) = delete;
    Subscription &operator=(const Subscription &) = delete;

    natsSubscription *subscription{};
};

NatsConnection::NatsConnection(const QStringList &addresses, QByteArray privatePrefix, std::shared_ptr<NatsInbox> inbox)
    : m_privatePrefix{std::move(privatePrefix)}
    , m_inbox{std::move(inbox)}
    , m_number{registerInbox(m_inbox)}
{
    const Options options = makeOptions(addresses, m_number);
    if (options && natsConnection_Connect(&m_connection, options.get()) == NATS_OK)
        m_inbox->putState(true); // otherwise told by the library, once it is
}

NatsConnection::~NatsConnection()
{
    m_subscriptions.clear();
    if (m_connection) {
        natsConnection_FlushTimeout(m_connection, kLastFlush);
        natsConnection_Close(m_connection);
    }
    forgetInbox(m_number);
    natsConnection_Destroy(m_connection);
}

bool NatsConnection::isClosed() const
{
    return !m_connection || natsConnection_IsClosed(m_connection);
}

void NatsConnection::send(const NatsMessage &message)
{
    natsMsg *made{};
    if (natsMsg_Create(&made, message.subject.constData(),
                       message.reply.isEmpty() ? nullptr : message.reply.constData(), message.data.constData(),
                       message.data.size()) != NATS_OK)
        return;
    for (const auto &[name, value] : message.headers)
        natsMsgHeader_Set(made, name.constData(), value.constData());
    natsConnection_PublishMsg(m_connection, made);
    natsMsg_Destroy(made);
}

void NatsConnection::listen(const QByteArray &subject)
{
    auto entry = std::make_unique<Subscription>();
    const natsMsgHandler handler = subject.startsWith(m_privatePrefix) ? takeMessage<false> : takeMessage<true>;
    if (natsConnection_Subscribe(&entry->subscription, m_connection, subject.constData(), handler,
                                 closureOf(m_number)) == NATS_OK)
        m_subscriptions[subject] = std::move(entry);
}

void NatsConnection::unlisten(const QByteArray &subject)
{
    m_subscriptions.erase(subject);
}

} // namespace InkDoor

#include "door/jetstream/NatsLink.h"

#include "door/jetstream/NatsConnection.h"

#include <nats/nats.h>

#include <chrono>
#include <set>

namespace InkDoor {

namespace {

constexpr std::size_t kMostWaiting = 16 << 20; // bytes
constexpr std::chrono::milliseconds kLookEvery{500};

std::size_t sizeOf(const NatsMessage &message)
{
    return sizeof message + static_cast<std::size_t>(message.data.size() + message.subject.size());
}

} // namespace

NatsLink::NatsLink(const QString &addresses, QByteArray privatePrefix, Listener listener)
    : m_addresses{addresses.split(QLatin1Char(','), Qt::SkipEmptyParts)}
    , m_privatePrefix{std::move(privatePrefix)}
    , m_listener{std::move(listener)}
    , m_inbox{std::make_shared<NatsInbox>()}
    , m_notifier{m_inbox->handle(), QSocketNotifier::Read}
{
    QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier, [this] { takeArrived(); });
    m_thread = std::thread{[this] { run(); }};
}

NatsLink::~NatsLink()
{
    {
        const std::lock_guard<std::mutex> guard{m_mutex};
        m_isEnding = true;
    }
    m_wake.notify_one();
    m_thread.join();
}

void NatsLink::takeArrived()
{
    for (const NatsInbox::Event &event : m_inbox->take()) {
        if (event.kind == NatsInbox::Event::Kind::Message) {
            m_listener.arrived(event.message);
        } else if (const bool isUp = event.kind == NatsInbox::Event::Kind::Up; isUp || m_isUp) {
            m_isUp = isUp;
            m_listener.changed(isUp);
        }
    }
    m_listener.paused();
}

bool NatsLink::send(NatsMessage message)
{
    const std::size_t size = sizeOf(message);
    if (!m_isUp || waitingBytes() + size > kMostWaiting)
        return false;
    add({Command::Kind::Send, std::move(message)}, size);
    return true;
}

std::size_t NatsLink::waitingBytes() const
{
    const std::lock_guard<std::mutex> guard{m_mutex};
    return m_waiting;
}

void NatsLink::listen(const QByteArray &subject)
{
    NatsMessage message;
    message.subject = subject;
    add({Command::Kind::Listen, std::move(message)}, 0);
}

void NatsLink::unlisten(const QByteArray &subject)
{
    NatsMessage message;
    message.subject = subject;
    add({Command::Kind::Unlisten, std::move(message)}, 0);
}

void NatsLink::add(Command command, std::size_t bytes)
{
    {
        const std::lock_guard<std::mutex> guard{m_mutex};
        m_commands.push_back(std::move(command));
        m_waiting += bytes;
    }
    m_wake.notify_one();
}

// Waits for the next command, but not for longer than until it is time to look after the connection. False then.
bool NatsLink::next(Command &command)
{
    std::unique_lock<std::mutex> lock{m_mutex};
    m_wake.wait_for(lock, kLookEvery, [this] { return m_isEnding || !m_commands.empty(); });
    if (m_commands.empty())
        return false;
    command = std::move(m_commands.front());
    m_commands.pop_front();
    if (command.kind == Command::Kind::Send)
        m_waiting -= sizeOf(command.message);
    return true;
}

bool NatsLink::isOver() const
{
    const std::lock_guard<std::mutex> guard{m_mutex};
    return m_isEnding && m_commands.empty();
}

// On the thread of its own.
void NatsLink::run()
{
    std::set<QByteArray> subjects;
    std::unique_ptr<NatsConnection> connection;
    while (!isOver()) {
        if (!connection || connection->isClosed()) {
            connection = std::make_unique<NatsConnection>(m_addresses, m_privatePrefix, m_inbox);
            for (const QByteArray &subject : subjects)
                connection->listen(subject);
        }
        Command command;
        if (!next(command))
            continue;
        const QByteArray &subject = command.message.subject;
        switch (command.kind) {
        case Command::Kind::Send:
            connection->send(command.message);
            break;
        case Command::Kind::Listen:
            if (subjects.insert(subject).second)
                connection->listen(subject);
            break;
        case Command::Kind::Unlisten:
            if (subjects.erase(subject) > 0)
                connection->unlisten(subject);
            break;
        }
    }
    connection.reset();
    nats_ReleaseThreadMemory();
}

} // namespace InkDoor

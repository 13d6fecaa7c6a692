#include "door/jetstream/NatsInbox.h"

#include <map>
#include <sys/eventfd.h>
#include <unistd.h>

namespace InkDoor {

namespace {

constexpr std::size_t kMostBytesOfLosable = 8 << 20;
constexpr std::size_t kMostBytes = 128 << 20;

struct Registry
{
    std::mutex mutex;
    std::map<std::size_t, std::weak_ptr<NatsInbox>> inboxes;
    std::size_t last{};
};

// Never destroyed: a callback may still come while the program ends.
Registry &registry()
{
    static Registry *const instance = new Registry;
    return *instance;
}

std::size_t sizeOf(const NatsMessage &message)
{
    return sizeof(NatsInbox::Event) +
           static_cast<std::size_t>(message.subject.size() + message.reply.size() + message.data.size());
}

} // namespace

NatsInbox::NatsInbox()
    : m_handle{::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)}
{
}

NatsInbox::~NatsInbox()
{
    ::close(m_handle);
}

void NatsInbox::put(NatsMessage message, bool mayBeLost)
{
    const std::size_t size = sizeOf(message);
    const std::lock_guard<std::mutex> guard{m_mutex};
    if (m_bytes + size > (mayBeLost ? kMostBytesOfLosable : kMostBytes))
        return;
    m_bytes += size;
    add({Event::Kind::Message, std::move(message)});
}

void NatsInbox::putState(bool isUp)
{
    const std::lock_guard<std::mutex> guard{m_mutex};
    add({isUp ? Event::Kind::Up : Event::Kind::Down, {}});
}

void NatsInbox::add(Event event)
{
    m_events.push_back(std::move(event));
    if (m_events.size() > 1)
        return; // it is readable since the first
    const quint64 one = 1;
    [[maybe_unused]] const auto written = ::write(m_handle, &one, sizeof one);
}

std::vector<NatsInbox::Event> NatsInbox::take()
{
    quint64 count{};
    [[maybe_unused]] const auto read = ::read(m_handle, &count, sizeof count);
    const std::lock_guard<std::mutex> guard{m_mutex};
    m_bytes = 0;
    return std::exchange(m_events, {});
}

std::size_t registerInbox(const std::shared_ptr<NatsInbox> &inbox)
{
    const std::lock_guard<std::mutex> guard{registry().mutex};
    registry().inboxes.emplace(++registry().last, inbox);
    return registry().last;
}

void forgetInbox(std::size_t number)
{
    const std::lock_guard<std::mutex> guard{registry().mutex};
    registry().inboxes.erase(number);
}

std::shared_ptr<NatsInbox> findInbox(std::size_t number)
{
    const std::lock_guard<std::mutex> guard{registry().mutex};
    const auto found = registry().inboxes.find(number);
    return found == registry().inboxes.end() ? nullptr : found->second.lock();
}

} // namespace InkDoor

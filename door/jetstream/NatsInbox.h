#pragma once

#include "door/jetstream/NatsMessage.h"

#include <cstddef>
#include <memory>
#include <mutex>
#include <vector>

namespace InkDoor {

// Where the threads of the NATS library leave what has come, and the one thread of the door takes it. Nothing of Qt's
// events is touched on foreign threads.
class NatsInbox
{
public:
    struct Event
    {
        enum class Kind { Up, Down, Message };

        Kind kind{};
        NatsMessage message;
    };

    NatsInbox();
    ~NatsInbox();
    NatsInbox(const NatsInbox &) = delete;
    NatsInbox &operator=(const NatsInbox &) = delete;

    // From any thread. A message that may be lost is dropped above 8 MiB that wait, any above 128 MiB: what follows a
    // stream notices the gap.
    void put(NatsMessage message, bool mayBeLost);
    void putState(bool isUp);

    // Becomes readable once for all that was put since the last take().
    int handle() const { return m_handle; }
    std::vector<Event> take();

private:
    void add(Event event);

    const int m_handle;
    std::mutex m_mutex;
    std::vector<Event> m_events;
    std::size_t m_bytes{};
};

// The library's callbacks carry a number for an inbox, not its address: they may come late.
std::size_t registerInbox(const std::shared_ptr<NatsInbox> &inbox);
void forgetInbox(std::size_t number);
std::shared_ptr<NatsInbox> findInbox(std::size_t number); // null for one that is forgotten

} // namespace InkDoor

#include "sharing/engine/MemoryEngine.h"

#include <algorithm>
#include <utility>

namespace InkSharing {

class MemoryStream : public Stream
{
public:
    MemoryStream(MemoryEngine &engine, const QString &lesson, StreamListener &listener)
        : m_engine(engine)
        , m_lesson(lesson)
        , m_listener(listener)
    {
    }
    ~MemoryStream() override
    {
        if (MemoryStore::Kept *kept = this->kept())
            kept->open.erase(std::remove(kept->open.begin(), kept->open.end(), this), kept->open.end());
    }

    MemoryEngine &engine() const { return m_engine; }
    StreamListener &listener() const { return m_listener; }

    void append(const QByteArray &bytes, std::function<void(Appended)> done) override
    {
        MemoryStore::Kept *kept = this->kept();
        const bool isStored = kept && !m_isLost && bytes.size() <= Engine::kMostEntryBytes;
        if (isStored) {
            kept->entries.push_back(bytes);
            for (MemoryStream *stream : kept->open)
                stream->tellSoon();
        }
        post([done = std::move(done), isStored] { done(isStored ? Appended::Stored : Appended::Unknown); });
    }

    void publish(const QByteArray &bytes) override
    {
        const MemoryStore::Kept *kept = this->kept();
        for (MemoryStream *stream : kept ? kept->open : std::vector<MemoryStream *>()) {
            if (&stream->m_engine != &m_engine)
                stream->post([stream, bytes] { stream->m_listener.heard(bytes); });
        }
    }

    void tellSoon()
    {
        if (!std::exchange(m_tells, true))
            post([this] { tell(); });
    }

    void loseBeyond(std::size_t length)
    {
        if (m_told > length)
            lose();
    }
    void lose()
    {
        if (!std::exchange(m_isLost, true))
            post([this] { m_listener.lost(); });
    }

    // Not once the stream was let go.
    void post(std::function<void()> call)
    {
        m_engine.m_post([isThere = std::weak_ptr<bool>(m_isThere), call = std::move(call)] {
            if (!isThere.expired())
                call();
        });
    }

private:
    // Null once the stream was removed.
    MemoryStore::Kept *kept() const
    {
        const auto found = m_engine.m_store.m_lessons.find(m_lesson);
        return found == m_engine.m_store.m_lessons.end() ? nullptr : &found->second;
    }

    void tell()
    {
        m_tells = false;
        if (m_isLost)
            return;
        const auto &entries = kept()->entries;
        const auto first = entries.begin() + std::ptrdiff_t(std::exchange(m_told, entries.size()));
        const std::weak_ptr<bool> isThere = m_isThere;
        if (first != entries.end())
            m_listener.entries({first, entries.end()});
        if (!isThere.expired() && !std::exchange(m_isCaughtUp, true))
            m_listener.caughtUp();
    }

    MemoryEngine &m_engine;
    const QString m_lesson;
    StreamListener &m_listener;
    const std::shared_ptr<bool> m_isThere{std::make_shared<bool>()};
    std::size_t m_told{};
    bool m_tells{};
    bool m_isCaughtUp{};
    bool m_isLost{};
};

const std::vector<QByteArray> *MemoryStore::entries(const QString &lesson) const
{
    const auto found = m_lessons.find(lesson);
    return found == m_lessons.end() ? nullptr : &found->second.entries;
}

void MemoryStore::setBack(const QString &lesson, std::size_t length)
{
    const auto found = m_lessons.find(lesson);
    if (found == m_lessons.end() || found->second.entries.size() <= length)
        return;
    found->second.entries.resize(length);
    for (MemoryStream *stream : found->second.open)
        stream->loseBeyond(length);
}

MemoryEngine::MemoryEngine(MemoryStore &store, Post post)
    : m_store(store)
    , m_post(std::move(post))
{
}

std::unique_ptr<Stream> MemoryEngine::open(const QString &lesson, Open how, StreamListener &listener)
{
    auto stream = std::make_unique<MemoryStream>(*this, lesson, listener);
    const bool isThere = m_store.m_lessons.count(lesson) != 0;
    if (isThere || how == Open::Create) {
        m_store.m_lessons[lesson].open.push_back(stream.get());
        stream->tellSoon();
    } else {
        stream->post([told = stream.get()] { told->listener().absent(); });
    }
    return stream;
}

void MemoryEngine::remove(const QString &lesson, std::function<void(bool)> done)
{
    const auto found = m_store.m_lessons.find(lesson);
    if (found != m_store.m_lessons.end()) {
        for (MemoryStream *stream : found->second.open)
            stream->lose();
        m_store.m_lessons.erase(found);
    }
    m_post([done = std::move(done)] { done(true); });
}

} // namespace InkSharing

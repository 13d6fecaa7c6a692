#include "FaultyEngine.h"

#include <algorithm>
#include <utility>

namespace Simulator {

using InkSharing::Appended;

namespace {

constexpr qint64 kNoAnswer = 5000; // milliseconds

} // namespace

class FaultyStream : public InkSharing::Stream, public InkSharing::StreamListener
{
public:
    FaultyStream(FaultyEngine &engine, const QString &lesson, InkSharing::Engine::Open how,
                 InkSharing::StreamListener &listener)
        : m_server(engine.m_server)
        , m_listener(listener)
        , m_there(m_server.world)
        , m_back(m_server.world)
    {
        tryToOpen(engine, lesson, how);
    }

    void append(const QByteArray &bytes, std::function<void(Appended)> done) override
    {
        auto isDone = std::make_shared<bool>(false);
        const auto tell = [isDone, done = std::move(done)](Appended how) {
            if (!std::exchange(*isDone, true))
                done(how);
        };
        later(m_server.world, kNoAnswer, [tell] { tell(Appended::Unknown); });
        if (happens(60, Sight::AppendLost))
            return;
        m_there.send(delay(), guarded([this, bytes, tell, sent = m_server.world.now()] {
                         if (sent < m_server.latest)
                             m_server.world.saw(Sight::Overtaken);
                         m_server.latest = std::max(m_server.latest, sent);
                         store(bytes, tell);
                     }));
    }

    void publish(const QByteArray &bytes) override
    {
        if (m_stream && m_server.isUp && !(m_server.isFaulty && m_server.world.random.oneIn(20)))
            m_there.send(delay(), guarded([this, bytes] { m_stream->publish(bytes); }));
    }

    void absent() override
    {
        pass([this] { m_listener.absent(); });
    }
    void entries(const std::vector<QByteArray> &entries) override
    {
        pass([this, entries] { m_listener.entries(entries); });
    }
    void caughtUp() override
    {
        pass([this] { m_listener.caughtUp(); });
    }
    void lost() override
    {
        pass([this] { m_listener.lost(); });
    }
    void heard(const QByteArray &bytes) override
    {
        pass([this, bytes] { m_listener.heard(bytes); });
    }

private:
    void tryToOpen(FaultyEngine &engine, const QString &lesson, InkSharing::Engine::Open how)
    {
        m_server.world.after(delay(), guarded([this, &engine, lesson, how] {
                                 if (m_server.isUp)
                                     m_stream = engine.m_engine.open(lesson, how, *this);
                                 else
                                     tryToOpen(engine, lesson, how);
                             }));
    }

    // Whatever was stored outlives the door that has sent it.
    void store(const QByteArray &bytes, const std::function<void(Appended)> &tell)
    {
        if (!m_server.isUp || !m_stream)
            return;
        m_stream->append(bytes, [this, tell](Appended how) {
            if (!happens(60, Sight::AnswerLost))
                pass([tell, how] { tell(how); });
        });
        m_server.note();
        if (happens(40, Sight::StoredTwice)) {
            const qint64 late = m_server.world.random.below(12000);
            later(m_server.world, late, [this, bytes] {
                if (!m_server.isUp || !m_stream)
                    return;
                m_stream->append(bytes, [](Appended) {});
                m_server.note();
            });
        }
    }

    bool happens(int chances, Sight sight)
    {
        if (!m_server.isFaulty || !m_server.world.random.oneIn(chances))
            return false;
        m_server.world.saw(sight);
        return true;
    }

    qint64 delay()
    {
        const qint64 delay = m_server.world.random.below(int(m_server.slowness) + 1);
        if (delay >= 1000)
            m_server.world.saw(Sight::Delay);
        return delay;
    }

    void pass(std::function<void()> call) { m_back.send(delay(), guarded(std::move(call))); }
    void later(World &world, qint64 delay, std::function<void()> call) { world.after(delay, guarded(std::move(call))); }

    std::function<void()> guarded(std::function<void()> call)
    {
        return [isThere = std::weak_ptr<bool>(m_isThere), call = std::move(call)] {
            if (!isThere.expired())
                call();
        };
    }

    Server &m_server;
    InkSharing::StreamListener &m_listener;
    Way m_there, m_back;
    const std::shared_ptr<bool> m_isThere{std::make_shared<bool>()};
    std::unique_ptr<InkSharing::Stream> m_stream;
};

const std::vector<QByteArray> &Server::entries() const
{
    static const std::vector<QByteArray> kNone;
    const auto *entries = store.entries(kLesson);
    return entries ? *entries : kNone;
}

void Server::setBack(qint64 milliseconds)
{
    const auto kept = std::upper_bound(times.begin(), times.end(), world.now() - milliseconds) - times.begin();
    if (std::size_t(kept) < times.size())
        world.saw(Sight::EngineSetBack);
    store.setBack(kLesson, std::size_t(kept));
    times.resize(std::size_t(kept));
}

FaultyEngine::FaultyEngine(Server &server)
    : m_server(server)
    , m_engine(server.store, [&server](std::function<void()> call) { server.world.after(0, std::move(call)); })
{
}

std::unique_ptr<InkSharing::Stream> FaultyEngine::open(const QString &lesson, Open how,
                                                       InkSharing::StreamListener &listener)
{
    return std::make_unique<FaultyStream>(*this, lesson, how, listener);
}

void FaultyEngine::remove(const QString &lesson, std::function<void(bool)> done)
{
    m_engine.remove(lesson, std::move(done));
}

} // namespace Simulator

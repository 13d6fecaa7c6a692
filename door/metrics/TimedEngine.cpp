#include "door/metrics/TimedEngine.h"

#include <QtCore/QElapsedTimer>

namespace InkDoor {

using InkSharing::Appended;
using InkSharing::Stream;

namespace {

// One append under way, until it is answered or forgotten with its stream.
class UnderWay
{
public:
    explicit UnderWay(std::shared_ptr<AppendCounts> counts)
        : m_counts{std::move(counts)}
    {
        ++m_counts->underWay;
        m_clock.start();
    }
    ~UnderWay() { --m_counts->underWay; }
    UnderWay(const UnderWay &) = delete;
    UnderWay &operator=(const UnderWay &) = delete;

    void end(Appended how) const
    {
        if (how == Appended::Stored)
            m_counts->stored.add(m_clock.nsecsElapsed());
        else
            ++m_counts->unknown;
    }

private:
    const std::shared_ptr<AppendCounts> m_counts;
    QElapsedTimer m_clock;
};

class TimedStream : public Stream
{
public:
    TimedStream(std::unique_ptr<Stream> stream, std::shared_ptr<AppendCounts> counts)
        : m_stream{std::move(stream)}
        , m_counts{std::move(counts)}
    {
    }

    void append(const QByteArray &bytes, std::function<void(Appended)> done) override
    {
        m_stream->append(bytes,
                         [done = std::move(done), underWay = std::make_shared<UnderWay>(m_counts)](Appended how) {
                             underWay->end(how);
                             done(how);
                         });
    }
    void publish(const QByteArray &bytes) override { m_stream->publish(bytes); }

private:
    const std::unique_ptr<Stream> m_stream;
    const std::shared_ptr<AppendCounts> m_counts;
};

} // namespace

TimedEngine::TimedEngine(InkSharing::Engine &engine)
    : m_engine(engine)
    , m_counts{std::make_shared<AppendCounts>()}
{
}

std::unique_ptr<Stream> TimedEngine::open(const QString &lesson, Open how, InkSharing::StreamListener &listener)
{
    return std::make_unique<TimedStream>(m_engine.open(lesson, how, listener), m_counts);
}

void TimedEngine::remove(const QString &lesson, std::function<void(bool)> done)
{
    m_engine.remove(lesson, std::move(done));
}

} // namespace InkDoor

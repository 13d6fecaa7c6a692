#include "door/metrics/TimedEngine.h"
#include "sharing/engine/MemoryEngine.h"

#include <gtest/gtest.h>

#include <deque>

using namespace InkDoor;
using namespace InkSharing;

namespace {

const QString kLesson = QStringLiteral("lesson");

class Deaf : public StreamListener
{
    void absent() override {}
    void entries(const std::vector<QByteArray> &) override {}
    void caughtUp() override {}
    void lost() override {}
    void heard(const QByteArray &) override {}
};

class TimedEngineTest : public testing::Test
{
protected:
    void run()
    {
        for (; !calls.empty(); calls.pop_front())
            calls.front()();
    }
    QByteArray stored() const
    {
        const QByteArray text = engine.counts().stored.text("x", "x");
        return text.mid(text.indexOf("x_count "));
    }

    std::deque<std::function<void()>> calls;
    MemoryStore store;
    MemoryEngine memory{store, [this](std::function<void()> call) { calls.push_back(std::move(call)); }};
    TimedEngine engine{memory};
    Deaf listener;
    std::vector<Appended> ends;
};

} // namespace

TEST_F(TimedEngineTest, countsWhatIsUnderWayAndHowItEnds)
{
    const auto stream = engine.open(kLesson, Engine::Open::Create, listener);
    stream->append("a", [this](Appended how) { ends.push_back(how); });
    stream->append(QByteArray(Engine::kMostEntryBytes + 1, 'x'), [this](Appended how) { ends.push_back(how); });
    EXPECT_EQ(engine.counts().underWay, 2);
    EXPECT_EQ(stored(), "x_count 0\n");
    run();
    EXPECT_EQ(ends, (std::vector<Appended>{Appended::Stored, Appended::Unknown}));
    EXPECT_EQ(engine.counts().underWay, 0);
    EXPECT_EQ(engine.counts().unknown, 1U);
    EXPECT_EQ(stored(), "x_count 1\n");
}

TEST_F(TimedEngineTest, whatGoesWithItsStreamIsNotUnderWayAnyMore)
{
    auto stream = engine.open(kLesson, Engine::Open::Create, listener);
    stream->append("a", [this](Appended how) { ends.push_back(how); });
    stream.reset();
    run();
    EXPECT_EQ(engine.counts().underWay, 0);
    EXPECT_TRUE(ends.empty());
}

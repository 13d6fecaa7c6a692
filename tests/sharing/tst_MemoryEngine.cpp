#include "sharing/engine/MemoryEngine.h"

#include "EngineKit.h"

#include <deque>

using namespace InkSharing;

namespace {

class MemoryWorld : public EngineWorld
{
public:
    std::unique_ptr<Engine> engine() override
    {
        return std::make_unique<MemoryEngine>(
            m_store, [this](std::function<void()> call) { m_calls.push_back(std::move(call)); });
    }
    bool runUntil(const std::function<bool()> &isSo) override
    {
        while (!isSo() && !m_calls.empty())
            runOne();
        return isSo();
    }
    void runOut() override
    {
        while (!m_calls.empty())
            runOne();
    }
    bool setBack(const QString &lesson, std::size_t length) override
    {
        m_store.setBack(lesson, length);
        return true;
    }

private:
    void runOne()
    {
        const auto call = std::move(m_calls.front());
        m_calls.pop_front();
        call();
    }

    MemoryStore m_store;
    std::deque<std::function<void()>> m_calls;
};

std::unique_ptr<EngineWorld> memoryWorld()
{
    return std::make_unique<MemoryWorld>();
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Memory, EngineConformance, testing::Values(&memoryWorld));

#pragma once

#include "lesson/pages/Workers.h"

#include <thread>
#include <vector>

// So many hands, each a thread of its own.
class Threads : public InkLesson::Workers
{
public:
    explicit Threads(int count)
        : m_count(count)
    {
    }
    int count() const override { return m_count; }
    void run(const std::function<void(int)> &work) override
    {
        ++runs;
        std::vector<std::thread> threads;
        for (int worker = 0; worker < m_count; ++worker)
            threads.emplace_back(work, worker);
        for (std::thread &thread : threads)
            thread.join();
    }

    int runs{};

private:
    const int m_count;
};

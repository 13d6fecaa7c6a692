#include "board/document/ThreadWorkers.h"

#include <QtCore/QThread>

namespace Board {

int ThreadWorkers::count() const
{
    constexpr int kMost = 4; // each takes pixels as large as a page
    return qBound(1, QThread::idealThreadCount(), kMost);
}

void ThreadWorkers::run(const std::function<void(int worker)> &work)
{
    const int others = count() - 1;
    for (int worker = 1; worker <= others; ++worker) {
        m_pool.start([this, &work, worker] {
            work(worker);
            m_done.release();
        });
    }
    work(0);
    m_done.acquire(others); // the pool's own waiting ends its threads as well
}

} // namespace Board

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
    for (int worker = 1; worker < count(); ++worker)
        m_pool.start([&work, worker] { work(worker); });
    work(0);
    m_pool.waitForDone();
}

} // namespace Board

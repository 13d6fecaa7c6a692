#pragma once

#include "lesson/pages/Workers.h"

#include <QtCore/QSemaphore>
#include <QtCore/QThreadPool>

namespace Board {

// A thread for each processor, the caller's own among them.
class ThreadWorkers : public InkLesson::Workers
{
public:
    int count() const override;
    void run(const std::function<void(int worker)> &work) override;

private:
    QThreadPool m_pool;
    QSemaphore m_done; // of the others, one for each
};

} // namespace Board

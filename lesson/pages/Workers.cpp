#include "lesson/pages/Workers.h"

#include <algorithm>
#include <atomic>

namespace InkLesson {

void shareOut(Workers *workers, int count, const std::function<void(int, int)> &act)
{
    std::atomic<int> next{};
    const auto work = [&](int worker) {
        for (int thing = next++; thing < count; thing = next++)
            act(thing, worker);
    };
    if (workers && count > 1)
        workers->run(work);
    else
        work(0);
}

// More parts than workers, since some take longer.
void shareOut(Workers *workers, const QRect &area, const std::function<void(const QRect &)> &act)
{
    constexpr int kPartsOfEach = 4, kFewestRows = 8;
    const int parts = workers ? workers->count() * kPartsOfEach : 1;
    const int rows = std::max((area.height() + parts - 1) / parts, kFewestRows);
    shareOut(workers, (area.height() + rows - 1) / rows,
             [&](int part, int) { act(QRect(area.left(), area.top() + part * rows, area.width(), rows) & area); });
}

} // namespace InkLesson

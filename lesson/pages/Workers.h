#pragma once

#include <functional>

namespace InkLesson {

// Lends a page the processors that its host has.
class Workers
{
public:
    virtual ~Workers() = default;

    // How many can work at once; at least one.
    virtual int count() const = 0;

    // Calls work(0), work(1) and so on, one for each of them, and returns once all have ended.
    virtual void run(const std::function<void(int worker)> &work) = 0;
};

} // namespace InkLesson

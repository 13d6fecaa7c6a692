#pragma once

#include "lesson/Export.h"

#include <QtCore/QRect>

#include <functional>

namespace InkLesson {

// Lends a lesson and its pages the processors that the host has.
class Workers
{
public:
    virtual ~Workers() = default;

    // How many can work at once; at least one.
    virtual int count() const = 0;

    // Calls work(0), work(1) and so on, one for each of them, and returns once all have ended.
    virtual void run(const std::function<void(int worker)> &work) = 0;
};

// Does the things from 0 to `count` - 1, each once: one after the other, or several at once where workers are lent.
INKLESSON_EXPORT void shareOut(Workers *workers, int count, const std::function<void(int thing, int worker)> &act);

// The same with parts of `area`, each some whole rows of it.
INKLESSON_EXPORT void shareOut(Workers *workers, const QRect &area, const std::function<void(const QRect &part)> &act);

} // namespace InkLesson

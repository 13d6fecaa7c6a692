#pragma once

#include <QtCore/QtGlobal>

#include <functional>

namespace InkLesson {

// Names what an author has done, and the object or the page that it has made.
struct StepId
{
    int author{}; // a number within the lesson, from 1 on
    int number{}; // the author's own, from 1 on

    friend bool operator==(const StepId &a, const StepId &b) { return a.author == b.author && a.number == b.number; }
    friend bool operator!=(const StepId &a, const StepId &b) { return !(a == b); }
    friend bool operator<(const StepId &a, const StepId &b)
    {
        return a.author != b.author ? a.author < b.author : a.number < b.number;
    }
};

using ObjectId = StepId;
using PageId = StepId;

constexpr StepId kNothing{};
constexpr PageId kFirstPage{0, 1}; // which every lesson begins with

} // namespace InkLesson

template <>
struct std::hash<InkLesson::StepId>
{
    std::size_t operator()(const InkLesson::StepId &id) const noexcept
    {
        return std::hash<quint64>()(quint64(quint32(id.author)) << 32 | quint32(id.number));
    }
};

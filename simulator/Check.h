#pragma once

#include "Board.h"

namespace Simulator {

// The lesson that a stream tells: nothing of it is pending, and nothing is taken back. Null where it has none.
std::unique_ptr<InkLesson::Lesson> replayed(const std::vector<QByteArray> &stream);

// Whether a board has what that gives: the log, every pixel of every page, a journal that opens to the same, and each
// step that it was told is there. Empty, or what differs.
QString difference(Board &board, const InkLesson::Lesson &plain);

// How many entries of a stream do not count, and how many are pieces.
struct Tally
{
    quint64 withoutEffect{}, pieces{};
};
Tally tallyOf(const std::vector<QByteArray> &stream);

} // namespace Simulator

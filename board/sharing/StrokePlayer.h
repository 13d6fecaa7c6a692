#pragma once

#include "board/playing/Player.h"

#include <QtCore/QElapsedTimer>

#include <vector>

namespace Board {

// Draws strokes at the pace of a hand, one after the other.
class StrokePlayer
{
public:
    // So many points a second, all at once for 0. The time begins now.
    StrokePlayer(std::vector<InkLesson::Stroke> strokes, const InkLesson::Tool &tool, int pace);

    bool hasEnded() const { return m_stroke == m_strokes.size(); }

    // All that is due by now.
    void play(InkLesson::Author &author);

private:
    void playPoint(InkLesson::Author &author);

    const std::vector<InkLesson::Stroke> m_strokes;
    const InkLesson::Tool &m_tool;
    const int m_pace;
    QElapsedTimer m_clock;
    qint64 m_played{}; // points
    std::size_t m_stroke{};
    std::vector<InkLesson::PointerAct> m_acts; // of that stroke; empty before it has begun
    std::size_t m_act{};
};

} // namespace Board

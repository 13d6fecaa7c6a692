#include "board/sharing/StrokePlayer.h"

#include "lesson/authoring/Author.h"

namespace Board {

StrokePlayer::StrokePlayer(std::vector<InkLesson::Stroke> strokes, const InkLesson::Tool &tool, int pace)
    : m_strokes(std::move(strokes))
    , m_tool(tool)
    , m_pace(pace)
{
    m_clock.start();
}

void StrokePlayer::play(InkLesson::Author &author)
{
    while (m_pace == 0 && !hasEnded())
        playStroke(m_strokes[m_stroke++], m_tool, author);
    for (const qint64 due = m_clock.elapsed() * m_pace / 1000; !hasEnded() && m_played < due;)
        playPoint(author);
}

void StrokePlayer::playPoint(InkLesson::Author &author)
{
    const InkLesson::Stroke &stroke = m_strokes[m_stroke];
    if (m_acts.empty()) {
        m_acts = pointerActs(stroke, m_tool);
        author.begin({QLatin1String(m_tool.name), {stroke.color, stroke.width}, author.canvas()});
    }
    const InkLesson::PointerAct &act = m_acts[m_act++];
    author.feed(act.code, act.pt);
    ++m_played;
    if (m_act < m_acts.size())
        return;
    author.finish();
    m_acts.clear();
    m_act = 0;
    ++m_stroke;
}

} // namespace Board

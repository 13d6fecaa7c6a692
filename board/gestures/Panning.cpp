#include "board/gestures/Panning.h"

#include "board/desk/Desk.h"

namespace Board {

Panning::Panning(Desk &desk)
    : m_desk(desk)
{
}

void Panning::press(const PointerSpot &at)
{
    m_last = at.pos;
}

void Panning::move(const PointerSpot &at)
{
    m_desk.navigator.panBy(at.pos - m_last);
    m_last = at.pos;
}

} // namespace Board

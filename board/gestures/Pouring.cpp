#include "board/gestures/Pouring.h"

#include "board/desk/Desk.h"

namespace Board {

Pouring::Pouring(Desk &desk)
    : m_desk(desk)
{
}

void Pouring::press(const PointerSpot &at)
{
    m_desk.inHand.author().pour(at.pt, m_desk.ink.color);
}

} // namespace Board

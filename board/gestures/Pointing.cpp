#include "board/gestures/Pointing.h"

#include "board/desk/Desk.h"

namespace Board {

Pointing::Pointing(Desk &desk)
    : m_desk(desk)
{
}

void Pointing::press(const PointerSpot &at)
{
    m_desk.laser.press(at.pt, m_desk.pageInk());
}

void Pointing::move(const PointerSpot &at)
{
    m_desk.laser.move(at.pt);
}

void Pointing::release(const PointerSpot & /*at*/)
{
    m_desk.laser.release();
}

void Pointing::cancel()
{
    m_desk.laser.release();
}

} // namespace Board

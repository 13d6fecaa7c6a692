#include "board/gestures/Removing.h"

#include "board/desk/Desk.h"

#include <algorithm>
#include <cstdlib>

namespace Board {

using namespace InkLesson;

Removing::Removing(Desk &desk)
    : m_desk(desk)
{
}

void Removing::press(const PointerSpot &at)
{
    m_last = at.pt;
    removeAlong(m_last, m_last);
}

// No longer once another tool was chosen.
void Removing::move(const PointerSpot &at)
{
    if (m_desk.tool->use == Use::Removes)
        removeAlong(m_last, at.pt);
    m_last = at.pt;
}

// A fast pointer leaps over objects. The page is painted once for all of them.
void Removing::removeAlong(const QPoint &from, const QPoint &to)
{
    const Lesson::Batch batch(m_desk.document.lesson());
    const QPoint by = to - from;
    const int steps = std::max(std::abs(by.x()), std::abs(by.y())) / (m_desk.reach() + 1) + 1;
    for (int i = 1; i <= steps; ++i) {
        const QPoint pt = from + by * i / steps;
        const ObjectId id = m_desk.topmostAt(pt);
        if (const int holder = m_desk.holderAt(pt))
            m_desk.heldElsewhere(holder);
        else if (id != kNothing)
            m_step = m_desk.inHand.author().remove({id}, m_step);
    }
}

} // namespace Board

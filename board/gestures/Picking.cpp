#include "board/gestures/Picking.h"

#include "board/desk/Desk.h"

namespace Board {

using namespace InkLesson;

Picking::Picking(Desk &desk)
    : m_desk(desk)
{
}

void Picking::press(const PointerSpot &at)
{
    m_press = at.pt;
    if (const int holder = m_desk.holderAt(at.pt)) {
        m_desk.selection.clear();
        m_desk.heldElsewhere(holder);
        return;
    }
    m_desk.selection.pick(m_desk.topmostAt(at.pt));
}

void Picking::move(const PointerSpot &at)
{
    if (!m_desk.selection.isEmpty())
        m_desk.selection.shift(at.pt - m_press);
}

void Picking::release(const PointerSpot &at)
{
    if (m_desk.selection.isEmpty())
        return;
    m_desk.selection.shift({});
    const ObjectId id = m_desk.selection.object();
    const QPoint by = at.pt - m_press;
    if (!by.isNull())
        m_desk.inHand.author().change({id, {}, {}, {}, {}, by});
    const Item *item = m_desk.page().item(id);
    if (item && (!item->tool || item->tool->hasHandles)) {
        m_desk.selection.clear();
        m_desk.inHand.setEdit(nullptr);
        m_desk.inHand.author().reopen(id);
    }
}

void Picking::cancel()
{
    m_desk.selection.shift({});
}

} // namespace Board

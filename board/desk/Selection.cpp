#include "board/desk/Selection.h"

namespace Board {

void Selection::pick(const InkLesson::ObjectId &object)
{
    if (m_object == object)
        return;
    m_object = object;
    m_offset = {};
    emit changed();
}

void Selection::shift(const QPoint &offset)
{
    m_offset = offset;
    emit shifted();
}

} // namespace Board

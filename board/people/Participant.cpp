#include "board/people/Participant.h"

#include "board/people/PersonName.h"

#include <QtCore/QCoreApplication>

namespace Board {

QString Participant::words() const
{
    if (!isMe)
        return isolatedName(name);
    return hasName(name) ? QCoreApplication::translate("Board::Participant", "%1 (me)").arg(isolatedName(name))
                         : QCoreApplication::translate("Board::Participant", "Me");
}

} // namespace Board

#include "door/program/Log.h"

#include <QtCore/QTextStream>

namespace InkDoor {

void say(const QString &words)
{
    QTextStream(stderr) << QStringLiteral("inkboard-door: ") << words << '\n';
}

} // namespace InkDoor

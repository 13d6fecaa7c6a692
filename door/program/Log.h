#pragma once

#include <QtCore/QString>

namespace InkDoor {

// One line on stderr for whoever runs the door: nothing about a person, and no address of anybody else's.
void say(const QString &words);

} // namespace InkDoor

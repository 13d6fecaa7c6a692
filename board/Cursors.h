#pragma once

#include "ModifyType.h"

#include <QtGui/QCursor>

namespace Board {

// The pointer over a part of an object that is turned by `angle` degrees clockwise. The arrows of the edges and
// corners turn with the object, in steps of 45 degrees.
QCursor cursorFor(ModifyType type, float angle);

} // namespace Board

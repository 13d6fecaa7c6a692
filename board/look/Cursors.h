#pragma once

#include "ModifyType.h"

#include <QtGui/QCursor>

namespace Board {

// The pointer over a part of an object that is turned by `angle` degrees clockwise. The arrows of the edges and
// corners turn with the object, in steps of 45 degrees.
QCursor cursorFor(ModifyType type, float angle);

// A circle of that many pixels across, seen on white and on black, for a screen with `ratio` pixels of its own along
// each. Ticks point at a small one.
QCursor circleCursor(double diameter, double ratio = 1);

} // namespace Board

#pragma once

#include <QtGui/QColor>

namespace Board {

// The colour of somebody by a number, the same on every board. White can be read on it, and it on white. Twelve numbers
// that follow each other have colours that nobody takes for one another.
QColor colorOf(int number);

} // namespace Board

#pragma once

#include <QtGui/QColor>

namespace Board {

// The colour of an author, the same on every board. White can be read on it, and it on white. Twelve authors whose
// numbers follow each other have colours that nobody takes for one another.
QColor colorOf(int author);

} // namespace Board

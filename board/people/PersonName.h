#pragma once

#include <QtCore/QString>

namespace Board {

// A name that came from outside, as it may be shown: one line of bounded length, without signs that are not seen, turn
// the direction of what stands beside them, or pile up. Who has none is called "Somebody". It may still hold what looks
// like markup: show it as plain text.
QString shownName(const QString &name);

// Whether any of it is seen.
bool hasName(const QString &name);

// What is shown, between signs that keep its direction, right to left perhaps, from the words around it.
QString isolatedName(const QString &name);

// The first letter of the name, to stand in a disc; a question mark for none.
QString initialOf(const QString &name);

} // namespace Board

#pragma once

#include <QtCore/QList>
#include <QtGui/QKeySequence>

class QAction;
class QWidget;

namespace Board {

// In the order in which they were added.
QList<QAction *> commands(const QWidget &window);

// Gives the commands the keys that a person has chosen. A command whose keys are now those of another has none.
void restoreKeys(const QWidget &window);

// For now and for later windows. Empty for none.
void chooseKeys(QAction &command, const QKeySequence &keys);

// All commands have their standard keys again.
void forgetKeys(const QWidget &window);

// The other command that would answer to these keys, or only to the beginning of them; null when there is none.
QAction *commandWithKeys(const QWidget &window, const QKeySequence &keys, const QAction &except);

// Whether the keys are needed to work without a pointer: they move the focus and press buttons.
bool movesFocus(const QKeySequence &keys);

} // namespace Board

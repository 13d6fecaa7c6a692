#pragma once

#include <QtCore/QList>

class QWidget;

namespace Board {

// The Tab key goes through the parts of a window in this order, and through each part in the order of its making.
void orderFocus(const QList<QWidget *> &parts);

} // namespace Board

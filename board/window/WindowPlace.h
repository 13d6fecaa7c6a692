#pragma once

class QWidget;

namespace Board {

// Shows a window where and as large as it was when keepPlace() was called last. The first time it has the size that it
// asks for, or is maximised where the screen has no room for that.
void showAtItsPlace(QWidget &window);

// The same, but as if for the first time.
void showWhole(QWidget &window);

void keepPlace(const QWidget &window);

} // namespace Board

#pragma once

#include <QtGui/QImage>

#include <functional>

class QWidget;

namespace Board {

// Hides the window, and shows it again once what lay below it is taken. `use` then gets the picture of the window's
// screen, in the pixels of the display; null where the desktop gives none away. Returns at once.
void grabScreen(QWidget &window, const std::function<void(const QImage &picture)> &use);

} // namespace Board

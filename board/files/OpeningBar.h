#pragma once

#include "board/document/Document.h"

#include <functional>

class QWidget;

namespace Board {

// Opens a lesson, and shows how much of that is done once it is clear that it takes half a second or more. Meanwhile
// the window is painted, and takes no input. Returns what `open` returns.
QString withOpeningBar(QWidget &window, const std::function<QString(const Document::Progress &tell)> &open);

} // namespace Board

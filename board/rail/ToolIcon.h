#pragma once

#include "board/tools/Tools.h"

#include <QtGui/QIcon>

namespace Board {

// The tool's own ink: its sample gestures drawn by an object of the tool, on transparency; `times` as large
// as on a plain screen, but with handles as they are.
QImage sampleInk(const Tool &tool, const QColor &color, int times = 1);

// With a lighter picture for the button that is switched on. A tool that leaves no mark shows a dotted line.
QIcon toolIcon(const Tool &tool);

// Of the command that puts a picture on the page.
QIcon pictureIcon();

} // namespace Board

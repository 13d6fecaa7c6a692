#pragma once

#include "Tools.h"

#include <QtGui/QIcon>

namespace Board {

// The tool's own ink: its sample gestures drawn by an object of the tool, on transparency.
QImage sampleInk(const Tool &tool, const QColor &color);

// With a lighter picture for the button that is switched on. A tool that leaves no mark shows a dotted line.
QIcon toolIcon(const Tool &tool);

// Of the command that puts a picture on the page.
QIcon pictureIcon();

} // namespace Board

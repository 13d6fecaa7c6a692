#pragma once

class QWidget;

namespace Board {

class Canvas;

// Undo and redo, and what can be done to the object that is in progress or picked.
void addCanvasCommands(Canvas &canvas, QWidget &window);

} // namespace Board

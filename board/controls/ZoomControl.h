#pragma once

#include <QtWidgets/QToolButton>

namespace Board {

class Canvas;

// Adds the commands that zoom the page.
void addZoomCommands(Canvas &canvas, QWidget &window);

// Tells how large the page is shown. A press shows it at its own size.
class ZoomControl : public QToolButton
{
    Q_OBJECT

public:
    // After addZoomCommands(); both live as long as the control.
    ZoomControl(Canvas &canvas, QWidget &window);

private:
    void showZoom();

    Canvas &m_canvas;
};

} // namespace Board

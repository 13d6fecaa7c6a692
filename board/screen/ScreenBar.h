#pragma once

#include <QtWidgets/QFrame>

class QActionGroup;
class QHBoxLayout;

namespace Board {

class ColorRow;
class WidthControl;
struct Tool;

// The tools over a screen, in a small window that stays on top and is dragged by its left end. Its keys work in all
// windows of the program.
class ScreenBar : public QFrame
{
    Q_OBJECT

public:
    ScreenBar();

    ColorRow &colors() { return *m_colors; }
    WidthControl &inkWidth() { return *m_width; }

signals:
    void chosen(const Tool &tool);
    void pointed();
    void undone();
    void cleared();
    void ended();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;

private:
    void addTools(QHBoxLayout &row);
    void addCommands(QHBoxLayout &row);

    QActionGroup *m_tools; // all three owned by this widget
    ColorRow *m_colors;
    WidthControl *m_width;
    QPoint m_grip; // where it is dragged
};

} // namespace Board

#pragma once

#include <QtWidgets/QToolButton>

class QMenu;

namespace Board {

// The button with the menu of those commands of a window that have no button each.
class CommandMenu : public QToolButton
{
    Q_OBJECT

public:
    explicit CommandMenu(QWidget &window, QWidget *parent = nullptr);

private:
    void fill();

    QWidget &m_window;
    QMenu *m_menu; // owned by this widget
};

} // namespace Board

#pragma once

#include <QtCore/QString>

class QAction;
class QWidget;

namespace Board {

// Adds commands of one kind to a window. A command is an action with a name of its own; its keys work wherever the
// focus is in the window.
class CommandGroup
{
public:
    // `title` is the heading of the group where commands are listed.
    CommandGroup(const QString &title, QWidget &window);

    // `keys` as QKeySequence reads them. The window owns the action.
    QAction *add(const char *name, const QString &title, const QString &keys) const;

private:
    const QString m_title;
    QWidget &m_window;
};

// The heading of a command's group; empty for an action that is no command.
QString commandGroup(const QAction &action);

} // namespace Board

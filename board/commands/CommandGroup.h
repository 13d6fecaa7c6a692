#pragma once

#include <QtCore/QString>
#include <QtGui/QKeySequence>

class QAction;
class QWidget;

namespace Board {

// Adds commands of one kind to a window. A command is an action with a name of its own; its keys work wherever the
// focus is in the window.
class CommandGroup
{
public:
    // Where commands can be pressed: in the menu, or on buttons of their own.
    enum class Place { Menu, Buttons };

    // `title` is the heading of the group where commands are listed.
    CommandGroup(const QString &title, QWidget &window, Place place = Place::Menu);

    // `keys` as QKeySequence reads them; after a semicolon others may follow that do the same. The window owns the
    // action.
    QAction *add(const char *name, const QString &title, const QString &keys) const;

private:
    const QString m_title;
    QWidget &m_window;
    const Place m_place;
};

// The titles of groups that more than one part of the board adds to.
QString fileGroup();
QString penGroup();
QString boardGroup();

// The heading of a command's group; empty for an action that is no command.
QString commandGroup(const QAction &action);

bool isInMenu(const QAction &command);

// The first keys that a command was added with.
QKeySequence standardKeys(const QAction &command);

// As the person reads them.
QString keysText(const QAction &command);

// Other keys, also in the command's tip. Empty for none; the others that the command was added with come and go with
// the first.
void giveKeys(QAction &command, const QKeySequence &keys);

} // namespace Board

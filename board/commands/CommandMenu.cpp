#include "board/commands/CommandMenu.h"

#include "board/commands/CommandGroup.h"
#include "board/commands/Shortcuts.h"

#include <QtCore/QHash>
#include <QtGui/QCursor>
#include <QtWidgets/QAction>
#include <QtWidgets/QMenu>

namespace Board {

CommandMenu::CommandMenu(QWidget &window, QWidget *parent)
    : QToolButton(parent)
    , m_window(window)
    , m_menu(new QMenu(this))
{
    setObjectName(QStringLiteral("menu"));
    setText(QStringLiteral("☰"));
    setFocusPolicy(Qt::TabFocus);
    setPopupMode(QToolButton::InstantPopup);
    setMenu(m_menu);
    connect(m_menu, &QMenu::aboutToShow, this, &CommandMenu::fill);
    // Nobody told it that the pointer had left while the menu was there.
    connect(
        m_menu, &QMenu::aboutToHide, this,
        [this] {
            setAttribute(Qt::WA_UnderMouse, rect().contains(mapFromGlobal(QCursor::pos())));
            update();
        },
        Qt::QueuedConnection);

    QAction *open =
        CommandGroup(boardGroup(), window, CommandGroup::Place::Buttons).add("menu", tr("Menu"), QStringLiteral("F10"));
    setAccessibleName(open->text());
    connect(open, &QAction::triggered, this, &QToolButton::showMenu);
    connect(open, &QAction::changed, this, [this, open] { setToolTip(open->toolTip()); });
    setToolTip(open->toolTip());
}

// The files' and the board's own commands at once, the others by their groups. Anew each time, since commands come and
// go.
void CommandMenu::fill()
{
    m_menu->clear();
    QList<QAction *> ofFiles;
    QList<QAction *> ofBoard;
    QHash<QString, QMenu *> groups;
    for (QAction *command : commands(m_window)) {
        const QString title = commandGroup(*command);
        if (!isInMenu(*command))
            continue;
        if (title == fileGroup()) {
            ofFiles.append(command);
        } else if (title == boardGroup()) {
            ofBoard.append(command);
        } else {
            QMenu *&group = groups[title];
            if (!group)
                group = m_menu->addMenu(title);
            group->addAction(command);
        }
    }
    QAction *second = m_menu->insertSeparator(m_menu->actions().value(0));
    m_menu->insertActions(second, ofFiles);
    m_menu->addSeparator();
    m_menu->addActions(ofBoard);
}

} // namespace Board

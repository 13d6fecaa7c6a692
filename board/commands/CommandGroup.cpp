#include "board/commands/CommandGroup.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QVariant>
#include <QtWidgets/QAction>
#include <QtWidgets/QWidget>

namespace Board {

namespace {

constexpr const char *kGroup = "group"; // properties of an action
constexpr const char *kInMenu = "inMenu";
constexpr const char *kKeys = "keys";

QList<QKeySequence> allStandardKeys(const QAction &command)
{
    return QKeySequence::listFromString(command.property(kKeys).toString());
}

} // namespace

CommandGroup::CommandGroup(const QString &title, QWidget &window, Place place)
    : m_title(title)
    , m_window(window)
    , m_place(place)
{
}

QAction *CommandGroup::add(const char *name, const QString &title, const QString &keys) const
{
    auto *action = new QAction(title, &m_window);
    action->setObjectName(QLatin1String(name));
    action->setProperty(kGroup, m_title);
    action->setProperty(kInMenu, m_place == Place::Menu);
    action->setProperty(kKeys, keys);
    giveKeys(*action, standardKeys(*action));
    m_window.addAction(action);
    return action;
}

QString fileGroup()
{
    return QCoreApplication::translate("Board::CommandGroup", "File");
}

QString penGroup()
{
    return QCoreApplication::translate("Board::CommandGroup", "Pen");
}

QString boardGroup()
{
    return QCoreApplication::translate("Board::CommandGroup", "Board");
}

QString commandGroup(const QAction &action)
{
    return action.property(kGroup).toString();
}

bool isInMenu(const QAction &command)
{
    return command.property(kInMenu).toBool();
}

QKeySequence standardKeys(const QAction &command)
{
    return allStandardKeys(command).value(0);
}

QString keysText(const QAction &command)
{
    const QString text = command.shortcut().toString(QKeySequence::NativeText);
    return text.isEmpty() ? QCoreApplication::translate("Board::CommandGroup", "no key") : text;
}

void giveKeys(QAction &command, const QKeySequence &keys)
{
    const QList<QKeySequence> standard = allStandardKeys(command);
    command.setShortcuts(keys == standard.value(0) ? standard : QList<QKeySequence>{keys});
    command.setToolTip(keys.isEmpty() ? command.text()
                                      : QStringLiteral("%1 (%2)").arg(command.text(), keysText(command)));
}

} // namespace Board

#include "CommandGroup.h"

#include <QtCore/QVariant>
#include <QtWidgets/QAction>
#include <QtWidgets/QWidget>

namespace Board {

namespace {

constexpr const char *kGroup = "group";

} // namespace

CommandGroup::CommandGroup(const QString &title, QWidget &window)
    : m_title(title)
    , m_window(window)
{
}

QAction *CommandGroup::add(const char *name, const QString &title, const QString &keys) const
{
    auto *action = new QAction(title, &m_window);
    const QKeySequence sequence(keys);
    action->setObjectName(QLatin1String(name));
    action->setProperty(kGroup, m_title);
    action->setShortcut(sequence);
    action->setToolTip(QStringLiteral("%1 (%2)").arg(title, sequence.toString(QKeySequence::NativeText)));
    m_window.addAction(action);
    return action;
}

QString commandGroup(const QAction &action)
{
    return action.property(kGroup).toString();
}

} // namespace Board

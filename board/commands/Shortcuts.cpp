#include "board/commands/Shortcuts.h"

#include "board/commands/CommandGroup.h"
#include "board/person/Settings.h"

#include <QtWidgets/QAction>
#include <QtWidgets/QWidget>

#include <algorithm>
#include <iterator>

namespace Board {

namespace {

QString settingOf(const QAction &command)
{
    return QStringLiteral("shortcuts/") + command.objectName();
}

bool clash(const QKeySequence &first, const QKeySequence &second)
{
    return !first.isEmpty() && !second.isEmpty() &&
           (first.matches(second) != QKeySequence::NoMatch || second.matches(first) != QKeySequence::NoMatch);
}

QAction *findClash(const QList<QAction *> &others, const QKeySequence &keys)
{
    const auto found = std::find_if(others.begin(), others.end(), [&](const QAction *other) {
        const QList<QKeySequence> taken = other->shortcuts();
        return std::any_of(taken.begin(), taken.end(), [&](const QKeySequence &its) { return clash(keys, its); });
    });
    return found == others.end() ? nullptr : *found;
}

} // namespace

QList<QAction *> commands(const QWidget &window)
{
    QList<QAction *> found = window.findChildren<QAction *>();
    found.erase(std::remove_if(found.begin(), found.end(),
                               [](const QAction *action) { return commandGroup(*action).isEmpty(); }),
                found.end());
    return found;
}

void restoreKeys(const QWidget &window)
{
    const Settings settings;
    QList<QAction *> order = commands(window);
    const auto standard = std::stable_partition(
        order.begin(), order.end(), [&](const QAction *command) { return settings.contains(settingOf(*command)); });
    for (auto it = order.begin(); it != standard; ++it)
        giveKeys(**it, QKeySequence(settings.value(settingOf(**it)).toString()));
    QList<QAction *> earlier; // those that a person has chosen come first
    for (QAction *command : order) {
        const QList<QKeySequence> own = command->shortcuts();
        if (std::any_of(own.begin(), own.end(), [&](const QKeySequence &keys) { return findClash(earlier, keys); }))
            giveKeys(*command, {});
        earlier.append(command);
    }
}

void chooseKeys(QAction &command, const QKeySequence &keys)
{
    giveKeys(command, keys);
    Settings settings;
    if (keys == standardKeys(command))
        settings.remove(settingOf(command));
    else
        settings.setValue(settingOf(command), keys.toString());
}

void forgetKeys(const QWidget &window)
{
    for (QAction *command : commands(window))
        chooseKeys(*command, standardKeys(*command));
}

QAction *commandWithKeys(const QWidget &window, const QKeySequence &keys, const QAction &except)
{
    QList<QAction *> others = commands(window);
    others.removeOne(const_cast<QAction *>(&except));
    return findClash(others, keys);
}

bool movesFocus(const QKeySequence &keys)
{
    constexpr Qt::Key kKeys[] = {Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter,
                                 Qt::Key_Left, Qt::Key_Right,   Qt::Key_Up,    Qt::Key_Down};
    constexpr auto kModifiers = int(Qt::KeyboardModifierMask);
    const auto key = Qt::Key(keys[0] & ~kModifiers);
    const auto modifiers = Qt::KeyboardModifiers(keys[0] & kModifiers) & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    return modifiers == Qt::NoModifier && std::find(std::begin(kKeys), std::end(kKeys), key) != std::end(kKeys);
}

} // namespace Board

#include "board/canvas/CanvasCommands.h"

#include "board/canvas/Canvas.h"
#include "board/commands/CommandGroup.h"

#include <QtWidgets/QAction>

namespace Board {

void addCanvasCommands(Canvas &canvas, QWidget &window)
{
    const CommandGroup group(Canvas::tr("Objects"), window);
    const auto add = [&](const char *name, const QString &title, const char *keys, void (Canvas::*act)()) {
        QAction *action = group.add(name, title, QLatin1String(keys));
        QObject::connect(action, &QAction::triggered, &canvas, act);
        return action;
    };
    // Signs, since the bar has no room to spare in a small window.
    add("undo", Canvas::tr("Undo"), "Ctrl+Z", &Canvas::undo)->setIconText(QStringLiteral("↶"));
    add("redo", Canvas::tr("Redo"), "Ctrl+Y", &Canvas::redo)->setIconText(QStringLiteral("↷"));
    add("finish", Canvas::tr("Finish the object"), "Esc", &Canvas::finish);
    QAction *remove = add("delete", Canvas::tr("Delete the object"), "Del", &Canvas::discard);
    const QList<QAction *> onPicked{
        add("duplicate", Canvas::tr("Duplicate the object"), "Ctrl+D", &Canvas::duplicate),
        add("raise", Canvas::tr("Bring the object to the front"), "Ctrl+PgUp", &Canvas::raise),
        add("lower", Canvas::tr("Send the object to the back"), "Ctrl+PgDown", &Canvas::lower),
    };
    add("clear", Canvas::tr("Clear"), "Ctrl+Shift+Backspace", &Canvas::clear);
    const auto enable = [&canvas, remove, onPicked] {
        remove->setEnabled(canvas.mayDiscard());
        for (QAction *action : onPicked)
            action->setEnabled(canvas.mayReorder());
    };
    QObject::connect(&canvas, &Canvas::changed, remove, enable);
    enable();
}

} // namespace Board

#include "board/controls/ZoomControl.h"

#include "board/canvas/Canvas.h"
#include "board/commands/CommandGroup.h"

#include <QtWidgets/QAction>

namespace Board {

void addZoomCommands(Canvas &canvas, QWidget &window)
{
    const CommandGroup group(ZoomControl::tr("View"), window);
    const auto add = [&](const char *name, const QString &title, const char *keys, void (Navigator::*act)()) {
        QObject::connect(group.add(name, title, QLatin1String(keys)), &QAction::triggered, &canvas.navigator(), act);
    };
    // The second where the plus needs the Shift key.
    add("zoom-in", ZoomControl::tr("Zoom in"), "Ctrl++; Ctrl+=", &Navigator::zoomIn);
    add("zoom-out", ZoomControl::tr("Zoom out"), "Ctrl+-", &Navigator::zoomOut);
    add("zoom-to-one", ZoomControl::tr("Zoom to 100 %"), "Ctrl+0", &Navigator::zoomToOne);
}

ZoomControl::ZoomControl(Canvas &canvas, QWidget &window)
    : QToolButton(&window)
    , m_canvas(canvas)
{
    auto *command = window.findChild<QAction *>(QStringLiteral("zoom-to-one"));
    setObjectName(QStringLiteral("zoom"));
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(command->text());
    setToolTip(command->toolTip());
    connect(command, &QAction::changed, this, [this, command] { setToolTip(command->toolTip()); });
    connect(this, &QToolButton::clicked, command, &QAction::trigger);
    connect(&canvas.navigator(), &Navigator::moved, this, &ZoomControl::showZoom);
    setText(tr("%1 %").arg(800)); // so that the widest fits
    setFixedWidth(sizeHint().width());
    showZoom();
}

void ZoomControl::showZoom()
{
    setText(tr("%1 %").arg(qRound(100 * m_canvas.view().zoom())));
}

} // namespace Board

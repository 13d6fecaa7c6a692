#include "board/screen/ScreenBar.h"

#include "board/commands/CommandGroup.h"
#include "board/commands/Shortcuts.h"
#include "board/controls/ColorRow.h"
#include "board/controls/WidthControl.h"
#include "board/look/Style.h"
#include "board/rail/ToolIcon.h"
#include "board/tools/Tools.h"

#include <QtGui/QMouseEvent>
#include <QtWidgets/QAction>
#include <QtWidgets/QActionGroup>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QToolButton>

namespace Board {

namespace {

constexpr QSize kButton{44, 44};
const char *const kTools[] = {"pencil", "highlighter", "laser", "line", "arrow-line", "rectangle", "ellipse", "eraser"};

QToolButton *addButton(QAction &action, QHBoxLayout &row)
{
    auto *button = new QToolButton;
    button->setDefaultAction(&action);
    button->setFocusPolicy(Qt::TabFocus);
    button->setAccessibleName(action.text());
    row.addWidget(button);
    return button;
}

void addIconButton(QAction &action, const QIcon &icon, QHBoxLayout &row)
{
    action.setIcon(icon);
    action.setCheckable(true);
    QToolButton *button = addButton(action, row);
    button->setIconSize(QSize(kSampleSide, kSampleSide));
    button->setFixedSize(kButton);
}

} // namespace

ScreenBar::ScreenBar()
    : m_tools(new QActionGroup(this))
    , m_colors(new ColorRow(this))
    , m_width(new WidthControl(this))
{
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus);
    setWindowTitle(tr("Tools for the screen"));
    setObjectName(QStringLiteral("screenBar"));
    setStyleSheet(windowStyle());
    auto *ends = new QHBoxLayout(this);
    ends->setContentsMargins(8, 4, 8, 4);
    auto *grip = new QLabel(QStringLiteral("⋮⋮"), this);
    grip->setCursor(Qt::SizeAllCursor);
    grip->setToolTip(tr("Drag to move the bar"));
    ends->addWidget(grip);
    auto *rows = new QVBoxLayout;
    ends->addLayout(rows);
    rows->setSpacing(2);
    auto *upper = new QHBoxLayout;
    auto *lower = new QHBoxLayout;
    for (QHBoxLayout *row : {upper, lower}) {
        row->setSpacing(2);
        rows->addLayout(row);
    }
    addTools(*upper);
    upper->addStretch(1);
    addCommands(*upper);
    lower->addWidget(m_colors);
    lower->addStretch(1);
    lower->addWidget(m_width);
    for (QAction *action : actions())
        action->setShortcutContext(Qt::ApplicationShortcut); // the focus is mostly on the page
    restoreKeys(*this);
    adjustSize();
}

void ScreenBar::addTools(QHBoxLayout &row)
{
    const CommandGroup group(tr("Tools"), *this, CommandGroup::Place::Buttons);
    QAction *pointer = group.add("pointer", tr("Use what lies below"), QStringLiteral("V"));
    addIconButton(*m_tools->addAction(pointer), toolIcon(*findTool(QStringLiteral("pick"))), row);
    connect(pointer, &QAction::triggered, this, &ScreenBar::pointed);
    for (const char *name : kTools) {
        const Tool &tool = *findTool(QLatin1String(name));
        QAction *action = group.add(tool.name, toolTitle(tool), QLatin1String(tool.shortcut));
        addIconButton(*m_tools->addAction(action), toolIcon(tool), row);
        connect(action, &QAction::triggered, this, [this, &tool] { emit chosen(tool); });
    }
    m_tools->actions().at(1)->setChecked(true);
}

void ScreenBar::addCommands(QHBoxLayout &row)
{
    const CommandGroup group(tr("Screen"), *this, CommandGroup::Place::Buttons);
    const auto add = [&](const char *name, const QString &title, const char *keys, void (ScreenBar::*signal)()) {
        QAction *action = group.add(name, title, QLatin1String(keys));
        addButton(*action, row);
        connect(action, &QAction::triggered, this, signal);
    };
    add("undo", tr("Undo"), "Ctrl+Z", &ScreenBar::undone);
    add("clear", tr("Clear"), "Ctrl+Shift+Backspace", &ScreenBar::cleared);
    add("back", tr("Back to the board"), "F9", &ScreenBar::ended);
}

void ScreenBar::mousePressEvent(QMouseEvent *event)
{
    m_grip = event->pos();
}

void ScreenBar::mouseMoveEvent(QMouseEvent *event)
{
    if (event->buttons().testFlag(Qt::LeftButton))
        move(event->globalPos() - m_grip);
}

} // namespace Board

#include "ToolRail.h"

#include "CommandGroup.h"
#include "ToolIcon.h"
#include "Tools.h"

#include <QtWidgets/QAction>
#include <QtWidgets/QActionGroup>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QToolButton>

namespace Board {

namespace {

constexpr int kColumns = 3;
constexpr QSize kButton{48, 48}; // large enough for a finger

} // namespace

ToolRail::ToolRail(QWidget *parent)
    : QScrollArea(parent)
    , m_actions(new QActionGroup(this))
{
    setObjectName(QStringLiteral("rail"));
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);                             // the buttons take it
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored); // the page decides how high the window is

    auto *content = new QWidget;
    content->setObjectName(QStringLiteral("tools"));
    auto *grid = new QGridLayout(content);
    grid->setContentsMargins(6, 6, 6, 10);
    grid->setSpacing(4);
    fill(*grid);
    setWidget(content); // which takes it over
    setWidgetResizable(true);
    m_actions->actions().constFirst()->setChecked(true);
}

void ToolRail::fill(QGridLayout &grid)
{
    int row = -1;
    int column = 0;
    const char *group = nullptr;
    for (const Tool &tool : tools()) {
        if (tool.group != group) {
            group = tool.group;
            auto *heading = new QLabel(groupTitle(tool));
            heading->setProperty("heading", true);
            grid.addWidget(heading, ++row, 0, 1, kColumns);
            column = kColumns;
        }
        if (column == kColumns) {
            column = 0;
            ++row;
        }
        grid.addWidget(makeButton(tool), row, column++);
    }
    grid.setRowStretch(row + 1, 1);
}

QToolButton *ToolRail::makeButton(const Tool &tool)
{
    const QString title = toolTitle(tool);
    const CommandGroup group(groupTitle(tool), *window(), CommandGroup::Place::Buttons);
    QAction *action = m_actions->addAction(group.add(tool.name, title, QLatin1String(tool.shortcut)));
    action->setIcon(toolIcon(tool));
    action->setCheckable(true);

    auto *button = new QToolButton;
    button->setDefaultAction(action);
    button->setToolButtonStyle(Qt::ToolButtonIconOnly);
    button->setIconSize(QSize(kSampleSide, kSampleSide));
    button->setFixedSize(kButton);
    button->setFocusPolicy(Qt::TabFocus);
    button->setAccessibleName(title);
    connect(action, &QAction::triggered, this, [this, &tool, button] {
        ensureWidgetVisible(button);
        emit chosen(tool);
    });
    return button;
}

void ToolRail::choose(const Tool &tool)
{
    window()->findChild<QAction *>(QLatin1String(tool.name))->trigger();
}

// With room for the scroll bar, so that the page stays where it is when the bar comes.
QSize ToolRail::sizeHint() const
{
    return widget()->sizeHint() + QSize(verticalScrollBar()->sizeHint().width(), 0);
}

} // namespace Board

#include "ToolRail.h"

#include "ToolIcon.h"
#include "Tools.h"

#include <QtWidgets/QAction>
#include <QtWidgets/QActionGroup>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QToolButton>

namespace Board {

namespace {

constexpr int kTitledRows = 8; // more tools than this go without their titles, in several columns
constexpr int kPlainRows = 10;
constexpr QSize kTitledButton{84, 64};
constexpr QSize kPlainButton{52, 52};

QToolButton *makeButton(QAction *action, bool titled, QWidget *parent)
{
    auto *button = new QToolButton(parent);
    button->setDefaultAction(action);
    button->setToolButtonStyle(titled ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonIconOnly);
    button->setIconSize(QSize(kSampleSide, kSampleSide));
    button->setFixedSize(titled ? kTitledButton : kPlainButton);
    button->setFocusPolicy(Qt::TabFocus);
    button->setAccessibleName(action->text());
    return button;
}

} // namespace

ToolRail::ToolRail(QWidget *parent)
    : QFrame(parent)
    , m_actions(new QActionGroup(this))
{
    setObjectName(QStringLiteral("rail"));
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(6, 10, 6, 10);
    grid->setSpacing(4);

    const int count = int(tools().size());
    const bool titled = count <= kTitledRows;
    const int columns = titled ? 1 : (count + kPlainRows - 1) / kPlainRows;
    for (int i = 0; i < count; ++i) {
        const Tool &tool = tools()[std::size_t(i)];
        const QString title = toolTitle(tool);
        const QString shortcut = QLatin1String(tool.shortcut);
        QAction *action = m_actions->addAction(toolIcon(tool), title);
        action->setObjectName(QLatin1String(tool.name));
        action->setCheckable(true);
        action->setShortcut(QKeySequence(shortcut));
        action->setToolTip(QStringLiteral("%1 (%2)").arg(title, shortcut));
        connect(action, &QAction::triggered, this, [this, &tool] { emit chosen(tool); });
        grid->addWidget(makeButton(action, titled, this), i / columns, i % columns);
    }
    grid->setRowStretch(grid->rowCount(), 1);
    m_actions->actions().constFirst()->setChecked(true);
}

void ToolRail::choose(const Tool &tool)
{
    findChild<QAction *>(QLatin1String(tool.name))->trigger();
}

} // namespace Board

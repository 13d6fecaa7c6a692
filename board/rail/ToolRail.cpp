#include "board/rail/ToolRail.h"

#include "board/commands/CommandGroup.h"
#include "board/focus/ArrowKeys.h"
#include "board/rail/ToolIcon.h"
#include "board/tools/Tools.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QAction>
#include <QtWidgets/QActionGroup>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QToolButton>

#include <algorithm>

namespace Board {

namespace {

constexpr int kColumns = 3;
constexpr QSize kButton{48, 48}; // large enough for a finger
constexpr int kHeadingHeight = 40;

} // namespace

ToolRail::ToolRail(QWidget *parent)
    : QWidget(parent)
    , m_actions(new QActionGroup(this))
    , m_keys(new ArrowKeys(this))
    , m_search(new QLineEdit(this))
    , m_scroll(new QScrollArea(this))
{
    setObjectName(QStringLiteral("rail"));
    setAttribute(Qt::WA_StyledBackground);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored); // the page decides how high the window is
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->setFocusPolicy(Qt::NoFocus); // the buttons take it

    auto *content = new QWidget;
    content->setObjectName(QStringLiteral("tools"));
    m_grid = new QGridLayout(content);
    m_grid->setContentsMargins(6, 0, 6, 10);
    m_grid->setSpacing(4);
    m_grid->setColumnStretch(kColumns, 1);
    m_nothing = new QLabel(tr("No such tool"), content);
    m_scroll->setWidget(content); // which takes it over
    m_scroll->setWidgetResizable(true);
    for (const Tool &tool : tools())
        addTool(tool);
    makeSearch();
    layOut();
    m_actions->actions().constFirst()->setChecked(true);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 1, 0); // beside the border
    column->setSpacing(0);
    auto *head = new QHBoxLayout;
    head->setContentsMargins(8, 8, 10, 4);
    head->addWidget(m_search);
    column->addLayout(head);
    column->addWidget(m_scroll, 1);
}

void ToolRail::makeSearch()
{
    QAction *search =
        CommandGroup(boardGroup(), *window()).add("search", tr("Search for a tool"), QStringLiteral("Ctrl+F"));
    connect(search, &QAction::triggered, m_search, [this] {
        m_search->setFocus(Qt::ShortcutFocusReason);
        m_search->selectAll();
    });
    connect(search, &QAction::changed, this, [this, search] { m_search->setToolTip(search->toolTip()); });
    m_search->setToolTip(search->toolTip());
    m_search->setAccessibleName(search->text());
    m_search->setPlaceholderText(tr("Search"));
    m_search->setClearButtonEnabled(true);
    m_search->installEventFilter(this);
    connect(m_search, &QLineEdit::textChanged, this, &ToolRail::layOut);
}

void ToolRail::addTool(const Tool &tool)
{
    const QString title = toolTitle(tool);
    const QString group = groupTitle(tool);
    QAction *action = m_actions->addAction(CommandGroup(group, *window(), CommandGroup::Place::Buttons)
                                               .add(tool.name, title, QLatin1String(tool.shortcut)));
    action->setIcon(toolIcon(tool));
    action->setCheckable(true);
    QToolButton *button = makeButton(*action);
    m_keys->add(*button);
    m_entries.push_back({button, group, title + QLatin1Char('\n') + QLatin1String(tool.name), tool.isFoundOnly});
    if (tool.isFoundOnly)
        connect(button, &QToolButton::toggled, this, &ToolRail::layOut);
    connect(action, &QAction::triggered, this, [this, &tool, button] {
        m_search->clear();
        reveal(*button);
        emit chosen(tool);
    });
}

QToolButton *ToolRail::makeButton(QAction &action) const
{
    auto *button = new QToolButton(m_scroll->widget());
    button->setDefaultAction(&action);
    button->setToolButtonStyle(Qt::ToolButtonIconOnly);
    button->setIconSize(QSize(kSampleSide, kSampleSide));
    button->setFixedSize(kButton);
    button->setAccessibleName(action.text());
    return button;
}

void ToolRail::add(QAction &command, const QString &group)
{
    const auto last =
        std::find_if(m_entries.rbegin(), m_entries.rend(), [&](const Entry &entry) { return entry.group == group; });
    QToolButton *button = makeButton(command);
    m_keys->add(*button);
    m_entries.insert(last.base(), {button, group, command.text() + QLatin1Char('\n') + command.objectName(), false});
    layOut();
}

QLabel *ToolRail::heading(const QString &group)
{
    QLabel *&label = m_headings[group];
    if (!label) {
        label = new QLabel(group, m_scroll->widget());
        label->setProperty("heading", true);
        label->setWordWrap(true); // some languages need more room
    }
    return label;
}

bool ToolRail::isShown(const Entry &entry) const
{
    const bool isSought = !entry.isFoundOnly || !m_search->text().isEmpty() || entry.button->isChecked();
    return isSought && entry.words.contains(m_search->text(), Qt::CaseInsensitive);
}

// Where it will be: the end of a search has given all buttons other places, which they do not have yet.
void ToolRail::reveal(QWidget &button)
{
    m_scroll->widget()->layout()->activate();
    QEvent anew(QEvent::LayoutRequest);
    QCoreApplication::sendEvent(m_scroll, &anew);
    m_scroll->ensureWidgetVisible(&button, 0, kHeadingHeight);
}

// Only what the search finds, without gaps.
void ToolRail::layOut()
{
    while (m_grid->count() > 0)
        delete m_grid->takeAt(0);
    for (QLabel *label : qAsConst(m_headings))
        label->hide();
    int row = -1;
    int column = 0;
    QString group;
    for (const Entry &entry : m_entries) {
        const bool isHere = isShown(entry);
        entry.button->setVisible(isHere);
        if (!isHere)
            continue;
        if (row < 0 || entry.group != group) {
            group = entry.group;
            m_grid->addWidget(heading(group), ++row, 0, 1, kColumns);
            heading(group)->show();
            column = kColumns;
        }
        if (column == kColumns) {
            column = 0;
            ++row;
        }
        m_grid->addWidget(entry.button, row, column++, Qt::AlignLeft);
    }
    m_nothing->setVisible(row < 0);
    m_grid->addWidget(m_nothing, ++row, 0, 1, kColumns);
    for (int i = 0; i < m_grid->rowCount(); ++i)
        m_grid->setRowStretch(i, 0);
    m_grid->setRowStretch(row + 1, 1);
    m_keys->refresh();
}

void ToolRail::choose(const Tool &tool)
{
    window()->findChild<QAction *>(QLatin1String(tool.name))->trigger();
}

void ToolRail::leaveSearch()
{
    m_search->clear();
    emit searched();
}

// Enter takes the first tool that is found, Esc none, and Down goes to the buttons.
bool ToolRail::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride)
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    const bool isEnter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (!isEnter && key != Qt::Key_Escape && key != Qt::Key_Down)
        return false;
    event->accept(); // and no shortcut
    if (event->type() == QEvent::ShortcutOverride)
        return true;
    const auto found =
        std::find_if(m_entries.begin(), m_entries.end(), [](const Entry &entry) { return !entry.button->isHidden(); });
    if (key == Qt::Key_Escape) {
        leaveSearch();
    } else if (found != m_entries.end()) {
        QToolButton *first = found->button;
        if (isEnter) {
            leaveSearch();
            first->click();
        } else {
            first->setFocus(Qt::TabFocusReason);
        }
    }
    return true;
}

// What was chosen before had no place yet.
void ToolRail::showEvent(QShowEvent * /*event*/)
{
    QWidget *checked = nullptr;
    for (const Entry &entry : m_entries)
        checked = entry.button->isChecked() ? entry.button : checked;
    if (checked)
        reveal(*checked);
}

// With room for the scroll bar, so that the page stays where it is when the bar comes.
QSize ToolRail::sizeHint() const
{
    const int columns = kColumns * kButton.width() + (kColumns - 1) * m_grid->spacing();
    const QMargins margins = m_grid->contentsMargins();
    return {columns + margins.left() + margins.right() + m_scroll->verticalScrollBar()->sizeHint().width() + 1, 0};
}

} // namespace Board

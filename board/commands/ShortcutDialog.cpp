#include "board/commands/ShortcutDialog.h"

#include "board/commands/CommandGroup.h"
#include "board/commands/Shortcuts.h"

#include <QtGui/QScreen>
#include <QtWidgets/QAction>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QKeySequenceEdit>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTreeWidget>
#include <QtWidgets/QVBoxLayout>

namespace Board {

namespace {

constexpr QSize kSize{560, 620};
constexpr QSize kFrame{16, 48}; // that desktops draw around a dialog, at most
constexpr int kKeysWidth = 160;
constexpr int kIcon = 24;

QString shown(const QKeySequence &keys)
{
    return keys.toString(QKeySequence::NativeText);
}

} // namespace

ShortcutDialog::ShortcutDialog(QWidget &window)
    : QDialog(&window)
    , m_window(window)
    , m_search(new QLineEdit(this))
    , m_list(new QTreeWidget(this))
    , m_title(new QLabel(this))
    , m_keys(new QKeySequenceEdit(this))
    , m_standard(new QPushButton(tr("Standard"), this))
    , m_none(new QPushButton(tr("None"), this))
    , m_problem(new QLabel(this))
    , m_takeOver(new QPushButton(tr("Take it from there"), this))
{
    setWindowTitle(tr("Keys"));
    m_search->setPlaceholderText(tr("Search"));
    m_search->setAccessibleName(tr("Search for a command"));
    m_search->setClearButtonEnabled(true);
    m_list->setAccessibleName(tr("Commands and their keys"));
    m_list->setColumnCount(2);
    m_list->setHeaderLabels({tr("Command"), tr("Keys")});
    m_list->setUniformRowHeights(true);
    m_list->setRootIsDecorated(false);
    m_list->setIconSize(QSize(kIcon, kIcon));
    m_list->header()->setStretchLastSection(false);
    m_list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_list->header()->resizeSection(1, kKeysWidth);
    listCommands();

    auto *column = new QVBoxLayout(this);
    column->addWidget(m_search);
    column->addWidget(m_list, 1);
    column->addLayout(makeEditor());
    column->addLayout(makeFoot());
    connect(m_search, &QLineEdit::textChanged, this, &ShortcutDialog::filter);
    connect(m_list, &QTreeWidget::currentItemChanged, this, &ShortcutDialog::edit);
    connect(m_list, &QTreeWidget::itemActivated, m_keys, QOverload<>::of(&QWidget::setFocus));
    resize(kSize.boundedTo(window.screen()->availableSize() - kFrame));
    edit();
}

QLayout *ShortcutDialog::makeEditor()
{
    m_keys->setAccessibleName(tr("Keys of the command"));
    m_title->setBuddy(m_keys);
    m_problem->setObjectName(QStringLiteral("problem"));
    m_problem->setWordWrap(true);
    m_takeOver->setObjectName(QStringLiteral("take-over"));
    m_standard->setObjectName(QStringLiteral("standard"));
    m_none->setObjectName(QStringLiteral("none"));
    for (QPushButton *button : {m_standard, m_none, m_takeOver})
        button->setAutoDefault(false); // Enter ends the search, not the dialog
    auto *row = new QHBoxLayout;
    row->addWidget(m_title, 1);
    row->addWidget(m_keys);
    row->addWidget(m_standard);
    row->addWidget(m_none);
    auto *conflict = new QHBoxLayout;
    conflict->addWidget(m_problem, 1);
    conflict->addWidget(m_takeOver);
    auto *editor = new QVBoxLayout;
    editor->addLayout(row);
    editor->addLayout(conflict);

    connect(m_keys, &QKeySequenceEdit::editingFinished, this, [this] { ask(m_keys->keySequence()); });
    connect(m_standard, &QPushButton::clicked, this, [this] { ask(standardKeys(*chosen())); });
    connect(m_none, &QPushButton::clicked, this, [this] { take({}); });
    connect(m_takeOver, &QPushButton::clicked, this, &ShortcutDialog::takeOver);
    return editor;
}

QLayout *ShortcutDialog::makeFoot()
{
    auto *box = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton *all = box->addButton(tr("All standard"), QDialogButtonBox::ResetRole);
    all->setObjectName(QStringLiteral("all-standard"));
    all->setAutoDefault(false);
    box->button(QDialogButtonBox::Close)->setAutoDefault(false);
    connect(all, &QPushButton::clicked, this, [this] {
        forgetKeys(m_window);
        showKeys();
        edit();
    });
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *foot = new QHBoxLayout;
    foot->addWidget(box);
    return foot;
}

void ShortcutDialog::listCommands()
{
    QHash<QString, QTreeWidgetItem *> groups;
    QFont bold = m_list->font();
    bold.setBold(true);
    for (QAction *command : commands(m_window)) {
        const QString title = commandGroup(*command);
        QTreeWidgetItem *&group = groups[title];
        if (!group) {
            group = new QTreeWidgetItem(m_list, {title});
            group->setFlags(Qt::ItemIsEnabled);
            group->setFirstColumnSpanned(true);
            group->setFont(0, bold);
            group->setExpanded(true);
        }
        auto *item = new QTreeWidgetItem(group, {command->text()});
        item->setIcon(0, command->icon());
        m_commands.insert(item, command);
    }
    showKeys();
    if (QTreeWidgetItem *first = m_list->topLevelItem(0))
        m_list->setCurrentItem(first->child(0));
}

void ShortcutDialog::showKeys()
{
    for (auto it = m_commands.cbegin(); it != m_commands.cend(); ++it)
        it.key()->setText(1, shown(it.value()->shortcut()));
}

// By words of the title, and by keys.
void ShortcutDialog::filter(const QString &words)
{
    for (int i = 0; i < m_list->topLevelItemCount(); ++i) {
        QTreeWidgetItem *group = m_list->topLevelItem(i);
        bool any = false;
        for (int j = 0; j < group->childCount(); ++j) {
            QTreeWidgetItem *item = group->child(j);
            const bool found = item->text(0).contains(words, Qt::CaseInsensitive) ||
                               item->text(1).compare(words, Qt::CaseInsensitive) == 0;
            item->setHidden(!found);
            any = any || found;
        }
        group->setHidden(!any);
    }
}

QAction *ShortcutDialog::chosen() const
{
    return m_commands.value(m_list->currentItem());
}

void ShortcutDialog::edit()
{
    const QAction *command = chosen();
    for (QWidget *control :
         {static_cast<QWidget *>(m_keys), static_cast<QWidget *>(m_standard), static_cast<QWidget *>(m_none)})
        control->setEnabled(command);
    m_title->setText(command ? command->text() : tr("Choose a command."));
    m_keys->setKeySequence(command ? command->shortcut() : QKeySequence());
    m_problem->clear();
    m_takeOver->hide();
}

void ShortcutDialog::ask(const QKeySequence &keys)
{
    QAction *command = chosen();
    if (!command || keys == command->shortcut()) {
        edit();
        return;
    }
    const QAction *other = commandWithKeys(m_window, keys, *command);
    m_takeOver->setVisible(other && !movesFocus(keys));
    if (movesFocus(keys)) {
        m_problem->setText(tr("%1 moves between the buttons and presses them.").arg(shown(keys)));
    } else if (other) {
        m_wanted = keys;
        m_problem->setText(tr("%1 belongs to “%2”.").arg(shown(other->shortcut()), other->text()));
    } else {
        take(keys);
    }
}

void ShortcutDialog::take(const QKeySequence &keys)
{
    chooseKeys(*chosen(), keys);
    showKeys();
    edit();
}

// More than one command may have to give: those that begin with these keys.
void ShortcutDialog::takeOver()
{
    while (QAction *other = commandWithKeys(m_window, m_wanted, *chosen()))
        chooseKeys(*other, {});
    take(m_wanted);
}

} // namespace Board

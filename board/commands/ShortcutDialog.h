#pragma once

#include <QtCore/QHash>
#include <QtGui/QKeySequence>
#include <QtWidgets/QDialog>

class QKeySequenceEdit;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace Board {

// Lists the commands of a window with their keys, which can be changed here. A change counts at once.
class ShortcutDialog : public QDialog
{
    Q_OBJECT

public:
    explicit ShortcutDialog(QWidget &window);

private:
    QLayout *makeEditor();
    QLayout *makeFoot();
    void listCommands();
    void showKeys();
    void filter(const QString &words);
    void edit();
    void ask(const QKeySequence &keys);
    void take(const QKeySequence &keys);
    void takeOver();
    QAction *chosen() const;

    QWidget &m_window;
    QHash<QTreeWidgetItem *, QAction *> m_commands;
    QLineEdit *m_search; // all owned by this dialog
    QTreeWidget *m_list;
    QLabel *m_title;
    QKeySequenceEdit *m_keys;
    QPushButton *m_standard;
    QPushButton *m_none;
    QLabel *m_problem;
    QPushButton *m_takeOver;
    QKeySequence m_wanted; // by the chosen command, while they are another's
};

} // namespace Board

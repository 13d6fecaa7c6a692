#pragma once

#include <QtCore/QHash>
#include <QtWidgets/QWidget>

#include <vector>

class QAction;
class QActionGroup;
class QGridLayout;
class QLabel;
class QLineEdit;
class QScrollArea;
class QToolButton;

namespace Board {

class ArrowKeys;
struct Tool;

// The palette of tools: a button each under the heading of its group, one of them switched on, and a field to search
// them by name. It scrolls where the window is too low for all of them.
class ToolRail : public QWidget
{
    Q_OBJECT

public:
    explicit ToolRail(QWidget *parent = nullptr);

    void choose(const Tool &tool);

    // Gives a command a button among the tools of a group.
    void add(QAction &command, const QString &group);

    QSize sizeHint() const override;

signals:
    void chosen(const Tool &tool);

    // The search has ended, with or without a tool.
    void searched();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    struct Entry
    {
        QToolButton *button;
        QString group;
        QString words; // that find it
        bool isFoundOnly;
    };

    void makeSearch();
    void addTool(const Tool &tool);
    QToolButton *makeButton(QAction &action) const;
    QLabel *heading(const QString &group);
    void layOut();
    bool isShown(const Entry &entry) const;
    void reveal(QWidget &button);
    void leaveSearch();

    std::vector<Entry> m_entries; // of one group after the other
    QHash<QString, QLabel *> m_headings;
    QActionGroup *m_actions; // all owned by this widget
    ArrowKeys *m_keys;
    QLineEdit *m_search;
    QScrollArea *m_scroll;
    QGridLayout *m_grid;
    QLabel *m_nothing;
};

} // namespace Board

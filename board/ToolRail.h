#pragma once

#include <QtWidgets/QScrollArea>

class QActionGroup;
class QGridLayout;
class QToolButton;

namespace Board {

struct Tool;

// The palette of tools: a button each under the heading of its group, one of them switched on. It scrolls where the
// window is too low for all of them.
class ToolRail : public QScrollArea
{
    Q_OBJECT

public:
    explicit ToolRail(QWidget *parent = nullptr);

    void choose(const Tool &tool);

    QSize sizeHint() const override;

signals:
    void chosen(const Tool &tool);

private:
    void fill(QGridLayout &grid);
    QToolButton *makeButton(const Tool &tool);

    QActionGroup *m_actions; // owned by this widget
};

} // namespace Board

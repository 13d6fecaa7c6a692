#pragma once

#include <QtWidgets/QFrame>

class QActionGroup;

namespace Board {

struct Tool;

// The palette of tools: one large button each, one of them switched on.
class ToolRail : public QFrame
{
    Q_OBJECT

public:
    explicit ToolRail(QWidget *parent = nullptr);

    void choose(const Tool &tool);

signals:
    void chosen(const Tool &tool);

private:
    QActionGroup *m_actions; // owned by this widget
};

} // namespace Board

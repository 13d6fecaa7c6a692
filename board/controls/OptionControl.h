#pragma once

#include <QtCore/QHash>
#include <QtWidgets/QWidget>

#include <optional>

class QAction;
class QLabel;
class QSlider;

namespace Board {

struct Tool;

// The option of the chosen tool: a slider that is there only while that tool has one. Each tool keeps its own value.
class OptionControl : public QWidget
{
    Q_OBJECT

public:
    explicit OptionControl(QWidget *parent = nullptr);

    void setTool(const Tool &tool);

    // Of the chosen tool; none for a tool without an option.
    std::optional<int> value() const;

    // By that many steps, within the option's limits.
    void step(int steps);

signals:
    void picked(int value);

private:
    void addCommands();
    void showTip();
    void showValue(int value);

    const Tool *m_tool{};
    QHash<const Tool *, int> m_values;
    QLabel *m_title; // all three owned by this widget
    QSlider *m_slider;
    QLabel *m_text;
    QAction *m_less{}; // both owned by the window
    QAction *m_more{};
};

} // namespace Board

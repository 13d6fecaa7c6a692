#pragma once

#include <QtWidgets/QWidget>

class QComboBox;

namespace Board {

// The dash style of lines: a list of samples.
class DashControl : public QWidget
{
    Q_OBJECT

public:
    explicit DashControl(QWidget *parent = nullptr);

    Qt::PenStyle dash() const;

signals:
    void picked(Qt::PenStyle dash);

private:
    void addCommand();

    QComboBox *m_list; // owned by this widget
};

} // namespace Board

#pragma once

#include <QtCore/QList>
#include <QtWidgets/QFrame>

class QHBoxLayout;

namespace Board {

// A row of controls. Where it is too narrow for all of them, the spare ones leave it.
class Bar : public QFrame
{
    Q_OBJECT

public:
    explicit Bar(QWidget *parent = nullptr);

    QHBoxLayout &row() const { return *m_row; }

    // Somewhere in the row. The first one leaves first, and comes back last.
    void setSpare(const QList<QWidget *> &parts);

    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void fit();

    QHBoxLayout *m_row; // owned by this widget
    QList<QWidget *> m_spare;
};

} // namespace Board

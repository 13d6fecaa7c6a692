#pragma once

#include <QtCore/QStringList>
#include <QtWidgets/QWidget>

namespace Board {

// Lines of fixed-width letters, as large as the widget has room for: to be read across a classroom.
class FittedText : public QWidget
{
    Q_OBJECT

public:
    explicit FittedText(QWidget *parent = nullptr);

    // Also what a screen reader reads.
    void setLines(const QStringList &lines);

    // Where they are if the widget is higher than they are: at its top, middle or bottom.
    void setAlignment(Qt::Alignment vertical);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QSize sizeAt(int pixels) const;

    QStringList m_lines;
    Qt::Alignment m_vertical{Qt::AlignVCenter};
};

} // namespace Board

#pragma once

#include <QtGui/QColor>
#include <QtWidgets/QAbstractButton>

class QAction;
class QButtonGroup;

namespace Board {

// A round button that shows its colour, with a ring while it is chosen.
class ColorSwatch : public QAbstractButton
{
    Q_OBJECT

public:
    // The action clicks the button.
    ColorSwatch(const QColor &color, QAction &action, QWidget *parent = nullptr);

    QColor color() const { return m_color; }
    void setColor(const QColor &color);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QColor m_color; // invalid: any colour, shown as all of them
};

// The colours for the classroom and one of the teacher's own.
class ColorRow : public QWidget
{
    Q_OBJECT

public:
    explicit ColorRow(QWidget *parent = nullptr);

    QColor color() const { return m_color; }

    // Takes a colour that need not be in the row.
    void setCustomColor(const QColor &color);

signals:
    void picked(const QColor &color);

private:
    void pick(const QColor &color);
    void askForColor();

    QButtonGroup *m_group; // owned by this widget
    ColorSwatch *m_custom; // owned by this widget
    QColor m_color;
};

} // namespace Board

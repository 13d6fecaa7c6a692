#pragma once

#include <QtCore/QStringList>
#include <QtGui/QColor>
#include <QtWidgets/QAbstractButton>

class QAction;
class QButtonGroup;
class QGridLayout;

namespace Board {

class ArrowKeys;

// A round button that shows its colour, with a ring while it is chosen.
class ColorSwatch : public QAbstractButton
{
    Q_OBJECT

public:
    enum class Size { Large, Small };

    // The action clicks the button.
    ColorSwatch(QAction &action, Size size, QWidget *parent = nullptr);

    QColor color() const { return m_color; }
    void setColor(const QColor &color);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    const Size m_size;
    QColor m_color; // invalid: any colour, shown as all of them
};

// The colours for the classroom, any other one, and those of the others that were chosen last.
class ColorRow : public QWidget
{
    Q_OBJECT

public:
    explicit ColorRow(QWidget *parent = nullptr);

    QColor color() const { return m_color; }

    // The part with the colours that were chosen last.
    QWidget *recent() const { return m_recentPart; }

    // Puts the ring around it, without picking it.
    void show(const QColor &color);

    // Takes a colour that need not be in the row.
    void setCustomColor(const QColor &color);

signals:
    void picked(const QColor &color);

private:
    ColorSwatch *add(const QString &name, const QString &title, const QString &keys, ColorSwatch::Size size);
    void addRecent(QGridLayout &grid);
    void showRecent(const QStringList &names);
    void pick(const QColor &color);
    void showPicked();
    void askForColor();

    QButtonGroup *m_group; // all owned by this widget
    ArrowKeys *m_keys;
    ColorSwatch *m_custom;
    QWidget *m_recentPart;
    QList<ColorSwatch *> m_recent; // hidden where there were not that many yet
    QColor m_color;
};

} // namespace Board

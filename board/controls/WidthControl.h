#pragma once

#include <QtGui/QColor>
#include <QtWidgets/QWidget>

class QLabel;
class QSlider;

namespace Board {

// A dot as large and of the colour as the pen that is set.
class WidthPreview : public QWidget
{
    Q_OBJECT

public:
    explicit WidthPreview(QWidget *parent = nullptr);

    void setInk(const QColor &color, int width);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QColor m_color{Qt::black};
    int m_width{1};
};

// The pen width, in pixels: a slider with a preview.
class WidthControl : public QWidget
{
    Q_OBJECT

public:
    explicit WidthControl(QWidget *parent = nullptr);

    int inkWidth() const;
    void setInkWidth(int width); // kept within 1 to 40
    void setColor(const QColor &color);

    // The ink that is in use, without picking it.
    void show(const QColor &color, int width);

    // What can be missed beside the slider.
    QWidget *number() const;
    QWidget *preview() const;

signals:
    void picked(int width);

private:
    void addCommands();
    void showWidth(int width);

    QColor m_color{Qt::black};
    WidthPreview *m_preview; // all three owned by this widget
    QSlider *m_slider;
    QLabel *m_text;
};

} // namespace Board

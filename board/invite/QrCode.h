#pragma once

#include <QtGui/QImage>
#include <QtWidgets/QWidget>

namespace Board {

// A text as a QR code, black on white, one pixel for each module, with the four modules of white around it that readers
// need. Null for a text that no such code holds.
QImage qrModules(const QString &text);

// A QR code in the middle of the widget, as large as it goes with modules of whole pixels of the screen, all alike.
class QrCode : public QWidget
{
    Q_OBJECT

public:
    explicit QrCode(QWidget *parent = nullptr);

    void setText(const QString &text);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QImage m_modules;
};

} // namespace Board

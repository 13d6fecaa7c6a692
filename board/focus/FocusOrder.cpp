#include "board/focus/FocusOrder.h"

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QLineEdit>

namespace Board {

namespace {

QList<QWidget *> controls(QWidget &part)
{
    QList<QWidget *> found;
    for (QWidget *widget : QList<QWidget *>{&part} + part.findChildren<QWidget *>()) {
        const bool isControl = widget->focusPolicy() & Qt::TabFocus || qobject_cast<QAbstractButton *>(widget);
        const bool isPart = widget->focusProxy() || qobject_cast<QLineEdit *>(widget->parentWidget());
        if (isControl && !isPart && widget->window() == part.window()) // and not in a menu
            found.append(widget);
    }
    return found;
}

// QWidget would leave out one that does not take the focus, such as a button that the arrow keys come to first.
void follow(QWidget &first, QWidget &second)
{
    const Qt::FocusPolicy before = first.focusPolicy();
    const Qt::FocusPolicy after = second.focusPolicy();
    first.setFocusPolicy(Qt::TabFocus);
    second.setFocusPolicy(Qt::TabFocus);
    QWidget::setTabOrder(&first, &second);
    first.setFocusPolicy(before);
    second.setFocusPolicy(after);
}

} // namespace

void orderFocus(const QList<QWidget *> &parts)
{
    QWidget *last = nullptr;
    for (QWidget *part : parts) {
        for (QWidget *control : controls(*part)) {
            if (last)
                follow(*last, *control);
            last = control;
        }
    }
}

} // namespace Board

#include "ArrowKeys.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QAbstractButton>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace Board {

namespace {

QPoint center(const QAbstractButton &button)
{
    return button.mapTo(button.window(), button.rect().center());
}

bool isReachable(const QAbstractButton &button)
{
    return !button.isHidden() && button.isEnabled();
}

} // namespace

void ArrowKeys::add(QAbstractButton &button)
{
    button.setFocusPolicy(m_buttons.isEmpty() ? Qt::TabFocus : Qt::NoFocus);
    m_buttons.append(&button);
    button.installEventFilter(this);
    connect(&button, &QAbstractButton::toggled, this, [this, &button](bool on) {
        if (on)
            makeStop(button);
    });
}

void ArrowKeys::refresh()
{
    const auto isStop = [](const QAbstractButton *button) { return button->focusPolicy() == Qt::TabFocus; };
    const auto stop = std::find_if(m_buttons.begin(), m_buttons.end(), isStop);
    const auto visible =
        std::find_if(m_buttons.begin(), m_buttons.end(), [](const auto *button) { return isReachable(*button); });
    if (stop != m_buttons.end() && !isReachable(**stop) && visible != m_buttons.end())
        makeStop(**visible);
}

void ArrowKeys::makeStop(const QAbstractButton &stop)
{
    for (QAbstractButton *button : qAsConst(m_buttons))
        button->setFocusPolicy(button == &stop ? Qt::TabFocus : Qt::NoFocus);
}

// In the order of reading.
QAbstractButton *ArrowKeys::next(const QAbstractButton &from, bool forward) const
{
    const auto place = [](const QAbstractButton &button) {
        const QPoint pt = center(button);
        return std::make_pair(pt.y(), pt.x());
    };
    QAbstractButton *nearest = nullptr;
    for (QAbstractButton *button : m_buttons) {
        const bool isAhead = forward ? place(*button) > place(from) : place(*button) < place(from);
        if (isAhead && isReachable(*button) && (!nearest || forward == (place(*button) < place(*nearest))))
            nearest = button;
    }
    return nearest;
}

// The nearest one of the nearest row.
QAbstractButton *ArrowKeys::nextRow(const QAbstractButton &from, bool down) const
{
    QAbstractButton *nearest = nullptr;
    std::pair<int, int> least;
    for (QAbstractButton *button : m_buttons) {
        const QPoint by = center(*button) - center(from);
        const int rows = down ? by.y() : -by.y();
        if (rows < from.height() / 2 || !isReachable(*button))
            continue;
        const std::pair<int, int> distance(rows, std::abs(by.x()));
        if (!nearest || distance < least) {
            nearest = button;
            least = distance;
        }
    }
    return nearest;
}

bool ArrowKeys::eventFilter(QObject *watched, QEvent *event)
{
    auto *button = static_cast<QAbstractButton *>(watched);
    if (event->type() == QEvent::FocusIn)
        makeStop(*button);
    if (event->type() != QEvent::KeyPress)
        return false;
    QAbstractButton *target = nullptr;
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Left:
        target = next(*button, false);
        break;
    case Qt::Key_Right:
        target = next(*button, true);
        break;
    case Qt::Key_Up:
        target = nextRow(*button, false);
        break;
    case Qt::Key_Down:
        target = nextRow(*button, true);
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        button->click();
        return true;
    default:
        return false;
    }
    if (target)
        target->setFocus(Qt::TabFocusReason); // so that a scroll area follows
    return true;
}

} // namespace Board

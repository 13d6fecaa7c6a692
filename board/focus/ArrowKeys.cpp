#include "board/focus/ArrowKeys.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QAbstractButton>

#include <algorithm>
#include <cstdlib>
#include <tuple>
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

bool isInRow(const QAbstractButton &first, const QAbstractButton &second)
{
    return std::abs(center(first).y() - center(second).y()) <= std::max(first.height(), second.height()) / 2;
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

// In the order of reading: in the row, then in the row after it.
QAbstractButton *ArrowKeys::next(const QAbstractButton &from, bool forward) const
{
    QAbstractButton *nearest = nullptr;
    std::tuple<bool, int, int> least; // whether in another row, and how far
    for (QAbstractButton *button : m_buttons) {
        const QPoint by = (center(*button) - center(from)) * (forward ? 1 : -1);
        const bool inRow = isInRow(*button, from);
        const bool isAhead = inRow ? by.x() > 0 : by.y() > 0;
        const auto distance = inRow ? std::make_tuple(false, by.x(), std::abs(by.y())) //
                                    : std::make_tuple(true, by.y(), by.x());
        if (isAhead && isReachable(*button) && (!nearest || distance < least)) {
            nearest = button;
            least = distance;
        }
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
        const std::pair<int, int> distance(rows, std::abs(by.x()));
        const bool isAhead = rows > 0 && !isInRow(*button, from);
        if (isAhead && isReachable(*button) && (!nearest || distance < least)) {
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

#include "board/window/HintLine.h"

#include <QtGui/QHelpEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QLayout>
#include <QtWidgets/QToolTip>

#include <algorithm>

namespace Board {

namespace {

constexpr int kMargin = 16;

} // namespace

QSize HintLine::minimumSizeHint() const
{
    return {layout() ? layout()->minimumSize().width() : 0, QLabel::minimumSizeHint().height()};
}

// Left of the first control.
QRect HintLine::area() const
{
    int right = width();
    for (const QWidget *control : findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
        if (!control->isHidden())
            right = std::min(right, control->x());
    }
    return rect().adjusted(kMargin, 0, right - width() - kMargin, 0);
}

QString HintLine::shown() const
{
    return fontMetrics().elidedText(text(), Qt::ElideRight, area().width());
}

void HintLine::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    drawFrame(&painter);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(area(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown());
}

bool HintLine::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || shown() == text())
        return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), text(), this);
    return true;
}

} // namespace Board

#include "board/window/Bar.h"

#include <QtCore/QEvent>
#include <QtWidgets/QHBoxLayout>

#include <algorithm>

namespace Board {

namespace {

constexpr int kSlack = 8;

// With the space beside it.
int leastWidth(const QWidget &part)
{
    return part.minimumSizeHint().expandedTo(part.minimumSize()).width() + part.parentWidget()->layout()->spacing();
}

} // namespace

Bar::Bar(QWidget *parent)
    : QFrame(parent)
    , m_row(new QHBoxLayout(this))
{
}

void Bar::setSpare(const QList<QWidget *> &parts)
{
    m_spare = parts;
    fit();
}

QSize Bar::minimumSizeHint() const
{
    QSize size = QFrame::minimumSizeHint();
    for (const QWidget *part : m_spare)
        size.rwidth() -= part->isHidden() ? 0 : leastWidth(*part);
    return size;
}

// A part comes back only where it has room to spare, or it might come and go for ever.
void Bar::fit()
{
    int room = width() - m_row->minimumSize().width();
    for (QWidget *part : qAsConst(m_spare)) {
        if (room >= 0)
            break;
        room += part->isHidden() ? 0 : leastWidth(*part);
        part->hide();
    }
    for (auto part = m_spare.rbegin(); part != m_spare.rend(); ++part) {
        if (!(*part)->isHidden())
            continue;
        room -= leastWidth(**part);
        if (room < kSlack)
            break;
        (*part)->show();
    }
}

// What is in it may have become wider.
bool Bar::event(QEvent *event)
{
    const bool isDone = QFrame::event(event);
    if (event->type() == QEvent::LayoutRequest)
        fit();
    return isDone;
}

void Bar::resizeEvent(QResizeEvent *event)
{
    QFrame::resizeEvent(event);
    fit();
}

} // namespace Board

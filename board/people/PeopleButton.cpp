#include "board/people/PeopleButton.h"

#include "board/look/Style.h"
#include "board/people/PersonDisc.h"

#include <QtGui/QFontMetrics>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>

#include <algorithm>

namespace Board {

namespace {

constexpr int kSide = 28;   // of a disc
constexpr int kStep = 22;   // from one to the next, which lies over it
constexpr int kMargin = 2;  // for the ring of the focus
constexpr int kMoreGap = 4; // before the number
constexpr int kMostDiscs = 6;
constexpr int kRounding = 10;

} // namespace

PeopleButton::PeopleButton(QWidget *parent)
    : QAbstractButton(parent)
{
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setObjectName(QStringLiteral("people"));
    tellNames();
}

void PeopleButton::setPeople(const QList<Participant> &people)
{
    if (m_people == people)
        return; // told every second
    m_people = people;
    tellNames();
    updateGeometry();
    update();
}

void PeopleButton::tellNames()
{
    QStringList names;
    for (const Participant &person : qAsConst(m_people))
        names.append(person.words());
    setAccessibleName(tr("In this lesson: %1").arg(m_people.size()));
    setAccessibleDescription(names.join(QStringLiteral(", ")));
    setToolTip(accessibleName());
}

QString PeopleButton::moreText(int discs) const
{
    const int more = m_people.size() - discs;
    return more > 0 ? QStringLiteral("+%1").arg(more) : QString();
}

int PeopleButton::widthOf(int discs) const
{
    const QString more = moreText(discs);
    const int text = more.isEmpty() ? 0 : kMoreGap + fontMetrics().horizontalAdvance(more);
    return 2 * kMargin + kSide + std::max(discs - 1, 0) * kStep + text;
}

int PeopleButton::discsIn(int width) const
{
    int discs = std::min(m_people.size(), kMostDiscs);
    while (discs > 1 && widthOf(discs) > width)
        --discs;
    return discs;
}

QSize PeopleButton::sizeHint() const
{
    return {widthOf(std::min(m_people.size(), kMostDiscs)), kSide + 2 * kMargin};
}

QSize PeopleButton::minimumSizeHint() const
{
    return {widthOf(std::min(m_people.size(), 1)), kSide + 2 * kMargin};
}

// From right to left, so that each disc lies over the one after it.
void PeopleButton::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF frame = QRectF(rect()).adjusted(1, 1, -1, -1);
    painter.setPen(hasFocus() ? QPen(QColor(kAccentColor), 2) : QPen(Qt::NoPen));
    painter.setBrush(isDown() || underMouse() ? QColor(0xEE, 0xF2, 0xF8) : QColor(Qt::transparent));
    painter.drawRoundedRect(frame, kRounding, kRounding);
    const int discs = discsIn(width());
    const int top = (height() - kSide) / 2;
    for (int i = discs - 1; i >= 0; --i)
        paintDisc(painter, QRectF(kMargin + i * kStep, top, kSide, kSide), m_people[i]);
    painter.setPen(QColor(kTextColor));
    const QRect room = rect().adjusted(kMargin + kSide + (discs - 1) * kStep + kMoreGap, 0, 0, 0);
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter, moreText(discs));
}

// Enter presses as Space does.
void PeopleButton::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

} // namespace Board

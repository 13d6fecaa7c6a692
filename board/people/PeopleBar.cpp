#include "board/people/PeopleBar.h"

#include "board/look/Style.h"
#include "board/people/ConnectionLabel.h"
#include "board/people/PeopleButton.h"
#include "board/people/PeopleList.h"

#include <QtGui/QPainter>
#include <QtGui/QPixmap>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QToolButton>

namespace Board {

namespace {

constexpr int kGap = 8;
constexpr int kIcon = 20;

// One who gives, and two who get.
QPixmap sharePixmap(int ratio)
{
    constexpr QPointF kFrom{4.5, 10};
    constexpr QPointF kTo[] = {{15.5, 4.5}, {15.5, 15.5}};
    constexpr double kRadius = 3.25;
    QPixmap pixmap(QSize(kIcon, kIcon) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const QPointF &to : kTo) {
        painter.setPen(QPen(QColor(kAccentColor), 2));
        painter.drawLine(kFrom, to);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(kAccentColor));
        painter.drawEllipse(to, kRadius, kRadius);
    }
    painter.drawEllipse(kFrom, kRadius, kRadius);
    return pixmap;
}

// For screens of each density.
QIcon shareIcon()
{
    QIcon icon;
    for (const int ratio : {1, 2, 3})
        icon.addPixmap(sharePixmap(ratio));
    return icon;
}

} // namespace

PeopleBar::PeopleBar(QWidget *parent)
    : QWidget(parent)
    , m_share(new QToolButton(this))
    , m_people(new PeopleButton(this))
    , m_list(new PeopleList(this))
    , m_connection(new ConnectionLabel(this))
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kGap);
    addShareButton(*row);
    row->addWidget(m_people);
    row->addWidget(m_connection);
    m_people->hide();
    connect(m_people, &PeopleButton::clicked, this, [this] { m_list->openAt(*m_people); });
    connect(m_list, &PeopleList::pointersSwitched, this, &PeopleBar::pointersSwitched);
}

void PeopleBar::addShareButton(QHBoxLayout &row)
{
    m_share->setObjectName(QStringLiteral("share"));
    m_share->setText(tr("Share"));
    m_share->setIcon(shareIcon());
    m_share->setIconSize(QSize(kIcon, kIcon));
    m_share->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_share->setFocusPolicy(Qt::TabFocus);
    m_share->setAccessibleName(tr("Share this lesson"));
    m_share->setToolTip(m_share->accessibleName());
    connect(m_share, &QToolButton::clicked, this, &PeopleBar::shareRequested);
    row.addWidget(m_share);
}

QAbstractButton *PeopleBar::peopleButton() const
{
    return m_people;
}

QAbstractButton *PeopleBar::pointersBox() const
{
    return m_list->pointersBox();
}

void PeopleBar::setPeople(const QList<Participant> &people)
{
    m_people->setPeople(people);
    m_people->setVisible(!people.isEmpty());
    m_list->setPeople(people);
    if (people.isEmpty())
        m_list->hide();
}

void PeopleBar::setConnection(const QString &words, bool isGood)
{
    m_connection->setWords(words, isGood);
}

void PeopleBar::setShown(bool isShown)
{
    m_list->setShown(isShown);
}

} // namespace Board

#include "board/people/PeopleList.h"

#include "board/look/Style.h"
#include "board/people/PersonDisc.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>
#include <QtGui/QScreen>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace Board {

namespace {

constexpr int kDisc = 28;
constexpr int kRow = 36;
constexpr int kMostRows = 10; // then it scrolls
constexpr int kWidth = 300;

QIcon discIcon(const Participant &person, double ratio)
{
    QPixmap pixmap(QSize(kDisc, kDisc) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paintDisc(painter, QRectF(0, 0, kDisc, kDisc), person);
    painter.end();
    QIcon icon(pixmap);
    icon.addPixmap(pixmap, QIcon::Selected); // which Qt would tint
    return icon;
}

} // namespace

PeopleList::PeopleList(QWidget *parent)
    : QFrame(parent, Qt::Popup)
    , m_list(new QListWidget(this))
    , m_pointers(new QCheckBox(tr("Show where the others point"), this))
{
    setObjectName(QStringLiteral("people-list"));
    setFrameShape(QFrame::StyledPanel);
    setStyleSheet(QStringLiteral(R"(
        #people-list { background: #ffffff; border: 1px solid #c3ccd8; }
        QListWidget { background: #ffffff; color: #27313d; font-size: 15px; border: none; outline: none; }
        QListWidget::item { border: 2px solid transparent; border-radius: 8px; padding: 0 4px; }
        QListWidget:focus::item:selected { border-color: #2563c9; }
        QListWidget::item:selected { background: #e3ecfb; color: #27313d; }
        QCheckBox { color: #27313d; font-size: 15px; padding: 6px; }
        QCheckBox:focus { background: #e3ecfb; }
    )"));
    m_list->setAccessibleName(tr("In this lesson"));
    m_list->setIconSize(QSize(kDisc, kDisc));
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setTextElideMode(Qt::ElideRight);
    m_list->setUniformItemSizes(true);
    m_pointers->setObjectName(QStringLiteral("pointers"));
    m_pointers->setChecked(true);
    connect(m_pointers, &QCheckBox::toggled, this, &PeopleList::pointersSwitched);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(6, 6, 6, 6);
    column->addWidget(m_list);
    column->addWidget(m_pointers);
}

// Who reads the list keeps the place.
void PeopleList::setPeople(const QList<Participant> &people)
{
    const int row = std::min(std::max(m_list->currentRow(), 0), people.size() - 1);
    while (m_list->count() > people.size())
        delete m_list->takeItem(m_list->count() - 1);
    for (int i = 0; i < people.size(); ++i) {
        const Participant &person = people[i];
        if (i == m_list->count())
            m_list->addItem(new QListWidgetItem);
        else if (person == m_people[i])
            continue;
        QListWidgetItem *item = m_list->item(i);
        QString text = person.words();
        if (person.page > 0)
            text = tr("%1, page %2").arg(text).arg(person.page);
        item->setText(text);
        item->setIcon(discIcon(person, devicePixelRatioF()));
        item->setSizeHint(QSize(0, kRow));
    }
    m_people = people;
    m_list->setCurrentRow(row);
    m_list->setFixedHeight(kRow * std::min(std::max(people.size(), 1), kMostRows));
}

void PeopleList::setShown(bool isShown)
{
    const QSignalBlocker blocker(this); // who says so knows
    m_pointers->setChecked(isShown);
}

void PeopleList::openAt(const QWidget &opener)
{
    const QSize size(std::max(kWidth, sizeHint().width()), sizeHint().height());
    const QRect room = opener.screen()->availableGeometry();
    const QPoint above = opener.mapToGlobal(QPoint(0, 0));
    QPoint corner = opener.mapToGlobal(QPoint(0, opener.height()));
    if (corner.y() + size.height() > room.bottom())
        corner.setY(std::max(above.y() - size.height(), room.top()));
    corner.setX(std::max(std::min(corner.x(), room.right() - size.width()), room.left()));
    setGeometry(QRect(corner, size));
    show();
    m_list->setFocus();
}

} // namespace Board

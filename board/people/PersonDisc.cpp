#include "board/people/PersonDisc.h"

#include "board/look/Style.h"
#include "board/people/Participant.h"
#include "board/people/PersonName.h"

#include <QtGui/QPainter>

namespace Board {

void paintDisc(QPainter &painter, const QRectF &disc, const Participant &person)
{
    constexpr double kRing = 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawEllipse(disc);
    painter.setBrush(person.color);
    painter.drawEllipse(disc.adjusted(kRing, kRing, -kRing, -kRing));
    if (person.isMe) {
        painter.setPen(QPen(QColor(kTextColor), kRing));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(disc.adjusted(kRing / 2, kRing / 2, -kRing / 2, -kRing / 2));
    }
    QFont font = painter.font();
    font.setPixelSize(int(disc.height() / 2));
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(disc, Qt::AlignCenter | Qt::TextSingleLine, initialOf(person.name));
    painter.restore();
}

} // namespace Board

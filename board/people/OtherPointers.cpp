#include "board/people/OtherPointers.h"

#include "board/people/PersonName.h"

#include <QtGui/QFontMetrics>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

#include <algorithm>
#include <utility>

namespace Board {

namespace {

constexpr int kTextSize = 13;
constexpr int kMostWidth = 150;         // of a name
constexpr int kPadding = 6;             // beside the name
constexpr QPoint kPlate{11, 17};        // its upper left corner, from the tip
constexpr QRect kArrow{-2, -2, 18, 22}; // with its rim, from the tip

QFont nameFont()
{
    QFont font = QGuiApplication::font();
    font.setPixelSize(kTextSize);
    font.setBold(true);
    return font;
}

// False for what is no number, too.
bool isWithin(const QRect &widget, const QPointF &pt)
{
    return pt.x() >= widget.left() && pt.x() <= widget.right() && pt.y() >= widget.top() && pt.y() <= widget.bottom();
}

QPainterPath arrow()
{
    QPainterPath path;
    path.moveTo(0, 0);
    path.lineTo(0, 16.5);
    path.lineTo(4.5, 12.5);
    path.lineTo(13, 12);
    path.closeSubpath();
    return path;
}

} // namespace

QRegion OtherPointers::setPointers(const QList<OtherPointer> &pointers)
{
    m_pointers = pointers;
    return place();
}

QRegion OtherPointers::setView(const Mapping &toWidget, const QRect &widget)
{
    m_toWidget = toWidget;
    m_widget = widget;
    return place();
}

QRegion OtherPointers::setShown(bool isShown)
{
    m_isShown = isShown;
    return place();
}

// Of those that are the same as before, in the same place of the order, nothing is repainted.
QRegion OtherPointers::place()
{
    const std::vector<Placed> before = std::move(m_placed);
    m_placed.clear();
    for (const OtherPointer &pointer : qAsConst(m_pointers)) {
        if (m_isShown && m_toWidget && isWithin(m_widget, m_toWidget(pointer.at)))
            m_placed.push_back(placed(pointer));
    }
    QRegion changed;
    for (std::size_t i = 0; i < std::max(before.size(), m_placed.size()); ++i) {
        if (i < before.size() && i < m_placed.size() && before[i] == m_placed[i])
            continue;
        if (i < before.size())
            changed |= area(before[i]);
        if (i < m_placed.size())
            changed |= area(m_placed[i]);
    }
    return changed;
}

OtherPointers::Placed OtherPointers::placed(const OtherPointer &pointer) const
{
    const QFontMetrics metrics(nameFont());
    const QPointF at = m_toWidget(pointer.at);
    Placed placed{{int(at.x()), int(at.y())}, {}, {}, pointer.color};
    placed.name = metrics.elidedText(shownName(pointer.name), Qt::ElideRight, kMostWidth);
    placed.plate = QRect(placed.tip + kPlate,
                         QSize(metrics.horizontalAdvance(placed.name) + 2 * kPadding, metrics.height() + kPadding / 2));
    if (placed.plate.right() > m_widget.right())
        placed.plate.moveRight(placed.tip.x() - kPadding);
    if (placed.plate.bottom() > m_widget.bottom())
        placed.plate.moveBottom(placed.tip.y() - kPadding);
    return placed;
}

bool OtherPointers::Placed::operator==(const Placed &other) const
{
    return tip == other.tip && plate == other.plate && name == other.name && color == other.color;
}

QRect OtherPointers::area(const Placed &placed)
{
    return kArrow.translated(placed.tip) | placed.plate.adjusted(-1, -1, 1, 1);
}

void OtherPointers::paint(QPainter &painter) const
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(nameFont());
    for (const Placed &placed : m_placed) {
        painter.setPen(QPen(Qt::white, 1.5));
        painter.setBrush(placed.color);
        painter.drawPath(arrow().translated(placed.tip));
        painter.setPen(Qt::NoPen);
        painter.drawRoundedRect(placed.plate, placed.plate.height() / 2.0, placed.plate.height() / 2.0);
        painter.setPen(Qt::white);
        painter.drawText(placed.plate, Qt::AlignCenter | Qt::TextSingleLine, placed.name);
    }
    painter.restore();
}

} // namespace Board

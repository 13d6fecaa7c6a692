#include "board/people/ConnectionLabel.h"

#include "board/look/Style.h"

#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>

namespace Board {

namespace {

constexpr int kSign = 12;
constexpr int kGap = 8;
constexpr int kLeastText = 48;
constexpr int kTextSize = 14;
constexpr int kHeight = 32;
constexpr QRgb kGood = 0xFF0A7F48;
constexpr QRgb kBad = 0xFFB45309;

QFont wordsFont(QFont font)
{
    font.setPixelSize(kTextSize);
    return font;
}

} // namespace

ConnectionLabel::ConnectionLabel(QWidget *parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    hide();
}

void ConnectionLabel::setWords(const QString &words, bool isGood)
{
    m_words = words;
    m_isGood = isGood;
    setVisible(!words.isEmpty());
    setAccessibleName(words);
    setToolTip(words.toHtmlEscaped()); // names may stand in them
    updateGeometry();
    update();
}

QSize ConnectionLabel::sizeHint() const
{
    return {kSign + kGap + QFontMetrics(wordsFont(font())).horizontalAdvance(m_words) + 1, kHeight};
}

QSize ConnectionLabel::minimumSizeHint() const
{
    return {kSign + kGap + kLeastText, kHeight};
}

void ConnectionLabel::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(m_isGood ? kGood : kBad));
    const QRectF sign(0, (height() - kSign) / 2.0, kSign, kSign);
    if (m_isGood)
        painter.drawEllipse(sign.adjusted(1, 1, -1, -1));
    else
        painter.drawPolygon(QPolygonF({sign.bottomLeft(), {sign.center().x(), sign.top()}, sign.bottomRight()}));
    painter.setFont(wordsFont(font()));
    painter.setPen(QColor(m_isGood ? kTextColor : kBad));
    const QRect room = rect().adjusted(kSign + kGap, 0, 0, 0);
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(m_words, Qt::ElideRight, room.width()));
}

} // namespace Board

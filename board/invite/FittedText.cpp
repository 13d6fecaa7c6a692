#include "board/invite/FittedText.h"

#include "board/look/Style.h"

#include <QtGui/QFont>
#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>

#include <algorithm>

namespace Board {

namespace {

constexpr int kLeastText = 14; // pixels
constexpr int kText = 26;
constexpr int kMostText = 200;

QFont fontOf(int pixels)
{
    QFont font(QStringLiteral("monospace"));
    font.setStyleHint(QFont::Monospace);
    font.setPixelSize(pixels);
    font.setBold(true);
    return font;
}

} // namespace

FittedText::FittedText(QWidget *parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

void FittedText::setLines(const QStringList &lines)
{
    m_lines = lines;
    setAccessibleName(lines.join(QLatin1Char(' ')));
    updateGeometry();
    update();
}

void FittedText::setAlignment(Qt::Alignment vertical)
{
    m_vertical = vertical;
    update();
}

QSize FittedText::sizeAt(int pixels) const
{
    const QFontMetrics metrics(fontOf(pixels));
    int width = 0;
    for (const QString &line : m_lines)
        width = std::max(width, metrics.horizontalAdvance(line));
    return {width, metrics.height() * m_lines.size()};
}

QSize FittedText::sizeHint() const
{
    return sizeAt(kText);
}

QSize FittedText::minimumSizeHint() const
{
    return sizeAt(kLeastText);
}

void FittedText::paintEvent(QPaintEvent * /*event*/)
{
    const auto isTooLarge = [this](int pixels) {
        const QSize size = sizeAt(pixels);
        return size.width() > width() || size.height() > height();
    };
    int pixels = kLeastText;
    while (pixels < kMostText && !isTooLarge(pixels + 1))
        ++pixels;
    QPainter painter(this);
    painter.setFont(fontOf(pixels));
    painter.setPen(QColor(kTextColor));
    painter.drawText(rect(), Qt::AlignLeft | m_vertical, m_lines.join(QLatin1Char('\n')));
}

} // namespace Board

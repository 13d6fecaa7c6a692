#include "ColorRow.h"

#include "CommandGroup.h"
#include "Style.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QPainter>
#include <QtWidgets/QAction>
#include <QtWidgets/QButtonGroup>
#include <QtWidgets/QColorDialog>
#include <QtWidgets/QHBoxLayout>

namespace Board {

namespace {

constexpr int kSwatchSide = 38;
constexpr qreal kDiscRadius = 12;
constexpr qreal kRingRadius = 16.5;

struct ClassroomColor
{
    QRgb color;
    const char *title;
};

// Strong enough to be read on white from the last row. The keys 1 to 8 pick them.
constexpr ClassroomColor kColors[] = {
    {0xFF1B1F24, QT_TRANSLATE_NOOP("Board::ColorRow", "Black")},
    {0xFF6B7685, QT_TRANSLATE_NOOP("Board::ColorRow", "Grey")},
    {0xFFD62839, QT_TRANSLATE_NOOP("Board::ColorRow", "Red")},
    {0xFFF28C13, QT_TRANSLATE_NOOP("Board::ColorRow", "Orange")},
    {0xFF2A9D4A, QT_TRANSLATE_NOOP("Board::ColorRow", "Green")},
    {0xFF1F6FD6, QT_TRANSLATE_NOOP("Board::ColorRow", "Blue")},
    {0xFF8338B8, QT_TRANSLATE_NOOP("Board::ColorRow", "Purple")},
    {0xFF8A5A33, QT_TRANSLATE_NOOP("Board::ColorRow", "Brown")},
};

QBrush allColors(const QPointF &center)
{
    QConicalGradient wheel(center, 90);
    for (int sixth = 0; sixth <= 6; ++sixth)
        wheel.setColorAt(sixth / 6.0, QColor::fromHsv((sixth * 60) % 360, 190, 235));
    return wheel;
}

} // namespace

ColorSwatch::ColorSwatch(const QColor &color, QAction &action, QWidget *parent)
    : QAbstractButton(parent)
    , m_color(color)
{
    setCheckable(true);
    setAccessibleName(action.text());
    setToolTip(action.toolTip());
    connect(&action, &QAction::changed, this, [this, &action] { setToolTip(action.toolTip()); });
    setFocusPolicy(Qt::TabFocus);
    // The button's own shortcut would click a moment later, after the stroke that is drawn at once.
    connect(&action, &QAction::triggered, this, &ColorSwatch::click);
}

void ColorSwatch::setColor(const QColor &color)
{
    m_color = color;
    update();
}

QSize ColorSwatch::sizeHint() const
{
    return {kSwatchSide, kSwatchSide};
}

void ColorSwatch::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF center = QRectF(rect()).center();
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_color.isValid() ? QBrush(m_color) : allColors(center));
    painter.drawEllipse(center, kDiscRadius, kDiscRadius);

    const bool shown = isChecked() || hasFocus() || underMouse();
    if (!shown)
        return;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(isChecked() ? QColor(kAccentColor) : QColor(0xC3, 0xCC, 0xD8), hasFocus() ? 3.5 : 2.5));
    painter.drawEllipse(center, kRingRadius, kRingRadius);
}

ColorRow::ColorRow(QWidget *parent)
    : QWidget(parent)
    , m_group(new QButtonGroup(this))
    , m_color(kColors[0].color)
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    const CommandGroup group(tr("Colours"), *window(), CommandGroup::Place::Buttons);
    int key = 1;
    const auto add = [&](const QColor &color, const QString &title) {
        const QString name = QStringLiteral("color-%1").arg(key);
        auto *swatch = new ColorSwatch(color, *group.add(qPrintable(name), title, QString::number(key++)), this);
        m_group->addButton(swatch);
        row->addWidget(swatch);
        return swatch;
    };
    for (const ClassroomColor &entry : kColors) {
        ColorSwatch *swatch = add(QColor(entry.color), tr(entry.title));
        connect(swatch, &ColorSwatch::clicked, this, [this, swatch] { pick(swatch->color()); });
    }
    m_group->buttons().constFirst()->setChecked(true);
    m_custom = add(QColor(), tr("Another colour…"));
    connect(m_custom, &ColorSwatch::clicked, this, &ColorRow::askForColor);
}

void ColorRow::setCustomColor(const QColor &color)
{
    m_custom->setColor(color);
    m_custom->setChecked(true);
    pick(color);
}

void ColorRow::pick(const QColor &color)
{
    m_color = color;
    emit picked(color);
}

void ColorRow::askForColor()
{
    const QColor chosen = QColorDialog::getColor(m_color, window(), tr("Another colour"));
    if (chosen.isValid()) {
        setCustomColor(chosen);
        return;
    }
    // The dialog was left without a choice: the ring goes back to the colour in use.
    for (QAbstractButton *button : m_group->buttons()) {
        if (static_cast<ColorSwatch *>(button)->color() == m_color)
            button->setChecked(true);
    }
}

} // namespace Board

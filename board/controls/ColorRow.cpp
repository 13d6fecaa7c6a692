#include "board/controls/ColorRow.h"

#include "board/commands/CommandGroup.h"
#include "board/focus/ArrowKeys.h"
#include "board/look/Style.h"
#include "board/person/Settings.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QPainter>
#include <QtWidgets/QAction>
#include <QtWidgets/QButtonGroup>
#include <QtWidgets/QColorDialog>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QHBoxLayout>

#include <algorithm>
#include <iterator>

namespace Board {

namespace {

constexpr int kSwatchSide = 38;
constexpr int kSmallSide = 27;
constexpr qreal kDisc = 24.0 / kSwatchSide; // diameters, of the button's side
constexpr qreal kRing = 33.0 / kSwatchSide;
constexpr int kRecentColumns = 3;
constexpr int kRecentColors = 6;
constexpr const char *kRecentSetting = "colors/recent";

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

ColorSwatch::ColorSwatch(QAction &action, Size size, QWidget *parent)
    : QAbstractButton(parent)
    , m_size(size)
{
    setCheckable(true);
    setAccessibleName(action.text());
    setToolTip(action.toolTip());
    connect(&action, &QAction::changed, this, [this, &action] { setToolTip(action.toolTip()); });
    setFocusPolicy(Qt::TabFocus);
    // The button's own shortcut would click a moment later, after the stroke that is drawn at once.
    connect(&action, &QAction::triggered, this, &ColorSwatch::click);
    setFixedSize(sizeHint());
}

void ColorSwatch::setColor(const QColor &color)
{
    m_color = color;
    update();
}

QSize ColorSwatch::sizeHint() const
{
    return m_size == Size::Large ? QSize(kSwatchSide, kSwatchSide) : QSize(kSmallSide, kSmallSide);
}

void ColorSwatch::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF center = QRectF(rect()).center();
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_color.isValid() ? QBrush(m_color) : allColors(center));
    painter.drawEllipse(center, width() * kDisc / 2, width() * kDisc / 2);

    const bool shown = isChecked() || hasFocus() || underMouse();
    if (!shown)
        return;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(isChecked() ? QColor(kAccentColor) : QColor(0xC3, 0xCC, 0xD8), hasFocus() ? 3.5 : 2.5));
    painter.drawEllipse(center, width() * kRing / 2, width() * kRing / 2);
}

ColorRow::ColorRow(QWidget *parent)
    : QWidget(parent)
    , m_group(new QButtonGroup(this))
    , m_keys(new ArrowKeys(this))
    , m_recentPart(new QWidget(this))
    , m_color(kColors[0].color)
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    int key = 1;
    const auto addLarge = [&](const QColor &color, const QString &title) {
        ColorSwatch *swatch =
            add(QStringLiteral("color-%1").arg(key), title, QString::number(key), ColorSwatch::Size::Large);
        swatch->setColor(color);
        row->addWidget(swatch);
        ++key;
        return swatch;
    };
    for (const ClassroomColor &entry : kColors) {
        ColorSwatch *swatch = addLarge(QColor(entry.color), tr(entry.title));
        connect(swatch, &ColorSwatch::clicked, this, [this, swatch] { pick(swatch->color()); });
    }
    m_group->buttons().constFirst()->setChecked(true);
    m_custom = addLarge(QColor(), tr("Another colour…"));
    connect(m_custom, &ColorSwatch::clicked, this, &ColorRow::askForColor);
    auto *grid = new QGridLayout(m_recentPart);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    addRecent(*grid);
    row->addWidget(m_recentPart);
}

ColorSwatch *ColorRow::add(const QString &name, const QString &title, const QString &keys, ColorSwatch::Size size)
{
    const CommandGroup group(tr("Colours"), *window(), CommandGroup::Place::Buttons);
    auto *swatch = new ColorSwatch(*group.add(qPrintable(name), title, keys), size, this);
    m_group->addButton(swatch);
    m_keys->add(*swatch);
    return swatch;
}

void ColorRow::addRecent(QGridLayout &grid)
{
    for (int i = 0; i < kRecentColors; ++i) {
        const int number = i + 1;
        ColorSwatch *swatch = add(QStringLiteral("recent-color-%1").arg(number), tr("Recent colour %1").arg(number),
                                  QStringLiteral("Alt+%1").arg(number), ColorSwatch::Size::Small);
        connect(swatch, &ColorSwatch::clicked, this, [this, swatch] {
            if (swatch->color().isValid())
                pick(swatch->color());
            else
                showPicked();
        });
        grid.addWidget(swatch, i / kRecentColumns, i % kRecentColumns);
        m_recent.append(swatch);
    }
    showRecent(Settings().value(QLatin1String(kRecentSetting)).toStringList());
}

void ColorRow::showRecent(const QStringList &names)
{
    for (int i = 0; i < m_recent.size(); ++i) {
        const QColor color(names.value(i));
        m_recent[i]->setColor(color);
        m_recent[i]->setAccessibleDescription(color.name());
        m_recent[i]->setVisible(color.isValid());
    }
    m_keys->refresh();
}

void ColorRow::setCustomColor(const QColor &color)
{
    const QColor opaque(color.rgb());
    const bool isOfClass = std::any_of(std::begin(kColors), std::end(kColors),
                                       [&](const ClassroomColor &entry) { return opaque.rgb() == entry.color; });
    if (!isOfClass) {
        QStringList names{opaque.name()};
        for (const ColorSwatch *swatch : qAsConst(m_recent)) {
            if (swatch->color().isValid() && swatch->color() != opaque && names.size() < kRecentColors)
                names.append(swatch->color().name());
        }
        Settings().setValue(QLatin1String(kRecentSetting), names);
        showRecent(names);
    }
    pick(opaque);
}

void ColorRow::show(const QColor &color)
{
    const QColor opaque(color.rgb());
    if (opaque == m_color)
        return;
    m_color = opaque;
    showPicked();
}

void ColorRow::pick(const QColor &color)
{
    m_color = color;
    showPicked();
    emit picked(color);
}

// The ring is around the colour in use.
void ColorRow::showPicked()
{
    for (QAbstractButton *button : m_group->buttons()) {
        if (static_cast<ColorSwatch *>(button)->color() == m_color) {
            button->setChecked(true);
            return;
        }
    }
    m_custom->setChecked(true);
}

void ColorRow::askForColor()
{
    const QColor chosen = QColorDialog::getColor(m_color, window(), tr("Another colour"));
    if (chosen.isValid())
        setCustomColor(chosen);
    else
        showPicked();
}

} // namespace Board

#include "board/controls/WidthControl.h"

#include "board/commands/CommandGroup.h"

#include <QtCore/QSignalBlocker>
#include <QtGui/QPainter>
#include <QtWidgets/QAction>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QSlider>

namespace Board {

namespace {

constexpr int kMaxInkWidth = 40;
constexpr int kFirstInkWidth = 4;
constexpr int kPreviewSide = kMaxInkWidth + 4;
constexpr int kSliderHeight = 32;
constexpr int kMinSliderWidth = 60;
constexpr int kMaxSliderWidth = 150;

} // namespace

WidthPreview::WidthPreview(QWidget *parent)
    : QWidget(parent)
{
    setFixedSize(sizeHint());
}

void WidthPreview::setInk(const QColor &color, int width)
{
    m_color = color;
    m_width = width;
    update();
}

QSize WidthPreview::sizeHint() const
{
    return {kPreviewSide, kPreviewSide};
}

void WidthPreview::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_color);
    painter.drawEllipse(QRectF(rect()).center(), m_width / 2.0, m_width / 2.0);
}

WidthControl::WidthControl(QWidget *parent)
    : QWidget(parent)
    , m_preview(new WidthPreview(this))
    , m_slider(new QSlider(Qt::Horizontal, this))
    , m_text(new QLabel(this))
{
    m_slider->setRange(1, kMaxInkWidth);
    m_slider->setFixedHeight(kSliderHeight);
    m_slider->setMinimumWidth(kMinSliderWidth);
    m_slider->setMaximumWidth(kMaxSliderWidth);
    m_slider->setAccessibleName(tr("Pen width"));
    m_text->setFixedWidth(m_text->fontMetrics().horizontalAdvance(tr("%1 px").arg(kMaxInkWidth)) + 4);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(8);
    row->addWidget(m_preview);
    row->addWidget(m_slider);
    row->addWidget(m_text);

    connect(m_slider, &QSlider::valueChanged, this, [this](int width) {
        showWidth(width);
        emit picked(width);
    });
    m_slider->setValue(kFirstInkWidth);
    addCommands();
}

void WidthControl::addCommands()
{
    const CommandGroup group(penGroup(), *window(), CommandGroup::Place::Buttons);
    QAction *thinner = group.add("thinner", tr("Thinner"), QStringLiteral("["));
    QAction *thicker = group.add("thicker", tr("Thicker"), QStringLiteral("]"));
    connect(thinner, &QAction::triggered, this, [this] { setInkWidth(inkWidth() - 1); });
    connect(thicker, &QAction::triggered, this, [this] { setInkWidth(inkWidth() + 1); });
    const auto showTip = [this, thinner, thicker] {
        m_slider->setToolTip(tr("Pen width (%1 thinner, %2 thicker)").arg(keysText(*thinner), keysText(*thicker)));
    };
    connect(thinner, &QAction::changed, this, showTip);
    connect(thicker, &QAction::changed, this, showTip);
    showTip();
}

int WidthControl::inkWidth() const
{
    return m_slider->value();
}

void WidthControl::setInkWidth(int width)
{
    m_slider->setValue(width);
}

QWidget *WidthControl::number() const
{
    return m_text;
}

QWidget *WidthControl::preview() const
{
    return m_preview;
}

void WidthControl::setColor(const QColor &color)
{
    show(color, inkWidth());
}

void WidthControl::show(const QColor &color, int width)
{
    if (color == m_color && width == inkWidth())
        return;
    m_color = color;
    const QSignalBlocker blocker(m_slider);
    m_slider->setValue(width);
    showWidth(inkWidth());
}

void WidthControl::showWidth(int width)
{
    m_preview->setInk(m_color, width);
    m_text->setText(tr("%1 px").arg(width));
}

} // namespace Board

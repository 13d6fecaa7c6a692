#include "board/controls/OptionControl.h"

#include "board/commands/CommandGroup.h"
#include "board/tools/Tools.h"

#include <QtWidgets/QAction>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QSlider>

namespace Board {

namespace {

constexpr int kSteps = 20; // of the keys, from one end of the slider to the other
constexpr int kSliderHeight = 32;
constexpr int kSliderWidth = 90;

} // namespace

OptionControl::OptionControl(QWidget *parent)
    : QWidget(parent)
    , m_title(new QLabel(this))
    , m_slider(new QSlider(Qt::Horizontal, this))
    , m_text(new QLabel(this))
{
    m_slider->setObjectName(QStringLiteral("option"));
    m_slider->setAccessibleName(tr("Option of the tool"));
    m_slider->setFixedSize(kSliderWidth, kSliderHeight);
    m_text->setFixedWidth(m_text->fontMetrics().horizontalAdvance(QStringLiteral("000 %")) + 4);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(8);
    row->addWidget(m_title);
    row->addWidget(m_slider);
    row->addWidget(m_text);
    hide();

    connect(m_slider, &QSlider::valueChanged, this, [this](int value) {
        m_values[m_tool] = value;
        showValue(value);
        emit picked(value);
    });
    addCommands();
}

void OptionControl::addCommands()
{
    const CommandGroup group(penGroup(), *window(), CommandGroup::Place::Buttons);
    m_less = group.add("less", tr("Less of the tool's option"), QStringLiteral(","));
    m_more = group.add("more", tr("More of the tool's option"), QStringLiteral("."));
    connect(m_less, &QAction::triggered, this, [this] { step(-1); });
    connect(m_more, &QAction::triggered, this, [this] { step(1); });
    connect(m_less, &QAction::changed, this, &OptionControl::showTip);
    connect(m_more, &QAction::changed, this, &OptionControl::showTip);
}

void OptionControl::showTip()
{
    m_slider->setToolTip(tr("%1 (%2 less, %3 more)").arg(m_title->text(), keysText(*m_less), keysText(*m_more)));
}

void OptionControl::setTool(const Tool &tool)
{
    m_tool = &tool;
    setVisible(tool.option.has_value());
    if (!tool.option)
        return;
    const int value = m_values.value(&tool, tool.kind->option->value);
    const QString title = optionTitle(*tool.option);
    m_title->setText(title);
    m_slider->setAccessibleName(title);
    showTip();
    {
        const QSignalBlocker blocker(m_slider); // the new range may move the old value
        m_slider->setRange(tool.kind->option->min, tool.kind->option->max);
        m_slider->setValue(value);
    }
    showValue(value);
}

std::optional<int> OptionControl::value() const
{
    return m_tool && m_tool->option ? std::make_optional(m_slider->value()) : std::nullopt;
}

void OptionControl::step(int steps)
{
    if (m_tool && m_tool->option)
        m_slider->setValue(m_slider->value() + steps * (m_slider->maximum() - m_slider->minimum()) / kSteps);
}

void OptionControl::showValue(int value)
{
    m_text->setText(QStringLiteral("%1 %2").arg(value).arg(QString::fromUtf8(m_tool->option->unit)));
}

} // namespace Board

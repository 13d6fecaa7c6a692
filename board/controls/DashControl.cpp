#include "board/controls/DashControl.h"

#include "board/commands/CommandGroup.h"
#include "board/look/Style.h"

#include <QtGui/QPainter>
#include <QtWidgets/QAction>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHBoxLayout>

namespace Board {

namespace {

constexpr QSize kSample{64, 20};
constexpr double kSampleWidth = 2.5;
constexpr int kInset = 3;

struct Dash
{
    Qt::PenStyle style;
    const char *title;
};

constexpr Dash kDashes[] = {
    {Qt::SolidLine, QT_TRANSLATE_NOOP("Board::DashControl", "Solid line")},
    {Qt::DashLine, QT_TRANSLATE_NOOP("Board::DashControl", "Dashed line")},
    {Qt::DotLine, QT_TRANSLATE_NOOP("Board::DashControl", "Dotted line")},
    {Qt::DashDotLine, QT_TRANSLATE_NOOP("Board::DashControl", "Dashes and dots")},
    {Qt::DashDotDotLine, QT_TRANSLATE_NOOP("Board::DashControl", "Dashes and two dots")},
};

QPixmap sample(Qt::PenStyle style)
{
    QPixmap pixmap(kSample);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(kTextColor), kSampleWidth, style, Qt::FlatCap));
    const int y = kSample.height() / 2;
    painter.drawLine(kInset, y, kSample.width() - kInset, y);
    return pixmap;
}

} // namespace

DashControl::DashControl(QWidget *parent)
    : QWidget(parent)
    , m_list(new QComboBox(this))
{
    m_list->setObjectName(QStringLiteral("dash"));
    m_list->setAccessibleName(tr("Line style"));
    m_list->setIconSize(kSample);
    m_list->setFocusPolicy(Qt::TabFocus);
    for (const Dash &dash : kDashes) {
        m_list->addItem(sample(dash.style), QString(), int(dash.style));
        const int row = m_list->count() - 1;
        m_list->setItemData(row, tr(dash.title), Qt::AccessibleTextRole);
        m_list->setItemData(row, tr(dash.title), Qt::ToolTipRole);
    }
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_list);
    hide();
    connect(m_list, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this] { emit picked(dash()); });
    addCommand();
}

void DashControl::addCommand()
{
    const CommandGroup group(penGroup(), *window(), CommandGroup::Place::Buttons);
    QAction *next = group.add("dash", tr("Another line style"), QStringLiteral("-"));
    connect(next, &QAction::triggered, this,
            [this] { m_list->setCurrentIndex((m_list->currentIndex() + 1) % m_list->count()); });
    const auto showTip = [this, next] { m_list->setToolTip(tr("Line style (%1 another)").arg(keysText(*next))); };
    connect(next, &QAction::changed, this, showTip);
    showTip();
}

Qt::PenStyle DashControl::dash() const
{
    return Qt::PenStyle(m_list->currentData().toInt());
}

} // namespace Board

#include "CInkRoundRect.h"

#include "core/geometry_p.h"
#include "core/painting_p.h"
#include "shapes/shape_p.h"

using namespace InkInternal;

namespace {

constexpr double kRoundness = 25; // percent of half the width and of half the height

} // namespace

CInkRoundRect::CInkRoundRect() = default;

// Unlike its base it starts from the default constructor, so its width is 4.
CInkRoundRect::CInkRoundRect(Qt::PenStyle style)
{
    m_penStyle = style;
}

CInkRoundRect::~CInkRoundRect() = default;

void CInkRoundRect::Draw(QPainter &painter, QRect &rect)
{
    if (!isLargeEnough(*this))
        return;

    // [ink-clip-outlives-draw] Set before the state is saved: the host finds it afterwards.
    painter.setClipRect(rect | GetUpdateRect(), Qt::ReplaceClip);

    paintOverHandles(*this, painter, solidPen(*this, Qt::RoundCap),
                     [&] { DrawRoundRect(painter, cornerBox(m_graphData.at(0), m_graphData.at(1))); });
}

void CInkRoundRect::DrawRoundRect(QPainter &painter, QRect box)
{
    const PainterStateScope scope(painter);
    // [ink-round-rect-unfilled] Whatever brush the painter carries.
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(real(box), kRoundness, kRoundness, Qt::RelativeSize);
}

#include "CInk1ArrowLine.h"

#include "core/painting_p.h"
#include "shapes/line_p.h"

using namespace InkInternal;

CInk1ArrowLine::CInk1ArrowLine() = default;
CInk1ArrowLine::~CInk1ArrowLine() = default;

void CInk1ArrowLine::Draw(QPainter &painter, QRect &rect)
{
    if (m_nPointCount <= 0)
        return;

    // [ink-arrow-unbalanced] Two saved states are left on the painter, with the clip, the hint and the pen in force.
    painter.save();
    painter.setClipRect(clipUnlessFormed(*this, rect), Qt::ReplaceClip);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(linePen(*this));
    // [ink-arrow-headless] No arrow head is painted.
    paintLine(*this, painter);
}

#pragma once

#include "CInkRectangle.h"

// One cubic Bezier segment, drawn in three drags: start and end, first control point, second control point.
//
// The four points are start, first control, second control, end; m_nPointCount is 1 after the press and one more after
// each drag. A release that leaves start and end within 1.0 pixels of each other commits the
// curve, and what there is of it is painted; see ink-curve-abandoned-painted and ink-curve-moves-before-press.
class INK_EXPORT CInkBeZier : public CInkRectangle
{
public:
    // The three styles are kept for the host; the curve is always solid with square caps. Width 4.
    CInkBeZier(Qt::PenCapStyle begin, Qt::PenCapStyle end, Qt::PenStyle style);
    ~CInkBeZier() override;

    using CInkGraph::Draw;

    // See ink-curve-clip.
    void Draw(QPainter &painter, QRect &rect) override;
    QRect GetUpdateRect() override;
    QRect FormGraphData(int code, QPoint pt, QRect &update) override;

    Qt::PenCapStyle m_capStyleBegin{Qt::SquareCap}; // stored only
    Qt::PenCapStyle m_capStyleEnd{Qt::SquareCap};   // stored only
};

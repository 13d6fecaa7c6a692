#pragma once

#include "CInkRectangle.h"

// Rhombus that touches the middle of each side of the dragged box, drawn in the constructor's pen style.
//
// Vertices: left, top, right, bottom. A drag of at most 2.0 pixels is committed at the release,
// and painted all the same; see ink-vertices-abandoned-painted.
class INK_EXPORT CInkDiamond : public CInkRectangle
{
public:
    // Width 4, whichever constructor made it. Solid.
    CInkDiamond();

    // The outline is drawn in `style`. The point list is sized by the first press.
    explicit CInkDiamond(Qt::PenStyle style);
    ~CInkDiamond() override;

    using CInkGraph::Draw;
    void Draw(QPainter &painter, QRect &rect) override;
    QRect FormGraphData(int code, QPoint pt, QRect &update) override;

    // Computes the vertices from the two drag points, which follow them in the list. Does nothing without them.
    void NormalizeGraphData();
};

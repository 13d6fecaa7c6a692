#pragma once

#include "CInkRectangle.h"

// Isosceles triangle with its apex at the top centre of the dragged box, whichever way it was dragged. Always solid.
//
// Vertices: apex, bottom left, bottom right. A drag of at most 2.0 pixels is committed at the release,
// and painted all the same; see ink-vertices-abandoned-painted.
class INK_EXPORT CInkITriangle : public CInkRectangle
{
public:
    // Width 4, whichever constructor made it. Solid.
    CInkITriangle();

    // The style is stored only. The point list is sized by the first press.
    explicit CInkITriangle(Qt::PenStyle style);
    ~CInkITriangle() override;

    using CInkGraph::Draw;
    void Draw(QPainter &painter, QRect &rect) override;
    QRect FormGraphData(int code, QPoint pt, QRect &update) override;

    // Computes the vertices from the two drag points, which follow them in the list. Does nothing without them.
    void NormalizeGraphData();
};

#pragma once

#include "CInkRectangle.h"

// Right-angled triangle whose legs follow the drag. Always solid.
//
// Vertices: press, pointer, and the right angle in the press's column and the pointer's row. A drag of at most 2.0
// pixels is committed at the release,
// and painted all the same; see ink-vertices-abandoned-painted.
class INK_EXPORT CInkLTriangle : public CInkRectangle
{
public:
    // Width 4, whichever constructor made it. Solid.
    CInkLTriangle();

    // The style is stored only. The point list is sized by the first press.
    explicit CInkLTriangle(Qt::PenStyle style);
    ~CInkLTriangle() override;

    using CInkGraph::Draw;
    void Draw(QPainter &painter, QRect &rect) override;
    QRect FormGraphData(int code, QPoint pt, QRect &update) override;

    // Computes the vertices from the two drag points, which follow them in the list. Does nothing without them.
    void NormalizeGraphData();
};

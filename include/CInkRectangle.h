#pragma once

#include "CInkGraph.h"

// Box through two dragged corners, and the base of every tool whose outline follows from such a box.
//
// Point 0 is the corner where the drag began, point 1 the corner under the pointer; m_nPointCount tells how
// many of them the stroke has placed. A box whose corners are at most 6.0 pixels apart at the release is
// committed and paints nothing; a larger one enters editing.
class INK_EXPORT CInkRectangle : public CInkGraph
{
public:
    // Width 4.
    CInkRectangle();

    // Width 1, and an empty point list until the first press.
    explicit CInkRectangle(Qt::PenStyle style);
    ~CInkRectangle() override;

    using CInkGraph::Draw;
    void Draw(QPainter &painter, QRect &rect) override;
    void SetWidth(int width) override;
    int GetPointCount() override;
    bool FinishGraph() override;
    QRect GetUpdateRect() override;
    void AddPoint(int code, QPoint pt, QRect &update) override;

    // Builds the outline from the events of the drawing phase. Returns `update`.
    virtual QRect FormGraphData(int code, QPoint pt, QRect &update);

    Qt::PenStyle m_penStyle{Qt::SolidLine}; // for derived tools; the rectangle itself is always solid
};

#pragma once

#include "CInkGraph.h"

// Ellipse inscribed in a dragged box. Width 1.
//
// Follows the two-corner protocol of CInkRectangle without deriving from it: its rotation settles when an edit ends,
// the rectangle's when the next one begins.
class INK_EXPORT CInkEllipse : public CInkGraph
{
public:
    CInkEllipse();

    // The point list stays empty until the first press.
    explicit CInkEllipse(Qt::PenStyle style);
    ~CInkEllipse() override;

    using CInkGraph::Draw;
    void Draw(QPainter &painter, QRect &rect) override;
    void SetWidth(int width) override;
    int GetPointCount() override;
    bool FinishGraph() override;
    QRect GetUpdateRect() override;
    void AddPoint(int code, QPoint pt, QRect &update) override;

    // Builds the box from the events of the drawing phase. Returns `update`.
    QRect FormGraphData(int code, QPoint pt, QRect &update);

    Qt::PenStyle m_penStyle{Qt::SolidLine}; // stored only: the outline is always solid
};

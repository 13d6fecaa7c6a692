#pragma once

#include "CInkPenGraph.h"

// Plain freehand stroke: straight segments with round caps and joins. A stroke of one point paints nothing; see
// ink-pen-point-invisible.
class INK_EXPORT CInkPencil : public CInkPenGraph
{
public:
    // Width 1, black.
    CInkPencil();
    ~CInkPencil() override;

    using CInkGraph::Draw;
    void Draw(QPainter &painter, QRect &rect) override;
    QRect GetDisIconRect() override;

    int m_nPenParam{32};            // stored only
    int m_nCapStyle{Qt::RoundCap};  // a Qt::PenCapStyle; used by the eraser
    int m_nPenStyle{Qt::SolidLine}; // a Qt::PenStyle; stored only
};

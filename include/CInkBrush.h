#pragma once

#include "CInkPenGraph.h"

// Smooth round brush: the pencil's path with the finest antialiasing. A stroke of one point paints nothing; see
// ink-pen-point-invisible and ink-brush-clip-united.
class INK_EXPORT CInkBrush : public CInkPenGraph
{
public:
    // Width 1, black.
    CInkBrush();
    ~CInkBrush() override;

    using CInkGraph::Draw;
    void Draw(QPainter &painter, QRect &rect) override;
    QRect GetDisIconRect() override;

    int m_nPenParam{32};            // stored only
    int m_nCapStyle{Qt::RoundCap};  // stored only
    int m_nPenStyle{Qt::SolidLine}; // stored only
};

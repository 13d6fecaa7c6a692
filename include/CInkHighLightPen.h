#pragma once

#include "CInkPenGraph.h"

// Translucent marker: the colour's own alpha is replaced while painting. A stroke of one point paints nothing; see
// ink-pen-point-invisible and ink-brush-clip-united.
class INK_EXPORT CInkHighLightPen : public CInkPenGraph
{
public:
    // Alpha 100.
    CInkHighLightPen();

    // `alpha` from 0 to 255; QColor limits other values when the stroke is painted.
    explicit CInkHighLightPen(int alpha);
    ~CInkHighLightPen() override;

    using CInkGraph::Draw;
    void Draw(QPainter &painter, QRect &rect) override;
    QRect GetDisIconRect() override;

    int m_nAlpha{100}; // 0 to 255, of the stroke
};

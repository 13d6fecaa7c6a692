#pragma once

#include "CInkPenGraph.h"

// Calligraphic nib: the stroke is turned by the nib's angle about the top left of its bounding box and squashed, so
// that it is about two pixels thick across the nib and the pen width along it. A width of 0 paints nothing. See
// ink-flat-brush-clip-restored.
class INK_EXPORT CInkFlatBrush : public CInkPenGraph
{
public:
    // Angle 45, width 10.
    CInkFlatBrush();

    // `angle` in degrees, clockwise. Width 1, and ten points at the origin; see ink-flat-brush-ten-points.
    explicit CInkFlatBrush(float angle);
    ~CInkFlatBrush() override;

    using CInkGraph::Draw;
    void Draw(QPainter &painter, QRect &rect) override;
    QRect GetDisIconRect() override;

    float m_fNibAngle{45.0f}; // degrees, clockwise
};

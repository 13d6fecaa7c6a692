#pragma once

#include "CInkSignGraph.h"

// Block arrow pointing up. While the pointer has not left the press it is previewed at 80 x 30; see
// ink-up-arrow-unscaled.
class INK_EXPORT CInkUpArrow : public CInkSignGraph
{
public:
    // Solid, width 1.
    CInkUpArrow();

    // Never forms a shape; see ink-stencil-pen-style.
    explicit CInkUpArrow(Qt::PenStyle style);
    ~CInkUpArrow() override;
    void NormalizeGraphData(QVector<QPointF> &points) override;

    // Writes the template into m_graphData, in its own coordinates.
    void InitGraphData();
};

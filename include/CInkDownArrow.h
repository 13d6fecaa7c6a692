#pragma once

#include "CInkSignGraph.h"

// Block arrow pointing down.
class INK_EXPORT CInkDownArrow : public CInkSignGraph
{
public:
    // Solid, width 1.
    CInkDownArrow();

    // Never forms a shape; see ink-stencil-pen-style.
    explicit CInkDownArrow(Qt::PenStyle style);
    ~CInkDownArrow() override;
    void NormalizeGraphData(QVector<QPointF> &points) override;

    // Writes the template into m_graphData, in its own coordinates.
    void InitGraphData();
};

#pragma once

#include "CInkSignGraph.h"

// Hexagon, flat at the top and the bottom. Its top lies a little inside the dragged box, and the bottom sticks out as
// much; see ink-stencil-keeps-inset.
class INK_EXPORT CInk6Side : public CInkSignGraph
{
public:
    // Solid, width 1.
    CInk6Side();

    // Never forms a shape; see ink-stencil-pen-style.
    explicit CInk6Side(Qt::PenStyle style);
    ~CInk6Side() override;
    void NormalizeGraphData(QVector<QPointF> &points) override;

    // Writes the template into m_graphData, in its own coordinates.
    void InitGraphData();
};

#pragma once

#include "CInkSignGraph.h"

// Regular pentagon, apex up. Its leftmost point lies a little inside the dragged box, and the far side sticks out as
// much; see ink-stencil-keeps-inset.
class INK_EXPORT CInk5Side : public CInkSignGraph
{
public:
    // Solid, width 1.
    CInk5Side();

    // Never forms a shape; see ink-stencil-pen-style.
    explicit CInk5Side(Qt::PenStyle style);
    ~CInk5Side() override;
    void NormalizeGraphData(QVector<QPointF> &points) override;

    // Writes the template into m_graphData, in its own coordinates.
    void InitGraphData();
};

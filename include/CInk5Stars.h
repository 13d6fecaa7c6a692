#pragma once

#include "CInkSignGraph.h"

// Star with five tips, apex up.
class INK_EXPORT CInk5Stars : public CInkSignGraph
{
public:
    // Solid, width 1.
    CInk5Stars();

    // Never forms a shape; see ink-stencil-pen-style.
    explicit CInk5Stars(Qt::PenStyle style);
    ~CInk5Stars() override;
    void NormalizeGraphData(QVector<QPointF> &points) override;

    // Writes the template into m_graphData, in its own coordinates.
    void InitGraphData();
};

#pragma once

#include "CInkSignGraph.h"

// Star with four tips.
class INK_EXPORT CInk4Stars : public CInkSignGraph
{
public:
    // Solid, width 1.
    CInk4Stars();

    // Never forms a shape; see ink-stencil-pen-style.
    explicit CInk4Stars(Qt::PenStyle style);
    ~CInk4Stars() override;
    void NormalizeGraphData(QVector<QPointF> &points) override;

    // Writes the template into m_graphData, in its own coordinates.
    void InitGraphData();
};

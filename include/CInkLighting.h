#pragma once

#include "CInkSignGraph.h"

// Lightning bolt.
class INK_EXPORT CInkLighting : public CInkSignGraph
{
public:
    // Solid, width 1.
    CInkLighting();

    // Never forms a shape; see ink-stencil-pen-style.
    explicit CInkLighting(Qt::PenStyle style);
    ~CInkLighting() override;
    void NormalizeGraphData(QVector<QPointF> &points) override;

    // Writes the template into m_graphData, in its own coordinates.
    void InitGraphData();
};

#pragma once

#include "CInkSignGraph.h"

// Star with six tips.
class INK_EXPORT CInk6Stars : public CInkSignGraph
{
public:
    // Solid, width 1.
    CInk6Stars();

    // Never forms a shape; see ink-stencil-pen-style.
    explicit CInk6Stars(Qt::PenStyle style);
    ~CInk6Stars() override;
    void NormalizeGraphData(QVector<QPointF> &points) override;

    // Writes the template into m_graphData, in its own coordinates.
    void InitGraphData();
};

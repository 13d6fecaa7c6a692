#pragma once

#include "CInkSignGraph.h"

// Explosion burst with 12 spikes. See ink-burst-own-count.
class INK_EXPORT CInkBoom1 : public CInkSignGraph
{
public:
    // Solid, width 1.
    CInkBoom1();

    // Never forms a shape; see ink-stencil-pen-style.
    explicit CInkBoom1(Qt::PenStyle style);
    ~CInkBoom1() override;
    void NormalizeGraphData(QVector<QPointF> &points) override;

    // Writes the template into m_graphData, in its own coordinates.
    void InitGraphData();
};

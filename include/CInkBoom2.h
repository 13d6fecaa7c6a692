#pragma once

#include "CInkSignGraph.h"

// Explosion burst with 14 spikes. See ink-burst-own-count.
class INK_EXPORT CInkBoom2 : public CInkSignGraph
{
public:
    // Solid, width 1.
    CInkBoom2();

    // Never forms a shape; see ink-stencil-pen-style.
    explicit CInkBoom2(Qt::PenStyle style);
    ~CInkBoom2() override;
    void NormalizeGraphData(QVector<QPointF> &points) override;

    // Writes the template into m_graphData, in its own coordinates.
    void InitGraphData();
};

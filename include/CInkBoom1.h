#pragma once

#include "CInkSignGraph.h"

// Explosion burst with 12 spikes.
class INK_EXPORT CInkBoom1 : public CInkSignGraph
{
public:
    CInkBoom1();

    // Never forms a shape; see ink-stencil-pen-style.
    explicit CInkBoom1(Qt::PenStyle style);
    ~CInkBoom1() override;
    void NormalizeGraphData(QVector<QPointF> &points) override;

    // Writes the template into the list.
    void InitGraphData();
};

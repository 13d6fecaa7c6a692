#pragma once

#include "CInkSignGraph.h"

// Block arrow pointing down.
class INK_EXPORT CInkDownArrow : public CInkSignGraph
{
public:
    CInkDownArrow();

    // Never forms a shape; see ink-stencil-pen-style.
    explicit CInkDownArrow(Qt::PenStyle style);
    ~CInkDownArrow() override;
    void NormalizeGraphData(QVector<QPointF> &points) override;

    // Writes the template into the list.
    void InitGraphData();
};

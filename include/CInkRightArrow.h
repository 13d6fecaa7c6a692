#pragma once

#include "CInkSignGraph.h"

// Block arrow pointing right.
class INK_EXPORT CInkRightArrow : public CInkSignGraph
{
public:
    CInkRightArrow();

    // Never forms a shape; see ink-stencil-pen-style.
    explicit CInkRightArrow(Qt::PenStyle style);
    ~CInkRightArrow() override;
    void NormalizeGraphData(QVector<QPointF> &points) override;

    // Writes the template into the list.
    void InitGraphData();
};

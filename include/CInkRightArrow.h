#pragma once

#include "CInkSignGraph.h"

// Block arrow pointing right.
class INK_EXPORT CInkRightArrow : public CInkSignGraph
{
public:
    // Solid, width 1.
    CInkRightArrow();

    // Never forms a shape; see ink-stencil-pen-style.
    explicit CInkRightArrow(Qt::PenStyle style);
    ~CInkRightArrow() override;
    void NormalizeGraphData(QVector<QPointF> &points) override;

    // Writes the template into m_graphData, in its own coordinates.
    void InitGraphData();
};

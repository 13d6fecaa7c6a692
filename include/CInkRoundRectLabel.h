#pragma once

#include "CInkSignGraph.h"

// Speech label: a rounded rectangle with a tail at its bottom left. Always solid.
class INK_EXPORT CInkRoundRectLabel : public CInkSignGraph
{
public:
    CInkRoundRectLabel();

    // Never forms a shape; see ink-stencil-pen-style.
    explicit CInkRoundRectLabel(Qt::PenStyle style);
    ~CInkRoundRectLabel() override;

    using CInkGraph::Draw;
    void Draw(QPainter &painter, QRect &rect) override;
    void NormalizeGraphData(QVector<QPointF> &points) override;

    // Writes the template into the list.
    void InitGraphData();
};

#pragma once

#include "CInkSignGraph.h"

// Speech label: an ellipse with a tail at its bottom left.
class INK_EXPORT CInkEllipseLabel : public CInkSignGraph
{
public:
    // Solid, width 1.
    CInkEllipseLabel();

    // Never forms a shape; see ink-stencil-pen-style.
    explicit CInkEllipseLabel(Qt::PenStyle style);
    ~CInkEllipseLabel() override;

    using CInkGraph::Draw;
    void Draw(QPainter &painter, QRect &rect) override;
    void NormalizeGraphData(QVector<QPointF> &points) override;

    // Writes the template into m_graphData, in its own coordinates.
    void InitGraphData();
};

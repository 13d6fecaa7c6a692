#pragma once

#include "CInkSignGraph.h"

// Speech label: a rounded rectangle with a tail at its bottom left. Always solid; see
// ink-label-always-solid and ink-label-loose-pieces.
class INK_EXPORT CInkRoundRectLabel : public CInkSignGraph
{
public:
    // Solid, width 1.
    CInkRoundRectLabel();

    // Never forms a shape; see ink-stencil-pen-style.
    explicit CInkRoundRectLabel(Qt::PenStyle style);
    ~CInkRoundRectLabel() override;

    using CInkGraph::Draw;
    void Draw(QPainter &painter, QRect &rect) override;
    void NormalizeGraphData(QVector<QPointF> &points) override;

    // Writes the template into m_graphData, in its own coordinates.
    void InitGraphData();
};

#pragma once

#include "CInkSignGraph.h"

// Speech label: a cloud with three thought bubbles trailing down to the right.
class INK_EXPORT CInkCloudLabel : public CInkSignGraph
{
public:
    // Solid, width 1.
    CInkCloudLabel();

    // Never forms a shape; see ink-stencil-pen-style.
    explicit CInkCloudLabel(Qt::PenStyle style);
    ~CInkCloudLabel() override;

    using CInkGraph::Draw;
    void Draw(QPainter &painter, QRect &rect) override;
    void NormalizeGraphData(QVector<QPointF> &points) override;

    // Writes the template into m_graphData, in its own coordinates.
    void InitGraphData();
};

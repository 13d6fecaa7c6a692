#pragma once

#include "CInkSignGraph.h"

// Heart that paints nothing but its handles; see ink-heart-invisible. Forming and editing work as for every stencil.
class INK_EXPORT CInkLove : public CInkSignGraph
{
public:
    // Solid, width 1.
    CInkLove();

    // Never forms a shape; see ink-stencil-pen-style.
    explicit CInkLove(Qt::PenStyle style);
    ~CInkLove() override;

    using CInkGraph::Draw;
    void Draw(QPainter &painter, QRect &rect) override;
    void NormalizeGraphData(QVector<QPointF> &points) override;

    // Writes the template into m_graphData, in its own coordinates.
    void InitGraphData();
};

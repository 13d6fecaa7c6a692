#pragma once

#include "CInkSignGraph.h"

// Heart that paints nothing but its handles. Forming and editing work as for every stencil.
class INK_EXPORT CInkLove : public CInkSignGraph
{
public:
    CInkLove();

    // Never forms a shape; see ink-stencil-pen-style.
    explicit CInkLove(Qt::PenStyle style);
    ~CInkLove() override;

    using CInkGraph::Draw;
    void Draw(QPainter &painter, QRect &rect) override;
    void NormalizeGraphData(QVector<QPointF> &points) override;

    // Writes the template into the list.
    void InitGraphData();
};

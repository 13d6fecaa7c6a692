#pragma once

#include "CInkSignGraph.h"

// Cross mark: wrong answer.
class INK_EXPORT CInkErro : public CInkSignGraph
{
public:
    // Solid, width 1.
    CInkErro();

    // Never forms a shape; see ink-stencil-pen-style.
    explicit CInkErro(Qt::PenStyle style);
    ~CInkErro() override;
    void NormalizeGraphData(QVector<QPointF> &points) override;

    // Writes the template into m_graphData, in its own coordinates.
    void InitGraphData();
};

#pragma once

#include "CInkSignGraph.h"

// Check mark: right answer.
class INK_EXPORT CInkRight : public CInkSignGraph
{
public:
    // Solid, width 1.
    CInkRight();

    // Never forms a shape; see ink-stencil-pen-style.
    explicit CInkRight(Qt::PenStyle style);
    ~CInkRight() override;
    void NormalizeGraphData(QVector<QPointF> &points) override;

    // Writes the template into m_graphData, in its own coordinates.
    void InitGraphData();
};

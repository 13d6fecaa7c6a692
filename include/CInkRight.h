#pragma once

#include "CInkSignGraph.h"

// Check mark: right answer.
class INK_EXPORT CInkRight : public CInkSignGraph
{
public:
    CInkRight();

    // Never forms a shape; see ink-stencil-pen-style.
    explicit CInkRight(Qt::PenStyle style);
    ~CInkRight() override;
    void NormalizeGraphData(QVector<QPointF> &points) override;

    // Writes the template into the list.
    void InitGraphData();
};

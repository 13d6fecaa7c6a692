#pragma once

#include "CInkSignGraph.h"

// Block arrow pointing left.
class INK_EXPORT _H : public CInkSignGraph // NOLINT(bugprone-reserved-identifier): the name is part of the interface
{
public:
    // Solid, width 1.
    _H();

    // Never forms a shape; see ink-stencil-pen-style.
    explicit _H(Qt::PenStyle style);
    ~_H() override;
    void NormalizeGraphData(QVector<QPointF> &points) override;

    // Writes the template into m_graphData, in its own coordinates.
    void InitGraphData();
};

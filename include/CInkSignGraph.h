#pragma once

#include "CInkGraph.h"

// Base of the stencils: a fixed outline, stretched into the dragged box and drawn as one closed polygon.
//
// Of N outline points, m_graphData holds the template and, behind it, the press and the pointer; once the shape is
// formed it holds the N points in canvas pixels. A drag of at most 4.0 pixels is committed at the release and paints
// nothing.
class INK_EXPORT CInkSignGraph : public CInkGraph
{
public:
    // Solid, width 1, without outline points: a derived class brings them.
    CInkSignGraph();
    ~CInkSignGraph() override;

    using CInkGraph::Draw;
    void Draw(QPainter &painter, QRect &rect) override;
    void SetWidth(int width) override;
    int GetPointCount() override;

    // In mid-drag it commits a shape that stays invisible; see ink-stencil-finish-no-handles.
    bool FinishGraph() override;
    QRect GetUpdateRect() override;
    void AddPoint(int code, QPoint pt, QRect &update) override;

    // Builds the shape from the events of the drawing phase, `pt` in canvas pixels: every code other than PT_DOWN is a
    // drag position. Returns `update`, which is left alone while the point list is empty.
    virtual QRect FormGraphData(int code, QPoint pt, QRect &update);

    // Stretches the N outline points of `points` into the box spanned by the press and the pointer behind them. Does
    // nothing to a list that is too short or an outline without extent.
    virtual void NormalizeGraphData(QVector<QPointF> &points) = 0;

    // N. [ink-stencil-pen-style] 0, with an empty list, in a stencil made with a pen style: it never forms a shape.
    int m_nOutlinePointCount{0};
    Qt::PenStyle m_penStyle{Qt::SolidLine}; // of the outline
    QVector<QPointF> m_previewData;         // the outline stretched into the box while it is dragged
};

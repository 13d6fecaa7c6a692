#pragma once

#include "CInkGraph.h"

// Ellipse inscribed in a dragged box. Width 1.
//
// Follows the two-corner protocol of CInkRectangle without deriving from it: its rotation settles when an edit ends,
// the rectangle's when the next one begins.
class INK_EXPORT CInkEllipse : public CInkGraph
{
public:
    // Two points at the origin. See ink-ellipse-width.
    CInkEllipse();

    // The point list stays empty until the first press. The style is stored only.
    explicit CInkEllipse(Qt::PenStyle style);
    ~CInkEllipse() override;

    using CInkGraph::Draw;
    void Draw(QPainter &painter, QRect &rect) override;
    void SetWidth(int width) override;
    int GetPointCount() override;
    bool FinishGraph() override;

    // See ink-ellipse-press-rect.
    QRect GetUpdateRect() override;

    // A turned object settles at the release of every edit; see ink-ellipse-adjust-at-release.
    void AddPoint(int code, QPoint pt, QRect &update) override;

    // Builds the box from the events of the drawing phase; `code` and `pt` as for AddPoint. Returns `update`.
    QRect FormGraphData(int code, QPoint pt, QRect &update);

    Qt::PenStyle m_penStyle{Qt::SolidLine}; // stored only: the outline is always solid
};

#pragma once

#include "CInkPenGraph.h"

// Collects and resamples like the other textured pens, half the width apart, and paints nothing.
//
// m_pImage has the canvas's size at the first Draw and stays transparent. See ink-watercolor-invisible
// and ink-textured-release.
class INK_EXPORT CInkWaterColorPen : public CInkPenGraph
{
public:
    // `canvas` in pixels; an empty one makes a pen that paints nothing. Width 1, black.
    explicit CInkWaterColorPen(QSize canvas);
    ~CInkWaterColorPen() override;

    using CInkGraph::Draw;
    void Draw(QPainter &painter, QRect &rect) override;
    void SetCanvasSize(QSize size) override;
    QRect GetDisIconRect() override;
    QRect FormGraphData(int code, QPoint pt, QRect &update) override;

    // Appends points `step` canvas pixels apart from the last one towards `position`, at most 65 536 a call; nothing
    // before the first point.
    void MakeWaterColoePoint(QPointF position, float step);

    // Paints nothing; see ink-watercolor-invisible.
    void DrawWaterColorGraph(QPainter &painter);

    QPointF m_ptPrevPoint; // last collected point
    QRect m_rcCanvas;      // (0, 0) to (width - 1, height - 1)
};

#pragma once

#include "CInkPenGraph.h"

// Grainy trail of overlapping discs, a quarter of the width apart. What it looks like depends on when Draw was called.
//
// The path is resampled into evenly spaced points and rendered into m_pImage, which has the canvas's size at the first
// Draw, as they come. Neither editing nor a new canvas size changes what has been rendered. The release is
// left out; see ink-textured-release, ink-textured-clip-restored, ink-crayon-corner and ink-crayon-newest.
class INK_EXPORT CInkCrayon : public CInkPenGraph
{
public:
    // `canvas` in pixels; an empty one makes a pen that paints nothing. Width 20, colour (100, 200, 150).
    explicit CInkCrayon(QSize canvas);
    ~CInkCrayon() override;

    using CInkGraph::Draw;
    void Draw(QPainter &painter, QRect &rect) override;
    void SetCanvasSize(QSize size) override;
    QRect GetDisIconRect() override;
    QRect FormGraphData(int code, QPoint pt, QRect &update) override;

    // Appends points `step` canvas pixels apart from the last one towards `position`, at most 65 536 a call; nothing
    // before the first point.
    void MakecrayonPoint(QPointF position, float step);

    // Renders what is new and paints the rendered stroke. Leaves the alpha of m_color at 150;
    // see ink-crayon-alpha.
    void DrawCrayonGraph(QPainter &painter);

    QPointF m_ptPrevPoint; // last collected point
    QRect m_rcCanvas;      // (0, 0) to (width - 1, height - 1)
};

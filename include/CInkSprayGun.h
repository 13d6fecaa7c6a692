#pragma once

#include "CInkGraph.h"

// Cloud of dots, one pixel each. The host scatters them: every event hands over one dot, whatever its code.
//
// The dots are plotted into m_pImage, which has the canvas's size at the first Draw. Dots outside the canvas are not
// plotted, nor is the last one. AddPoint assigns `update` instead of uniting it. See ink-spray-last-dot,
// ink-spray-reaches-origin, ink-spray-assigns-update and ink-textured-clip-restored.
class INK_EXPORT CInkSprayGun : public CInkGraph
{
public:
    // `canvas` in pixels; an empty one makes a gun that paints nothing. Width 1, black.
    explicit CInkSprayGun(QSize canvas);
    ~CInkSprayGun() override;

    using CInkGraph::Draw;
    void Draw(QPainter &painter, QRect &rect) override;
    void SetCanvasSize(QSize size) override;
    int GetPointCount() override;

    // Always false: only the release ends a spray. See ink-spray-never-finishes.
    bool FinishGraph() override;
    QRect GetUpdateRect() override;
    void AddPoint(int code, QPoint pt, QRect &update) override;

    // Plots the new dots and paints all of them.
    void DrawSprayGraph(QPainter &painter);

    QRect m_rcDirty;  // reported since the last Draw
    QRect m_rcCanvas; // (0, 0) to (width - 1, height - 1)
};

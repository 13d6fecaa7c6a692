#pragma once

#include "CInkGraph.h"

// Straight line between two endpoints, which are its only handles: it has no frame and does not rotate.
//
// Both points always exist; m_nPointCount tells how many of them the stroke has placed. A line no longer than
// one pixel is committed at the release and shows as a dot.
class INK_EXPORT CInkLine : public CInkGraph
{
public:
    // Solid, with round caps; width 10, both points at the origin. See ink-line-radius-kept for its handles.
    CInkLine();
    ~CInkLine() override;

    using CInkGraph::Draw;
    void Draw(QPainter &painter, QRect &rect) override;
    void SetWidth(int width) override;
    int GetPointCount() override;
    bool FinishGraph() override;

    // See ink-line-fresh-rect and ink-line-one-point-rect.
    QRect GetUpdateRect() override;

    // MT_TOP while either endpoint is dragged; see ink-line-endpoint-as-top.
    ModifyType GetModifyType() override;
    ModifyType AroundHotPts(QPoint pt) override;
    void AddPoint(int code, QPoint pt, QRect &update) override;
    bool IsPtInModifyZone(QPoint pt) override;
    ModifyType DecideModiFyType(QPoint pt) override;
    void ModifyGraph(QPoint pt, ModifyType type) override;
    void StretchGraph(QPoint pt) override;

    // Paints the two endpoint handles, or the shade of ink-line-shade-corner-as-size.
    void DrawHotShape(QPainter &painter) override;

    // Builds the line from the events of the drawing phase; `code` and `pt` as for AddPoint. Returns `update`.
    QRect FormGraphData(int code, QPoint pt, QRect &update);

    // Lays out m_rcRegion between the endpoints; see ink-line-region-reversed.
    void SetRegion();

    int m_nCapStyle{Qt::RoundCap};  // a Qt::PenCapStyle
    int m_nPenStyle{Qt::SolidLine}; // a Qt::PenStyle
    int m_nHotRadius{3};            // of the endpoint handles, pixels; recomputed when the width changes
    QRect m_rcRegion;               // a press in it grabs the whole line
};

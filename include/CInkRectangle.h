#pragma once

#include "CInkGraph.h"

// Box through two dragged corners, and the base of every tool whose outline follows from such a box.
//
// Point 0 is the corner where the drag began, point 1 the corner under the pointer; m_nPointCount tells how
// many of them the stroke has placed. A box whose corners are at most 6.0 pixels apart at the release is
// committed and paints nothing; a larger one enters editing.
class INK_EXPORT CInkRectangle : public CInkGraph
{
public:
    // Width 4, both points at the origin.
    CInkRectangle();

    // Width 1, and an empty point list until the first press; see ink-box-pen-style-width. The style is stored only;
    // see ink-box-always-solid.
    explicit CInkRectangle(Qt::PenStyle style);
    ~CInkRectangle() override;

    using CInkGraph::Draw;

    // See ink-box-too-small-clips.
    void Draw(QPainter &painter, QRect &rect) override;
    void SetWidth(int width) override;
    int GetPointCount() override;
    bool FinishGraph() override;

    // See ink-box-fresh-rect, ink-box-name-corner-as-size and ink-box-icon-corner-as-size.
    QRect GetUpdateRect() override;

    // A turned object settles when its next edit begins; see ink-box-adjust-at-press.
    void AddPoint(int code, QPoint pt, QRect &update) override;

    // Builds the outline from the events of the drawing phase; `code` and `pt` as for AddPoint. Returns `update`.
    virtual QRect FormGraphData(int code, QPoint pt, QRect &update);

    Qt::PenStyle m_penStyle{Qt::SolidLine}; // for derived tools; the rectangle itself is always solid
};

#pragma once

#include "CInkRectangle.h"

// Polygon set vertex by vertex: each release sets one, and a rubber-band edge follows the pointer to the next.
//
// With at least two vertices, a release within 5.0 pixels of the first completes it, and so does any release after a
// double click; it then enters editing. A first release within 2.0 pixels of its first vertex abandons it; see
// ink-polygon-abandoned-painted and ink-polygon-keeps-rubber-band. While forming, the list holds m_nPointCount vertices
// and the rubber-band point behind them.
class INK_EXPORT CInkPolygon : public CInkRectangle
{
public:
    // Width 4, solid, without points.
    CInkPolygon();
    ~CInkPolygon() override;

    using CInkGraph::Draw;
    void Draw(QPainter &painter, QRect &rect) override;
    QRect GetUpdateRect() override;
    QRect FormGraphData(int code, QPoint pt, QRect &update) override;

    int m_bFinishOnRelease{0}; // set by a double click: the next release completes the polygon as it stands
};

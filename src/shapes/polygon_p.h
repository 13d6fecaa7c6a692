#pragma once

// The drag and the painting of the shapes that turn a dragged box into a polygon: triangles and diamond.

#include "CInkRectangle.h"
#include "core/geometry_p.h"
#include "core/life_p.h"
#include "core/painting_p.h"
#include "shapes/shape_p.h"

namespace InkInternal {

// While the box is dragged the list holds `Vertices` vertices and, behind them, the press and the pointer. Once the
// shape is kept it holds the vertices alone.
template <int Vertices, typename Shape>
QRect formVertices(Shape &shape, int code, const QPoint &pt, QRect &update)
{
    constexpr float kAbandonDistance = 2.0f; // canvas pixels; a drag of exactly this length is still too short
    constexpr int kPress = Vertices, kPointer = Vertices + 1;

    shape.m_bSparePoint = 0;
    const QRect before = shape.GetUpdateRect();
    if (code == PT_DOWN) {
        shape.m_graphData.resize(Vertices + 2);
        shape.m_graphData[kPress] = shape.m_graphData[kPointer] = widened(pt);
        shape.m_nPointCount = 1;
    } else if (shape.m_nPointCount > 0 && shape.m_graphData.size() == Vertices + 2) {
        shape.m_graphData[kPointer] = widened(pt);
        shape.m_nPointCount = 2;
        shape.NormalizeGraphData();
        shape.m_bSparePoint = code != PT_UP;
        if (code == PT_UP) {
            if (shape.CalcGapOfpoints(shape.m_graphData.at(kPress), shape.m_graphData.at(kPointer)) <=
                kAbandonDistance) {
                // [ink-vertices-abandoned-painted] Keeps counter and points, so it is painted.
                commit(shape);
            } else {
                shape.m_nPointCount = Vertices;
                shape.m_bEditMode = 1;
                shape.m_graphData.resize(Vertices);
                shape.SetHotData(kFrameMargin, kFrameMargin);
            }
        }
    }
    update = update | (before | shape.GetUpdateRect());
    return update;
}

template <int Vertices>
void paintVertices(CInkRectangle &shape, QPainter &painter, const QRect &rect, const QPen &pen)
{
    if (shape.m_nPointCount <= 0)
        return;

    // [ink-clip-outlives-draw] Set before the state is saved: the host finds it afterwards.
    painter.setClipRect(clipUnlessFormed(shape, rect), Qt::ReplaceClip);
    if (shape.m_graphData.size() < Vertices)
        return;
    paintOverHandles(shape, painter, pen, [&] {
        const QPointF *const vertices = shape.m_graphData.constData();
        if (areRasterizable(vertices, Vertices))
            painter.drawPolygon(vertices, Vertices, Qt::OddEvenFill);
    });
}

} // namespace InkInternal

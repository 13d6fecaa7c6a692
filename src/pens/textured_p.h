#pragma once

// What the textured pens share: evenly spaced points, and a rendered stroke laid over the painter.

#include "CInkPenGraph.h"
#include "core/life_p.h"
#include "pens/stroke_p.h"

#include <QtGui/QImage>

namespace InkInternal {

// Appends points exactly `step` pixels apart from the last point of `pen` towards `position`, which is not appended
// unless it lies within one step. The remainder is left to the next move.
void resample(CInkPenGraph &pen, const QPointF &position, float step);

// How far the pointer must go before anything is collected: a quarter of the width, in canvas pixels.
float collectDistance(const CInkPenGraph &pen);

// One event of the drawing phase. `collect(position)` resamples towards a position that is far enough away.
template <typename Pen, typename Collect>
QRect collectStroke(Pen &pen, int code, const QPoint &pt, QRect &update, const Collect &collect)
{
    const QRect before = pen.GetUpdateRect();
    const QPointF position = widened(pt);
    if (code == PT_DOWN && pen.m_graphData.isEmpty()) {
        pen.m_graphData.append(position);
        pen.m_ptPrevPoint = position;
    } else if (code == PT_UP) {
        // [ink-textured-release] The release position is not collected, and the frame needs three points.
        if (pen.m_graphData.size() > 2)
            pen.SetHotData(kStrokeFrameMargin, kStrokeFrameMargin);
        commit(pen);
    } else if (!pen.m_graphData.isEmpty()) {
        pen.m_ptPrevPoint = pen.m_graphData.constLast();
        if (pen.CalcGapOfpoints(position, pen.m_ptPrevPoint) >= collectDistance(pen))
            collect(position);
    }
    update = update | (before | pen.GetUpdateRect());
    return update;
}

// Where rendering can change the pixels of `image`, in the coordinates of a painter on it. A wild coordinate makes tens
// of thousands of points beside it.
inline QRectF reachOf(const QImage &image)
{
    return QRectF(QPointF(), QSizeF(image.size()) / image.devicePixelRatioF()).adjusted(-1, -1, 1, 1);
}

// Lays m_pImage over the painter.
void paintCache(const CInkPenGraph &pen, const QRect &canvas, QPainter &painter);

} // namespace InkInternal

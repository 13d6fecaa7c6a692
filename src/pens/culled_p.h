#pragma once

// Strokes painted without the segments that the clip cannot show. Qt computes the outline of a whole path and
// rasterises it over the whole device, whatever the clip, so an event would cost more with every one before it.

#include "pens/culled_box_p.h"
#include "pens/stroke_p.h"

#include <QtCore/QVarLengthArray>

namespace InkInternal {

constexpr int kBlock = 16; // segments that are looked at together; block b leads from point 16 b to point 16 (b + 1)

// What one pass over the full blocks of a stroke finds.
struct BlockScan
{
    QVarLengthArray<int, 64> met; // blocks whose points' box meets the clip
    Box bounds;                   // of all their points
    bool isFinite;                // none of their coordinates is infinite or no number
};

// `points` has kBlock * `blocks` + 1 points; clip and points are in the same frame.
BlockScan scanBlocks(const QPointF *points, int blocks, const Box &clip);
#ifdef __x86_64__
BlockScan scanBlocksWithAvx2(const QPointF *points, int blocks, const Box &clip); // for a CPU that has it
#endif

// strokePath(points).boundingRect().topLeft(), bit for bit.
QPointF strokeTopLeft(const QVector<QPointF> &points);

// Paints what drawPath() of the whole stroke would, with the painter's pen, antialiased; no pixel differs. What does
// not surely keep to that is painted whole: another engine than Qt's raster engine, an odd pen, a closed stroke. At
// least one point. The scan is done anew for each Draw: the points are the host's, too, and may be others the next
// time.
//
// `world` is the transform of the stroke where it is another than the one that the clip was set in.
void paintStroke(QPainter &painter, const QVector<QPointF> &points, StrokeSegment segment,
                 const QTransform *world = nullptr);

} // namespace InkInternal

#pragma once

// Fixed outlines and how they are stretched into a dragged box.

#include "CInkSignGraph.h"

namespace InkInternal {

// Two outline points whose difference measures the template.
struct Between
{
    int from, to;
};

// Points in the template's own frame: x to the right, y downwards, top left at or near (0,0).
struct Outline
{
    const QPointF *points;
    int count;
    Between width, height;
    QPointF shift; // taken off every point when the template is written
};

template <int Count>
constexpr Outline outline(const QPointF (&points)[Count], Between width, Between height, QPointF shift = {})
{
    return {points, Count, width, height, shift};
}

// Makes a newly constructed stencil ready for its drag.
void takeTemplate(CInkSignGraph &stencil, const Outline &outline);

// Writes the outline into the front of `points`, if it is long enough.
void writeTemplate(QVector<QPointF> &points, const Outline &outline);

// Stretches the first `count` points into the box between the two drag points that follow the outline.
void scaleIntoBox(QVector<QPointF> &points, const Outline &outline, int count);

// Shifts the outline to the drag points while they are exactly equal; otherwise returns false.
bool moveToUnmovedDrag(QVector<QPointF> &points, const Outline &outline);

} // namespace InkInternal

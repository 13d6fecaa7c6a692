#pragma once

#include "geometry_p.h"

namespace InkInternal {

// Indices into CInkGraph::m_hotPts.
enum Handle {
    TopHandle,
    BottomHandle,
    LeftHandle,
    RightHandle,
    TopLeftHandle,
    BottomLeftHandle,
    TopRightHandle,
    BottomRightHandle,
    RotateHandle,
    HandleCount,
};

// Sets the nine handles around the edges of `box`.
void layOutHandles(QPointF (&handles)[HandleCount], const QRect &box);

} // namespace InkInternal

#pragma once

// Leaves that the shapes share below the event protocol.

#include "CInkGraph.h"
#include "core/geometry_p.h"

namespace InkInternal {

constexpr int kFrameMargin = 10; // canvas pixels between a box shape and its handles

// Corners this far apart, in canvas pixels, are still too close to make a box.
constexpr float kBoxAbandonDistance = 6.0f;

// The box through points 0 and 1 has been dragged large enough to be painted.
inline bool isLargeEnough(CInkGraph &box)
{
    return box.m_nPointCount > 0 && box.m_graphData.size() >= 2 &&
           box.CalcGapOfpoints(box.m_graphData.at(0), box.m_graphData.at(1)) > kBoxAbandonDistance;
}

} // namespace InkInternal

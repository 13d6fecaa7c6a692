#pragma once

// What the tools made from one dragged box share below the event protocol.

#include "CInkRectangle.h"

namespace InkInternal {

// Corners this far apart, in canvas pixels, are still too close to make a box.
constexpr float kBoxAbandonDistance = 6.0f;

// Whether the box has been dragged large enough to be painted.
inline bool isLargeEnough(CInkRectangle &box)
{
    return box.m_nPointCount > 0 && box.m_graphData.size() >= 2 &&
           box.CalcGapOfpoints(box.m_graphData.at(0), box.m_graphData.at(1)) > kBoxAbandonDistance;
}

inline bool showsHandles(const CInkGraph &graph)
{
    return !graph.m_bFinished && graph.m_bEditMode && !graph.m_bHideHotShape;
}

} // namespace InkInternal

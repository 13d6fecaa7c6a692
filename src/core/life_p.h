#pragma once

// The ends of an object's life, as fields say them.

#include "CInkGraph.h"

namespace InkInternal {

// [ink-commit-keeps-edit-mode] m_bEditMode is left alone: it goes on deciding the update rectangle and the clip.
inline void commit(CInkGraph &graph)
{
    graph.m_bFinished = 1;
    graph.m_bHideHotShape = 1;
}

// A press outside an object that is being edited.
inline void letGo(CInkGraph &graph)
{
    commit(graph);
    graph.m_modifyType = MT_NONE;
}

inline bool showsHandles(const CInkGraph &graph)
{
    return !graph.m_bFinished && graph.m_bEditMode && !graph.m_bHideHotShape;
}

} // namespace InkInternal

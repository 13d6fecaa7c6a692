#pragma once

// The ends of an object's life, as fields say them.

#include "CInkGraph.h"
#include "geometry_p.h"

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

// A press on a box or a stencil that is being edited: begins a drag, or lets the object go.
inline void pressInEdit(CInkGraph &graph, const QPoint &pt)
{
    if (!graph.IsPtInModifyZone(pt)) {
        letGo(graph);
        return;
    }
    const int previous = graph.m_modifyType;
    graph.m_modifyType = graph.DecideModiFyType(pt);
    // [ink-box-adjust-at-press] A stretched or turned object settles when its next move or rotation begins.
    const bool settles = graph.m_modifyType == MT_MOVE || graph.m_modifyType == MT_ROTATE;
    if (settles && previous != MT_NONE && previous != MT_MOVE)
        graph.AdjustGraph(graph.m_fRotateAngle);
    if (graph.m_modifyType == MT_MOVE)
        graph.m_ptLast = widened(pt);
}

// One event of a box or a stencil that is being edited.
inline void editEvent(CInkGraph &graph, int code, const QPoint &pt, QRect &update)
{
    const QRect before = graph.GetUpdateRect();
    if (code == PT_DOWN) {
        pressInEdit(graph, pt);
    } else if (code == PT_UP || code == PT_MOVE) {
        graph.ModifyGraph(pt, ModifyType(graph.m_modifyType));
        graph.m_bSparePoint = code == PT_MOVE;
    }
    update = update | (before | graph.GetUpdateRect());
}

// What an edited object covers, its name label at the corner of its frame included.
inline QRect coveredInEdit(CInkGraph &graph)
{
    graph.m_rcName = graph.m_bShowDrawerName ? sized(graph.m_rcHot.topLeft(), graph.m_sizeName) : QRect();
    return graph.GetRotateUpDateRect() | graph.m_rcName;
}

inline bool showsHandles(const CInkGraph &graph)
{
    return !graph.m_bFinished && graph.m_bEditMode && !graph.m_bHideHotShape;
}

} // namespace InkInternal

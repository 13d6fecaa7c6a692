#pragma once

// The fields of an object that its events and its commit set.

#include "CInkGraph.h"

#include <algorithm>
#include <array>

struct Snapshot
{
    explicit Snapshot(const CInkGraph &graph)
        : points(graph.m_graphData)
        , center(graph.m_ptCenter)
        , last(graph.m_ptLast)
        , hot(graph.m_rcHot)
        , angle(graph.m_fRotateAngle)
        , flags{graph.m_nWidth,    graph.m_nPointCount, graph.m_modifyType,   graph.m_bFinished,
                graph.m_bEditMode, graph.m_bSparePoint, graph.m_bHideHotShape}
    {
        std::copy(std::begin(graph.m_hotPts), std::end(graph.m_hotPts), handles.begin());
    }

    bool operator==(const Snapshot &other) const
    {
        return std::equal(points.begin(), points.end(), other.points.begin(), other.points.end(), same) &&
               std::equal(handles.begin(), handles.end(), other.handles.begin(), same) && same(center, other.center) &&
               same(last, other.last) && hot == other.hot && angle == other.angle && flags == other.flags;
    }
    bool operator!=(const Snapshot &other) const { return !(*this == other); }

    // To the last bit: QPointF's own comparison is fuzzy.
    static bool same(const QPointF &a, const QPointF &b) { return a.x() == b.x() && a.y() == b.y(); }

    QVector<QPointF> points;
    std::array<QPointF, 9> handles;
    QPointF center, last;
    QRect hot;
    float angle;
    std::array<int, 7> flags;
};

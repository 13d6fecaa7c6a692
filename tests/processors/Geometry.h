#pragma once

// All that says where an object lies, as a digest takes it.

#include "Digest.h"
#include "Snapshot.h"

inline void add(Digest &digest, const Snapshot &state)
{
    digest.add(state.points.size());
    for (const QPointF &point : state.points)
        digest.add(point);
    for (const QPointF &handle : state.handles)
        digest.add(handle);
    digest.add(state.center);
    digest.add(state.last);
    digest.add(state.hot);
    digest.add(double(state.angle));
    for (const int flag : state.flags)
        digest.add(flag);
}

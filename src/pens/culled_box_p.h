#pragma once

// Boxes of points, kept in registers: the culling of strokes does little else.

#include <QtCore/QPointF>
#include <QtCore/QRectF>

#include <cstring>

namespace InkInternal {

// x and y in one register. Aligned as its halves are: the arrays of Qt give no more.
using Pair = double __attribute__((vector_size(16), aligned(8)));

// Corners included.
struct Box
{
    Pair low, high;
};

inline Pair load(const QPointF &point)
{
    static_assert(sizeof(QPointF) == sizeof(Pair), "a point is a pair of doubles");
    Pair pair;
    std::memcpy(&pair, &point, sizeof pair);
    return pair;
}

inline Pair least(Pair a, Pair b)
{
    return a < b ? a : b;
}

inline Pair greatest(Pair a, Pair b)
{
    return a > b ? a : b;
}

inline Pair magnitude(Pair a)
{
    return greatest(a, -a);
}

inline bool isOrdered(Pair a, Pair b)
{
    const auto ordered = a <= b;
    return ordered[0] && ordered[1];
}

inline Box boxOf(const QRectF &rect)
{
    return {Pair{rect.left(), rect.top()}, Pair{rect.right(), rect.bottom()}};
}

inline QRectF rectOf(const Box &box)
{
    return {QPointF(box.low[0], box.low[1]), QPointF(box.high[0], box.high[1])};
}

inline Box united(const Box &a, const Box &b)
{
    return {least(a.low, b.low), greatest(a.high, b.high)};
}

inline Box intersected(const Box &a, const Box &b)
{
    return {greatest(a.low, b.low), least(a.high, b.high)};
}

inline Box grown(const Box &box, Pair margin)
{
    return {box.low - margin, box.high + margin};
}

inline bool meets(const Box &a, const Box &b)
{
    const auto meeting = (a.low <= b.high) & (b.low <= a.high);
    return meeting[0] && meeting[1];
}

inline bool contains(const Box &outer, const Box &inner)
{
    return isOrdered(outer.low, inner.low) && isOrdered(inner.high, outer.high);
}

} // namespace InkInternal

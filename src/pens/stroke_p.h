#pragma once

// Leaves that the pens share below the event protocol.

#include "core/geometry_p.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

#include <algorithm>

namespace InkInternal {

constexpr int kStrokeFrameMargin = 32; // canvas pixels between a finished stroke and its frame

// A path through at least one point, from the first on that it can begin with. Each segment is a quadTo with its start
// as control point: Qt flattens it differently from a lineTo, so the pixels differ too.
inline QPainterPath strokePath(const QVector<QPointF> &points)
{
    const auto start = std::find_if(points.begin(), points.end(), isRasterizable);
    if (start == points.end())
        return {};
    QPainterPath path(*start);
    for (auto point = start + 1; point != points.end(); ++point)
        path.quadTo(*(point - 1), *point);
    return path;
}

// The eraser's form of at least two points.
inline QPainterPath linePath(const QVector<QPointF> &points)
{
    QPainterPath path;
    path.moveTo(points.first());
    for (const QPointF &point : points)
        path.lineTo(point); // [ink-eraser-double-tap] From the first on; equal points make an empty path.
    return path;
}

enum class StrokeSegment { Curve, Line }; // of a strokePath, of a linePath

// The drawer's icon stands on the pen's last position and extends to its right.
inline QRect iconRectOnTip(const QVector<QPointF> &points)
{
    if (points.isEmpty())
        return {};
    const QPoint tip = truncated(points.last());
    return sized(tip.x(), qint64(tip.y()) - kIconSide, kIconSide, kIconSide);
}

inline void setHighQualityAntialiasing(QPainter &painter)
{
    painter.setRenderHint(QPainter::Antialiasing);
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    painter.setRenderHint(QPainter::HighQualityAntialiasing);
    QT_WARNING_POP
}

} // namespace InkInternal

#pragma once

#include <QtCore/QRect>
#include <QtCore/QVector>
#include <QtGui/QPainterPath>

#include <algorithm>

namespace Literal {

// What of a stroke cannot be left out: the segments that can touch the clip, found one by one. The clip is in the
// painter's coordinates, and the painter is not scaled.
inline QPainterPath minimalPath(const QVector<QPointF> &points, const QRect &clip, double width)
{
    const double reach = width / 2 * 1.01 + 1.5;
    const QRectF near = QRectF(clip).adjusted(-reach, -reach, reach, reach);
    const auto meets = [&](const QPointF &a, const QPointF &b) {
        return std::max(a.x(), b.x()) >= near.left() && std::min(a.x(), b.x()) <= near.right() &&
               std::max(a.y(), b.y()) >= near.top() && std::min(a.y(), b.y()) <= near.bottom();
    };
    QPainterPath path;
    for (int i = 1; i < points.size(); ++i) {
        if (!meets(points.at(i - 1), points.at(i)))
            continue;
        if (path.isEmpty() || path.currentPosition() != points.at(i - 1))
            path.moveTo(points.at(i - 1));
        path.quadTo(points.at(i - 1), points.at(i));
    }
    return path;
}

} // namespace Literal

#pragma once

// The speech bubble with rounded corners, piece by piece.

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

struct Corners
{
    int left, top, right, bottom;
    int rx, ry;         // of the ellipse whose quarters are the corners
    int halfRx, halfRy; // where the corners meet the edges
};

inline void paintBubble(QPainter &painter, const Corners &c, const QPointF &end, const QPointF &tip,
                        const QPointF &start)
{
    QPainterPath path;
    path.arcMoveTo(c.left, c.top, c.rx, c.ry, 90);
    path.arcTo(c.left, c.top, c.rx, c.ry, 90, 90);
    path.moveTo(c.left + c.halfRx, c.top);
    path.lineTo(c.right - c.halfRx, c.top);
    path.arcMoveTo(c.right - c.rx, c.top, c.rx, c.ry, 0);
    path.arcTo(c.right - c.rx, c.top, c.rx, c.ry, 0, 90);
    path.moveTo(c.right, c.top + c.halfRy);
    path.lineTo(c.right, c.bottom - c.halfRy);
    path.arcMoveTo(c.right - c.rx, c.bottom - c.ry, c.rx, c.ry, 270);
    path.arcTo(c.right - c.rx, c.bottom - c.ry, c.rx, c.ry, 270, 90);
    path.moveTo(c.right - c.halfRx, c.bottom);
    path.lineTo(start);
    path.lineTo(tip);
    path.lineTo(end);
    path.lineTo(c.left + c.halfRx, c.bottom);
    path.arcMoveTo(c.left, c.bottom - c.ry, c.rx, c.ry, 180);
    path.arcTo(c.left, c.bottom - c.ry, c.rx, c.ry, 180, 90);
    path.moveTo(c.left, c.bottom - c.halfRy);
    path.lineTo(c.left, c.top + c.halfRy);
    painter.drawPath(path);
}

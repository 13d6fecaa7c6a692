#pragma once

// The pens in their literal form: one path with every segment and one drawPath, whatever the clip. The library hands
// over less where that cannot change a pixel; tests compare its pixels with these, benchmarks its time.
//
// Points are in the painter's coordinates and there is at least one; the caller sets the clip. Every function gives the
// painter back as it was.

#include <QtCore/QVector>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtGui/QPen>

namespace Literal {

inline QPen roundPen(const QColor &color, double width)
{
    return {QBrush(color), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

// The eraser's pen over a picture of the background.
inline QPen texturePen(const QImage &background, double width)
{
    return {QBrush(background), width, Qt::SolidLine, Qt::RoundCap, Qt::BevelJoin};
}

// Each segment is a curve with its start as control point.
inline QPainterPath strokePath(const QVector<QPointF> &points)
{
    QPainterPath path(points.first());
    for (int i = 1; i < points.size(); ++i)
        path.quadTo(points.at(i - 1), points.at(i));
    return path;
}

// A disc for a single point, else lines; the first of them has no length.
inline QPainterPath erasedPath(const QVector<QPointF> &points, int width)
{
    QPainterPath path;
    if (points.size() == 1) {
        const QPoint middle(int(points.first().x()), int(points.first().y()));
        path.addEllipse(QRectF(middle.x() - width / 2, middle.y() - width / 2, width, width));
        return path;
    }
    path.moveTo(points.first());
    for (const QPointF &point : points)
        path.lineTo(point);
    return path;
}

inline void paintPencil(QPainter &painter, const QVector<QPointF> &points, int width, const QColor &color)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(roundPen(color, width));
    painter.drawPath(strokePath(points));
    painter.restore();
}

inline void paintBrush(QPainter &painter, const QVector<QPointF> &points, int width, const QColor &color)
{
    painter.save();
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    painter.setRenderHint(QPainter::HighQualityAntialiasing);
    QT_WARNING_POP
    paintPencil(painter, points, width, color);
    painter.restore();
}

inline void paintHighLight(QPainter &painter, const QVector<QPointF> &points, int width, QColor color, int alpha)
{
    color.setAlpha(alpha);
    paintBrush(painter, points, width, color);
}

// The nib's angle is in degrees; a width of 0 has no nib.
inline void paintFlatBrush(QPainter &painter, const QVector<QPointF> &points, int width, const QColor &color,
                           float angle)
{
    if (width == 0)
        return;
    const QPointF pivot = strokePath(points).boundingRect().topLeft();
    QMatrix nib;
    nib.translate(pivot.x(), pivot.y());
    nib.scale(1.0, double(2.0f / float(width)));
    nib.rotate(double(angle));
    nib.translate(-pivot.x(), -pivot.y());
    painter.save();
    painter.setWorldTransform(QTransform(nib));
    paintPencil(painter, points, width, color);
    painter.restore();
}

// What the eraser does on one layer: the surface takes the texture over what is there, the page within it, and the ink
// becomes transparent under a round pen of no colour.
inline void paintErased(QPainter &painter, const QVector<QPointF> &points, int width, const QPen &pen,
                        QPainter::CompositionMode mode = QPainter::CompositionMode_SourceOver)
{
    const QPainterPath path = erasedPath(points, width);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setCompositionMode(mode);
    if (points.size() == 1) {
        painter.fillPath(path, pen.brush());
    } else {
        painter.setPen(pen);
        painter.drawPath(path);
    }
    painter.restore();
}

} // namespace Literal

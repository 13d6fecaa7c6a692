#pragma once

// What an object shows while it is edited, written out as primitives for any frame.

#include "BoxFrame.h"
#include "Canvas.h"
#include "PainterState.h"

// `frame` as m_rcHot holds it. The squares are truncated: an odd sum of edges puts them half a pixel up or left.
inline void paintHandleFrame(QPainter &painter, const QRect &frame)
{
    const double x = 0.5 * (frame.left() + frame.right());
    painter.save();
    painter.setPen(QPen(QBrush(QColor(64, 64, 255)), 1.5, Qt::DashLine, Qt::SquareCap, Qt::BevelJoin));
    painter.drawRect(frame);
    painter.drawLine(QPointF(x, frame.top()), QPointF(x, frame.top() - 30));
    QPainterPath knob;
    knob.addEllipse(QRectF(x - 10, frame.top() - 40, 20, 20));
    painter.fillPath(knob, QColor(64, 64, 255));
    painter.setPen(QPen(QBrush(QColor(0, 255, 0)), 1.5, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    const int left = frame.left(), middle = (frame.left() + frame.right()) / 2, right = frame.right();
    const int top = frame.top(), half = (frame.top() + frame.bottom()) / 2, bottom = frame.bottom();
    for (const QPoint &square : {QPoint(middle, bottom), QPoint(left, bottom), QPoint(left, half), QPoint(left, top),
                                 QPoint(right, bottom), QPoint(right, half), QPoint(right, top), QPoint(middle, top)})
        painter.drawRect(square.x() - 4, square.y() - 4, 8, 8);
    painter.restore();
}

// The clip that a Draw with `rect` leaves on a painter that carried (0,0) to (4,4).
inline QRect clipAfterDraw(CInkGraph &graph, QRect rect)
{
    QImage image = blankCanvas();
    QPainter painter(&image);
    painter.setClipRect(QRect(0, 0, 5, 5));
    graph.Draw(painter, rect);
    return clipOf(painter);
}

#pragma once

// The frame and handles of an edited box, written out as primitives, and the turn of a box.

#include <QtGui/QMatrix>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtGui/QTransform>

// What an edited box from (100,100) to (200,150) shows: a frame (90,90) to (210,160).
inline void paintFrame(QPainter &painter)
{
    painter.save();
    painter.setPen(QPen(QBrush(QColor(64, 64, 255)), 1.5, Qt::DashLine, Qt::SquareCap, Qt::BevelJoin));
    painter.drawRect(QRect(90, 90, 121, 71));
    painter.drawLine(QPointF(150, 90), QPointF(150, 60));
    QPainterPath knob;
    knob.addEllipse(QRectF(140, 50, 20, 20));
    painter.fillPath(knob, QColor(64, 64, 255));
    painter.setPen(QPen(QBrush(QColor(0, 255, 0)), 1.5, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    painter.drawRect(146, 156, 8, 8); // bottom
    painter.drawRect(86, 156, 8, 8);  // bottom left
    painter.drawRect(86, 121, 8, 8);  // left
    painter.drawRect(86, 86, 8, 8);   // top left
    painter.drawRect(206, 156, 8, 8); // bottom right
    painter.drawRect(206, 121, 8, 8); // right
    painter.drawRect(206, 86, 8, 8);  // top right
    painter.drawRect(146, 86, 8, 8);  // top
    painter.restore();
}

inline QTransform turnAbout(double x, double y, double degrees)
{
    QMatrix matrix;
    matrix.translate(x, y);
    matrix.rotate(degrees);
    matrix.translate(-x, -y);
    return QTransform(matrix);
}

#pragma once

// A stroke in mid-drawing: one event repaints the rectangle that its newest segment reports.

#include "Bench.h"
#include "CInkPencil.h"
#include "LiteralPens.h"
#include "Strokes.h"

#include <QtGui/QPainter>

namespace Bench {

constexpr int kPencilWidth = 4;

template <typename Pen>
struct LiveStroke
{
    template <typename... Arguments>
    LiveStroke(const QVector<QPoint> &points, int width, const QColor &color, Arguments... arguments)
        : pen(arguments...)
    {
        pen.SetWidth(width);
        pen.SetColor(color);
        QRect ignored;
        for (int i = 0; i < points.size(); ++i)
            pen.AddPoint(i == 0 ? PT_DOWN : PT_MOVE, points.at(i), ignored);
        newest = pen.GetUpdateRect();
    }

    void draw(QPainter &painter) { pen.Draw(painter, newest); }

    const QVector<QPointF> &points() const { return pen.m_graphData; }

    Pen pen;
    QRect newest;
};

// Only the segments that can touch the clip, found one by one.
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

// The images that two ways of painting leave on a canvas of their own.
template <typename Ours, typename Theirs>
bool paintAlike(const Ours &ours, const Theirs &theirs)
{
    QImage a = canvas();
    QImage b = canvas();
    {
        QPainter onA(&a), onB(&b);
        ours(onA);
        theirs(onB);
    }
    return a == b && a != canvas();
}

} // namespace Bench

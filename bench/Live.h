#pragma once

// A stroke in mid-drawing: one event repaints the rectangle that its newest segment reports.

#include "Bench.h"
#include "CInkPencil.h"
#include "LiteralPens.h"
#include "MinimalPath.h"
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

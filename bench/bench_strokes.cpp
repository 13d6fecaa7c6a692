// One live event of a pencil stroke of N points, against a bare drawPath of the same path in the same clip.

#include "CInkPencil.h"

#include <benchmark/benchmark.h>

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

#include <cmath>

namespace {

constexpr QSize kCanvas{1920, 1080};
constexpr int kWidth = 4;

// A spiral, so that the newest segment meets only a little of the stroke.
QPoint spiral(int i)
{
    const double turn = 0.05 * i;
    const double radius = 20 + std::fmod(0.4 * turn, 450);
    return {960 + int(radius * std::cos(turn)), 540 + int(radius * std::sin(turn))};
}

struct LiveStroke
{
    explicit LiveStroke(int points)
    {
        canvas.fill(Qt::white);
        pencil.SetWidth(kWidth);
        QRect ignored;
        for (int i = 0; i < points; ++i)
            pencil.AddPoint(i == 0 ? PT_DOWN : PT_MOVE, spiral(i), ignored);
        newest = pencil.GetUpdateRect();
    }

    CInkPencil pencil;
    QRect newest;
    QImage canvas{kCanvas, QImage::Format_ARGB32_Premultiplied};
};

void pencilEvent(benchmark::State &state)
{
    LiveStroke stroke(int(state.range(0)));
    for (auto iteration : state) {
        QPainter painter(&stroke.canvas);
        stroke.pencil.Draw(painter, stroke.newest);
    }
}

void barePath(benchmark::State &state)
{
    LiveStroke stroke(int(state.range(0)));
    const QVector<QPointF> &points = stroke.pencil.m_graphData;
    for (auto iteration : state) {
        QPainter painter(&stroke.canvas);
        painter.setClipRect(stroke.newest);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Qt::black, kWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        QPainterPath path(points.first());
        for (int i = 1; i < points.size(); ++i)
            path.quadTo(points.at(i - 1), points.at(i));
        painter.drawPath(path);
    }
}

} // namespace

BENCHMARK(pencilEvent)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(barePath)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

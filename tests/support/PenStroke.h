#pragma once

// Strokes, the primitives that they are made of, and what a painter is asked to do.

#include "Canvas.h"
#include "Exact.h"
#include "HearingDevice.h"
#include "MessageLog.h"
#include "PainterState.h"

#include <QtGui/QPainterPath>

#include <initializer_list>

inline QPen roundPen(const QColor &color, double width)
{
    return {QBrush(color), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

// (100,80), (150,40), (200,140), (120,150), (110,60): pressed and moved, not released.
inline void feedZigzag(CInkGraph &graph)
{
    feed(graph, PT_DOWN, 100, 80);
    feed(graph, PT_MOVE, 150, 40);
    feed(graph, PT_MOVE, 200, 140);
    feed(graph, PT_MOVE, 120, 150);
    feed(graph, PT_MOVE, 110, 60);
}

// The same, with the start of each segment as its control point.
inline QPainterPath zigzagPath()
{
    QPainterPath path(QPointF(100, 80));
    path.quadTo(QPointF(100, 80), QPointF(150, 40));
    path.quadTo(QPointF(150, 40), QPointF(200, 140));
    path.quadTo(QPointF(200, 140), QPointF(120, 150));
    path.quadTo(QPointF(120, 150), QPointF(110, 60));
    return path;
}

inline QImage smoothStroke(const QPainterPath &path, const QPen &pen)
{
    return painted([&](QPainter &painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(pen);
        painter.drawPath(path);
    });
}

// The clip that a Draw with `rect` leaves on a painter that was clipped to (0,0)-(4,4).
inline QRect clipAfterDraw(CInkGraph &graph, QRect rect)
{
    QImage image = blankCanvas();
    QPainter painter(&image);
    painter.setClipRect(QRect(0, 0, 5, 5));
    graph.Draw(painter, rect);
    return clipOf(painter);
}

// Draws with an odd painter, which must come back as it was, with its stack balanced. Returns its clip.
inline QRect clipAfterDrawWithOddPainter(CInkGraph &graph)
{
    QImage image = blankCanvas();
    QPainter painter(&image);
    QRect all = image.rect();
    setOddState(painter);
    graph.Draw(painter, all);
    expectOddState(painter);
    const QRect clip = clipOf(painter);

    const MessageLog log;
    painter.restore(); // nothing to restore
    EXPECT_EQ(log.lines.size(), 1);
    return clip;
}

// A paint device that notes the painter's state at every path and image instead of painting it.
class PaintLog : public HearingDevice
{
public:
    struct Call
    {
        bool isPath;
        QPainter::RenderHints hints;
        QTransform transform;
        QPen pen;
        QRectF clip; // in the painter's coordinates
    };

    PaintLog()
        : HearingDevice({400, 300})
    {
    }

    QVector<Call> calls;

protected:
    void hearPath(const QPainter &painter, const QPainterPath & /*path*/) override { note(painter, true); }
    void hearImage(const QPainter &painter) override { note(painter, false); }

private:
    void note(const QPainter &painter, bool isPath)
    {
        calls.append(
            {isPath, painter.renderHints(), painter.worldTransform(), painter.pen(), painter.clipBoundingRect()});
    }
};

// What drawing `graph` with `rect` to repaint asks of a painter.
inline QVector<PaintLog::Call> paintCalls(CInkGraph &graph, QRect rect = {0, 0, 400, 300})
{
    PaintLog log;
    QPainter painter(&log);
    graph.Draw(painter, rect);
    painter.end();
    return log.calls;
}

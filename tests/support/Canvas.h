#pragma once

// Images to paint on, and events in one line.

#include "CInkGraph.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>

inline QImage blankCanvas(const QSize &size = {400, 300}, const QColor &color = Qt::transparent)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(color);
    return image;
}

inline bool isBlank(const QImage &image)
{
    return image == blankCanvas(image.size());
}

// What `paint(QPainter &)` leaves on a blank canvas.
template <typename Paint>
QImage painted(Paint paint, const QSize &size = {400, 300})
{
    QImage image = blankCanvas(size);
    QPainter painter(&image);
    paint(painter);
    painter.end();
    return image;
}

// What the object's own Draw leaves on a blank canvas when the whole of it is to be repainted.
inline QImage drawn(CInkGraph &graph, const QSize &size = {400, 300})
{
    return painted(
        [&](QPainter &painter) {
            QRect all(QPoint(), size);
            graph.Draw(painter, all);
        },
        size);
}

// Feeds one event and returns what it alone asks to repaint.
inline QRect feed(CInkGraph &graph, int code, int x, int y)
{
    QRect update;
    graph.AddPoint(code, QPoint(x, y), update);
    return update;
}

// Press, one move and release.
inline void drag(CInkGraph &graph, const QPoint &from, const QPoint &to)
{
    feed(graph, PT_DOWN, from.x(), from.y());
    feed(graph, PT_MOVE, to.x(), to.y());
    feed(graph, PT_UP, to.x(), to.y());
}

// The four layers of a host with a painter on each.
struct Layers
{
    explicit Layers(const QSize &size = {400, 300})
        : page(blankCanvas(size))
        , surface(blankCanvas(size))
        , background(blankCanvas(size))
        , ink(blankCanvas(size))
        , p1(&page)
        , p2(&surface)
        , p3(&background)
        , p4(&ink)
    {
    }

    // Paints `graph` on all layers and ends the painters.
    void draw(CInkGraph &graph, int skip = 0)
    {
        graph.Draw(p1, p2, p3, p4, page.rect(), 0, skip);
        p1.end();
        p2.end();
        p3.end();
        p4.end();
    }

    QImage page, surface, background, ink;
    QPainter p1, p2, p3, p4;
};

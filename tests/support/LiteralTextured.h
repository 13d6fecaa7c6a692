#pragma once

// The painting of the textured pens and of the spray in its plainest form: a plain image of the canvas's size, laid
// over the painter whole. What the library paints must equal it to the last bit.

#include "CInkColorBrush.h"
#include "CInkCrayon.h"
#include "CInkSprayGun.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtGui/QRadialGradient>

namespace Literal {

struct Texture
{
    explicit Texture(const QSize &size)
        : pixels(size, QImage::Format_ARGB32)
    {
        pixels.fill(0);
    }

    QImage pixels;
    int drawn = 0; // points
};

inline void render(const CInkColorBrush &brush, Texture &texture)
{
    const struct
    {
        int alpha;
        float width;
    } passes[] = {{60, 1.0f}, {40, 0.8f}, {60, 0.6f}, {60, 0.4f}};
    QPainter painter(&texture.pixels);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QColor &ink = brush.m_color;
    for (; texture.drawn < brush.m_graphData.size() - 1; ++texture.drawn) {
        for (const auto &pass : passes) {
            const QColor color(ink.red(), ink.green(), ink.blue(), pass.alpha);
            painter.setPen(
                QPen(color, int(pass.width * float(brush.m_nWidth)), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            painter.drawLine(brush.m_graphData.at(texture.drawn), brush.m_graphData.at(texture.drawn + 1));
        }
    }
}

inline void render(const CInkCrayon &crayon, Texture &texture)
{
    const QVector<QPointF> &points = crayon.m_graphData;
    const double width = crayon.m_nWidth;
    QColor color = crayon.m_color;
    color.setAlpha(150);
    const QColor clear(color.red(), color.green(), color.blue(), 0);
    QPainter painter(&texture.pixels);
    for (; texture.drawn < points.size(); ++texture.drawn) {
        const QPointF point = points.at(texture.drawn);
        QPainterPath discs;
        discs.setFillRule(Qt::WindingFill);
        discs.addEllipse(QRectF(point.x(), point.y(), width, width));
        if (texture.drawn + 1 < points.size()) {
            const QPointF middle = (point + points.at(texture.drawn + 1)) * 0.5;
            discs.addEllipse(QRectF(middle.x(), middle.y(), width, width));
        }
        QRadialGradient gradient(point, width);
        gradient.setColorAt(0.0, clear);
        gradient.setColorAt(0.5, color);
        gradient.setColorAt(1.0, clear);
        painter.fillPath(discs, gradient);
    }
}

inline void render(const CInkSprayGun &spray, Texture &texture)
{
    for (; texture.drawn < spray.m_graphData.size() - 1; ++texture.drawn) {
        const QPointF dot = spray.m_graphData.at(texture.drawn);
        if (texture.pixels.valid(int(dot.x()), int(dot.y())))
            texture.pixels.setPixel(int(dot.x()), int(dot.y()), spray.m_color.rgba());
    }
}

// What the pens' own paint routines do with the painter, clipped as it is.
inline void paint(const CInkColorBrush &brush, Texture &texture, QPainter &painter)
{
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    render(brush, texture);
    painter.drawImage(QRectF(brush.m_rcCanvas), texture.pixels, QRectF(QPointF(), brush.m_rcCanvas.size()));
}

inline void paint(const CInkCrayon &crayon, Texture &texture, QPainter &painter)
{
    render(crayon, texture);
    painter.drawImage(QRectF(crayon.m_rcCanvas), texture.pixels, QRectF(QPointF(), crayon.m_rcCanvas.size()));
}

inline void paint(const CInkSprayGun &spray, Texture &texture, QPainter &painter)
{
    render(spray, texture);
    painter.drawImage(QRectF(spray.m_rcCanvas), texture.pixels, QRectF(spray.m_rcCanvas));
}

// What Draw does with the painter. The tool itself is not drawn by this, so it must be asked before its own Draw.
inline void draw(CInkColorBrush &brush, Texture &texture, QPainter &painter, const QRect &rect)
{
    if (brush.m_graphData.size() < 2)
        return;
    painter.setClipRect(rect | brush.GetUpdateRect(), Qt::ReplaceClip);
    painter.save();
    paint(brush, texture, painter);
    painter.restore();
}

inline void draw(CInkCrayon &crayon, Texture &texture, QPainter &painter, const QRect &rect)
{
    if (crayon.m_graphData.size() < 2)
        return;
    painter.save();
    painter.setClipRect(crayon.m_bFinished ? crayon.GetUpdateRect() : rect | crayon.GetUpdateRect(), Qt::ReplaceClip);
    paint(crayon, texture, painter);
    painter.restore();
}

inline void draw(const CInkSprayGun &spray, Texture &texture, QPainter &painter, const QRect &rect)
{
    if (spray.m_graphData.isEmpty())
        return;
    painter.save();
    painter.setClipRect(spray.m_bFinished ? spray.m_rcCanvas : spray.m_rcDirty | rect, Qt::ReplaceClip);
    paint(spray, texture, painter);
    painter.restore();
}

} // namespace Literal

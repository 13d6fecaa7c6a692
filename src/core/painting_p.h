#pragma once

#include "CInkGraph.h"
#include "geometry_p.h"
#include "life_p.h"

#include <QtGui/QImage>
#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>
#include <QtGui/QPen>
#include <QtGui/QTransform>

#include <algorithm>
#include <cmath>

namespace InkInternal {

// Keeps the painter's state for the length of a scope.
class PainterStateScope
{
public:
    explicit PainterStateScope(QPainter &painter)
        : m_painter(painter)
    {
        m_painter.save();
    }
    ~PainterStateScope() { m_painter.restore(); }

private:
    Q_DISABLE_COPY(PainterStateScope)
    QPainter &m_painter;
};

// Around the painter's clip, in its coordinates. Qt 5.15 answers from the inverse of its transform, which it keeps
// beyond end(): a painter that was begun anew may still hold that of another transform, until a state is given back.
inline QRectF clipBounds(QPainter &painter)
{
    {
        const PainterStateScope scope(painter);
    }
    return painter.clipBoundingRect();
}

// From the object's unrotated frame to the canvas.
inline QTransform objectFrame(const CInkGraph &graph)
{
    return QTransform(turn(graph.m_ptCenter, graph.m_fRotateAngle));
}

// `pen`, solid where its dashes would never end: they run backwards for a negative width, and in place where they or
// the points are so long that a double does not tell one dash from the next.
inline QPen endingPen(QPen pen, const QVector<QPointF> &points)
{
    constexpr double kWidest = 1e12;
    const double width = pen.widthF() == 0.0 ? 1.0 : pen.widthF();
    const double reach = kWidest * std::min(width, 1.0);
    const auto isNear = [reach](const QPointF &point) {
        return std::abs(point.x()) <= reach && std::abs(point.y()) <= reach;
    };
    const bool ends = width > 0.0 && width <= kWidest && std::all_of(points.begin(), points.end(), isNear);
    if (pen.style() != Qt::SolidLine && !ends)
        pen.setStyle(Qt::SolidLine);
    return pen;
}

// `image`, with a colour for every value that a pixel can have: Qt reads behind the end of a shorter table.
inline QImage withAllColors(QImage image)
{
    constexpr int kColors = 256;
    if (image.format() == QImage::Format_Indexed8 && image.colorCount() < kColors)
        image.setColorCount(kColors);
    return image;
}

inline void paintImage(QPainter &painter, const QRectF &target, const QImage &image, const QRectF &source)
{
    painter.drawImage(target, withAllColors(image), source);
}

// Whether a transparent pixel leaves what is below it alone, to the last bit. On a plain ARGB32 image it does not:
// translucent pixels there pass through their premultiplied form.
inline bool keepsWhatIsUnderNothing(const QPainter &painter)
{
    const QPaintEngine *engine = painter.paintEngine(); // null where painting could not begin
    if (!engine || engine->type() != QPaintEngine::Raster || engine->paintDevice()->devType() != QInternal::Image ||
        painter.compositionMode() != QPainter::CompositionMode_SourceOver)
        return false;
    switch (static_cast<const QImage *>(engine->paintDevice())->format()) {
    case QImage::Format_RGB32:
    case QImage::Format_ARGB32_Premultiplied:
    case QImage::Format_RGB16:
    case QImage::Format_RGB888:
        return true;
    default:
        return false;
    }
}

// Whether an image keeps its pixels, moved by whole ones, and not so far that sums of them wrap.
inline bool isWholeShift(const QTransform &transform)
{
    constexpr double kFar = 1 << 24; // device pixels
    const auto isWhole = [](double shift) { return shift == std::floor(shift) && std::abs(shift) < kFar; };
    return transform.type() <= QTransform::TxTranslate && isWhole(transform.dx()) && isWhole(transform.dy());
}

inline bool drawnByAnother(const CInkGraph &graph)
{
    return graph.m_nOwnerIP != graph.m_nDrawerIP;
}

inline QPen solidPen(const CInkGraph &graph, Qt::PenCapStyle cap)
{
    return {graph.m_color, qreal(graph.m_nWidth), Qt::SolidLine, cap, Qt::RoundJoin};
}

// Where a shape may paint when `rect` is to be repainted; once it is formed, its own rectangle alone.
inline QRect clipUnlessFormed(CInkGraph &graph, const QRect &rect)
{
    return graph.m_bEditMode ? graph.GetUpdateRect() : rect | graph.GetUpdateRect();
}

// Paints an outline in the object's frame, over the handles while they are shown.
template <typename PaintOutline>
void paintOverHandles(CInkGraph &graph, QPainter &painter, const QPen &pen, const PaintOutline &paintOutline,
                      QPainter::RenderHints hints = QPainter::Antialiasing)
{
    const PainterStateScope scope(painter);
    painter.setRenderHints(hints);
    // [ink-world-replaced] A transform of the host's is not seen by the outline; the clip has been set in it.
    painter.setWorldTransform(objectFrame(graph));
    painter.setPen(pen);
    if (showsHandles(graph))
        graph.DrawHotShape(painter);
    paintOutline();
}

} // namespace InkInternal

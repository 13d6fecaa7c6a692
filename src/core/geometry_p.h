#pragma once

// Coordinates and rectangles below the event protocol. Results that do not fit an int stop at its limits.

#include <QtCore/QPoint>
#include <QtCore/QPointF>
#include <QtCore/QRect>
#include <QtCore/QSize>
#include <QtCore/QVector>
#include <QtGui/QMatrix>

#include <algorithm>
#include <cmath>
#include <limits>

namespace InkInternal {

constexpr int saturated(qint64 value)
{
    return int(std::clamp<qint64>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

// Toward zero, as every pixel is taken from a real coordinate. A NaN becomes 0.
constexpr int truncated(double value)
{
    if (value >= double(std::numeric_limits<int>::max()))
        return std::numeric_limits<int>::max();
    if (value <= double(std::numeric_limits<int>::min()))
        return std::numeric_limits<int>::min();
    return value == value ? int(value) : 0;
}

inline QPoint truncated(const QPointF &point)
{
    return {truncated(point.x()), truncated(point.y())};
}

// A pointer coordinate as the points keep it: in single precision first, so above 2^24 it loses its last bits.
constexpr double widened(int coordinate)
{
    return double(float(coordinate));
}

inline QPointF widened(const QPoint &point)
{
    return {widened(point.x()), widened(point.y())};
}

// Through single precision, as some shapes store their points.
inline QPointF narrowed(const QPointF &point)
{
    return {double(float(point.x())), double(float(point.y()))};
}

inline QRect edges(qint64 left, qint64 top, qint64 right, qint64 bottom)
{
    QRect rect;
    rect.setCoords(saturated(left), saturated(top), saturated(right), saturated(bottom));
    return rect;
}

inline QRect sized(qint64 left, qint64 top, qint64 width, qint64 height)
{
    return edges(left, top, left + width - 1, top + height - 1);
}

inline QRect sized(const QPoint &topLeft, const QSize &size)
{
    return sized(topLeft.x(), topLeft.y(), size.width(), size.height());
}

constexpr int kIconSide = 30; // of the drawer's icon, canvas pixels

// The drawer's icon around the pointer.
inline QRect iconRectAround(const QPoint &tip)
{
    return sized(qint64(tip.x()) - kIconSide / 2, qint64(tip.y()) - kIconSide / 2, kIconSide, kIconSide);
}

inline QRect grown(const QRect &rect, qint64 dx, qint64 dy)
{
    return edges(rect.left() - dx, rect.top() - dy, rect.right() + dx, rect.bottom() + dy);
}

inline qint64 width(const QRect &rect)
{
    return qint64(rect.right()) - rect.left() + 1;
}

inline qint64 height(const QRect &rect)
{
    return qint64(rect.bottom()) - rect.top() + 1;
}

// QRectF(rect), whose width does not wrap.
inline QRectF real(const QRect &rect)
{
    return {double(rect.left()), double(rect.top()), double(width(rect)), double(height(rect))};
}

inline QRect grown(const QRect &rect, qint64 margin)
{
    return grown(rect, margin, margin);
}

// QRect::normalized(), which wraps at the lowest int. As there, edges that lie exactly one pixel the wrong way round
// stay.
inline QRect normalized(const QRect &rect)
{
    const bool swapX = width(rect) < 0;
    const bool swapY = height(rect) < 0;
    return edges(swapX ? rect.right() : rect.left(), swapY ? rect.bottom() : rect.top(),
                 swapX ? rect.left() : rect.right(), swapY ? rect.top() : rect.bottom());
}

// The rectangle through two corners, both inclusive where they are in order.
inline QRect cornerBox(const QPointF &a, const QPointF &b)
{
    return normalized(QRect(truncated(a), truncated(b)));
}

// Whether Qt can rasterise what goes through a point. On the way to what is no number it may divide by zero, and where
// the difference of two coordinates has no end it may go on without one. Only paths leave such points out, and not at
// their start.
inline bool isRasterizable(const QPointF &point)
{
    constexpr double kFarthest = 1e300;
    return std::abs(point.x()) <= kFarthest && std::abs(point.y()) <= kFarthest;
}

inline bool areRasterizable(const QPointF *points, int count)
{
    return std::all_of(points, points + count, [](const QPointF &point) { return isRasterizable(point); });
}

// Integer bounding box of at least one point, all edges inclusive. What is no number widens nothing.
inline QRect pixelBounds(const QVector<QPointF> &points)
{
    const auto extend = [](int &low, int &high, double coordinate) {
        if (low > coordinate)
            low = truncated(coordinate);
        else if (high < coordinate)
            high = truncated(coordinate);
    };
    QPoint low = truncated(points.first());
    QPoint high = low;
    for (const QPointF &point : points) {
        extend(low.rx(), high.rx(), point.x());
        extend(low.ry(), high.ry(), point.y());
    }
    return {low, high};
}

// Inclusive edges in, so (100, 200) has its centre at 150.
inline QPointF centerOfEdges(const QRect &rect)
{
    const auto middle = [](int low, int high) { return double(float(saturated(qint64(low) + high)) * 0.5f); };
    return {middle(rect.left(), rect.right()), middle(rect.top(), rect.bottom())};
}

// The sine of a QMatrix that was turned. These two are rounded one way by the C library where the processor fuses
// multiplications with additions, and the other way where it does not; the former is the common one.
inline double sineOf(const QMatrix &turned, double degrees)
{
    constexpr double kSine297 = -0x1.c83201d3d2c6ep-1;
    constexpr double kSine342 = -0x1.3c6ef372fe953p-2;
    if (std::abs(degrees) == 297.0)
        return std::copysign(kSine297, -degrees);
    if (std::abs(degrees) == 342.0)
        return std::copysign(kSine342, -degrees);
    return turned.m12();
}

// A turn about a point. QTransform differs from QMatrix in the last bit for some negative angles. The second shift is
// QMatrix::translate() written out: Qt's own is compiled with fused multiplications on some processors.
inline QMatrix turn(const QPointF &center, float degrees)
{
    QMatrix matrix;
    matrix.translate(center.x(), center.y());
    matrix.rotate(double(degrees));
    const double cosine = matrix.m11();
    const double sine = sineOf(matrix, double(degrees));
    const double x = -center.x();
    const double y = -center.y();
    return {cosine, sine, -sine, cosine, matrix.dx() + (x * cosine + y * -sine), matrix.dy() + (y * cosine + x * sine)};
}

// QMatrix::map() written out, for the same reason.
inline QPointF mapped(const QMatrix &matrix, const QPointF &point)
{
    return {matrix.m11() * point.x() + matrix.m21() * point.y() + matrix.dx(),
            matrix.m12() * point.x() + matrix.m22() * point.y() + matrix.dy()};
}

} // namespace InkInternal

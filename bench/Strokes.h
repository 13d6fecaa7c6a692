#pragma once

// Strokes to draw: made up ones of any length, and those that people drew.

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QVector>
#include <QtCore/QtMath>
#include <QtGui/QColor>

#include <algorithm>

namespace Bench {

struct Stroke
{
    QColor color;
    int width;
    QVector<QPoint> points; // at least two
};

// Up and down in lines to and fro across the canvas, a point every three or four pixels: as dense at any length, and
// after 50 000 points all over the canvas.
inline QVector<QPoint> writing(int count)
{
    constexpr double turn = 0.2, height = 20, slant = 8, advance = 2, lineHeight = 75, lineLength = 3700;
    QVector<QPoint> points;
    points.reserve(count);
    for (int i = 0; i < count; ++i) {
        const double along = advance * i;
        const int line = int(along / lineLength);
        const double x = along - line * lineLength;
        points.append({int(60 + (line % 2 ? lineLength - x : x) + slant * qCos(turn * i)),
                       int(60 + lineHeight * line + height * qSin(turn * i))});
    }
    return points;
}

// The same from its end to its beginning: whatever is around the newest point is the same at any length.
inline QVector<QPoint> writingBack(int count)
{
    QVector<QPoint> points = writing(count);
    std::reverse(points.begin(), points.end());
    return points;
}

// All over a square of 400 pixels, however many points.
inline QVector<QPoint> scribble(int count)
{
    QVector<QPoint> points;
    points.reserve(count);
    for (int i = 0; i < count; ++i)
        points.append({int(900 + 200 * qSin(0.071 * i)), int(700 + 200 * qCos(0.113 * i))});
    return points;
}

// From one edge of the canvas to the other and back, each segment across those before it.
inline QVector<QPoint> crossings(int count)
{
    QVector<QPoint> points;
    points.reserve(count);
    for (int i = 0; i < count; ++i)
        points.append({i % 2 ? 3800 : 40, int(1080 + 1000 * qSin(1.7 * i))});
    return points;
}

// All recorded strokes of all pages, a page filling most of the canvas. Empty where the recordings are not there.
inline QVector<Stroke> recorded()
{
    constexpr double scale = 2.6;
    QVector<Stroke> strokes;
    for (const char *name : {"biology", "line-drawings", "maps", "pathology"}) {
        QFile file(QStringLiteral(INK_STROKES "/%1.json").arg(name));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QJsonArray entries = QJsonDocument::fromJson(file.readAll()).object()["strokes"].toArray();
        for (const QJsonValue &entry : entries) {
            Stroke stroke{QColor(entry["color"].toString()), entry["width"].toInt(), {}};
            for (const QJsonValue &point : entry["points"].toArray())
                stroke.points.append(QPoint(int(scale * point[0].toDouble()), int(scale * point[1].toDouble())));
            strokes.append(stroke);
        }
    }
    return strokes;
}

inline QVector<QPointF> real(const QVector<QPoint> &points)
{
    QVector<QPointF> converted;
    converted.reserve(points.size());
    for (const QPoint &point : points)
        converted.append(point);
    return converted;
}

} // namespace Bench

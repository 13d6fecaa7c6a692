#pragma once

// A paint device that notes the paths it is given, and whose engine says of itself what a test wants.

#include "HearingDevice.h"

#include <QtCore/QStringList>

#include <ostream>

// "0,0>10,0 | 50,5>60,5": the points of a path, whose parts begin with a moveTo. "~" instead of ">" leads to a point by
// a curve with its start as control point, "?" by any other.
inline QString outlineOf(const QPainterPath &path)
{
    QString text;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element &element = path.elementAt(i);
        if (element.isMoveTo() && i > 0)
            text += " | ";
        if (element.isLineTo())
            text += '>';
        if (element.isCurveTo()) {
            text += QPointF(path.elementAt(i - 1)) == QPointF(element) ? '~' : '?';
            i += 2; // the two control points come first
        }
        const QPainterPath::Element &end = path.elementAt(i);
        text += QString::number(end.x, 'g', 12) + ',' + QString::number(end.y, 'g', 12);
    }
    return text;
}

inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << text.toStdString();
}

class PathLog : public HearingDevice
{
public:
    explicit PathLog(QPaintEngine::Type type = QPaintEngine::Raster)
        : HearingDevice({2000, 2000}, type)
    {
    }

    QStringList outlines;
    QVector<QRect> clips; // device pixels

protected:
    void hearPath(const QPainter &painter, const QPainterPath &path) override
    {
        outlines.append(outlineOf(path));
        clips.append(painter.deviceTransform().mapRect(painter.clipBoundingRect()).toRect());
    }
};

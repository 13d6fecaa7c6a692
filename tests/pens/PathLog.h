#pragma once

// A paint device that notes the paths it is given, and whose engine says of itself what a test wants.

#include <QtCore/QStringList>
#include <QtGui/QPaintDevice>
#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

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

class PathLog : public QPaintDevice
{
public:
    explicit PathLog(QPaintEngine::Type type = QPaintEngine::Raster)
        : m_engine(*this, type)
    {
    }

    QPaintEngine *paintEngine() const override { return &m_engine; }

    QStringList outlines;
    QVector<QRect> clips; // device pixels

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
        case PdmHeight:
            return 2000;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return int(devicePixelRatioFScale());
        default:
            return 96;
        }
    }

private:
    class Engine : public QPaintEngine
    {
    public:
        Engine(PathLog &log, Type type)
            : QPaintEngine(AllFeatures)
            , m_log(log)
            , m_type(type)
        {
        }
        bool begin(QPaintDevice *) override { return true; }
        bool end() override { return true; }
        void updateState(const QPaintEngineState &) override {}
        void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override {}
        void drawPath(const QPainterPath &path) override
        {
            m_log.outlines.append(outlineOf(path));
            m_log.clips.append(painter()->deviceTransform().mapRect(painter()->clipBoundingRect()).toRect());
        }
        Type type() const override { return m_type; }

    private:
        PathLog &m_log;
        const Type m_type;
    };

    mutable Engine m_engine;
};

#pragma once

// A paint device without pixels, which hears of what is painted on it.

#include <QtGui/QPaintDevice>
#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

class HearingDevice : public QPaintDevice
{
public:
    // Its engine says of itself that it is of this type.
    explicit HearingDevice(const QSize &size, QPaintEngine::Type type = QPaintEngine::User)
        : m_size(size)
        , m_engine(*this, type)
    {
    }

    QPaintEngine *paintEngine() const override { return &m_engine; }

protected:
    // Lines and polygons come as paths, pixmaps as images. The painter is in the state in which it paints.
    virtual void hearPath(const QPainter &painter, const QPainterPath &path) = 0;
    virtual void hearImage(const QPainter & /*painter*/) {}

    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
            return m_size.width();
        case PdmHeight:
            return m_size.height();
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
        Engine(HearingDevice &device, Type type)
            : QPaintEngine(AllFeatures)
            , m_device(device)
            , m_type(type)
        {
        }
        bool begin(QPaintDevice *) override { return true; }
        bool end() override { return true; }
        void updateState(const QPaintEngineState &) override {}
        void drawPath(const QPainterPath &path) override { m_device.hearPath(*painter(), path); }
        void drawPolygon(const QPointF *points, int count, PolygonDrawMode mode) override
        {
            QPainterPath path;
            path.moveTo(points[0]);
            for (int i = 1; i < count; ++i)
                path.lineTo(points[i]);
            if (mode != PolylineMode)
                path.closeSubpath();
            drawPath(path);
        }
        void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override { m_device.hearImage(*painter()); }
        void drawImage(const QRectF &, const QImage &, const QRectF &, Qt::ImageConversionFlags) override
        {
            m_device.hearImage(*painter());
        }
        Type type() const override { return m_type; }

    private:
        HearingDevice &m_device;
        const Type m_type;
    };

    const QSize m_size;
    mutable Engine m_engine;
};

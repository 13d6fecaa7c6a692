#pragma once

#include "Bytes.h"

#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>
#include <QtGui/QPicture>

#include <memory>

namespace Fuzz {

// A device that is no image, whose engine takes everything and keeps nothing.
class Foreign : public QPaintDevice
{
public:
    Foreign(const QSize &size, QPaintEngine::PaintEngineFeatures features);
    ~Foreign() override;
    QPaintEngine *paintEngine() const override;

protected:
    int metric(PaintDeviceMetric metric) const override;

private:
    QSize m_size;
    std::unique_ptr<QPaintEngine> m_engine;
};

// One layer with its painter: mostly an image of some format, else another device, or nothing at all.
class Layer
{
public:
    explicit Layer(Bytes &bytes);
    ~Layer();

    QPainter &painter() { return *m_painter; }

private:
    Q_DISABLE_COPY(Layer)
    std::unique_ptr<QPaintDevice> m_device;
    std::unique_ptr<QPainter> m_painter; // ends before its device
};

} // namespace Fuzz

#include "Stage.h"

namespace Fuzz {

namespace {

class Engine : public QPaintEngine
{
public:
    using QPaintEngine::QPaintEngine;
    bool begin(QPaintDevice * /*device*/) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState & /*state*/) override {}
    void drawPixmap(const QRectF & /*target*/, const QPixmap & /*pixmap*/, const QRectF & /*source*/) override {}
    void drawImage(const QRectF & /*target*/, const QImage & /*image*/, const QRectF & /*source*/,
                   Qt::ImageConversionFlags /*flags*/) override
    {
    }
    void drawPath(const QPainterPath & /*path*/) override {}
    void drawPolygon(const QPointF * /*points*/, int /*count*/, PolygonDrawMode /*mode*/) override {}
    Type type() const override { return User; }
};

std::unique_ptr<QPaintDevice> makeDevice(Bytes &bytes)
{
    constexpr QSize kSmall(48, 40);
    const int kind = bytes.byte();
    if (kind < 160)
        return std::make_unique<QImage>(kSmall, QImage::Format_ARGB32_Premultiplied);
    if (kind == 160)
        return std::make_unique<QImage>(1920, 1080, QImage::Format_ARGB32_Premultiplied);
    if (kind < 210)
        return std::make_unique<QImage>(kSmall, QImage::Format(kind % QImage::NImageFormats));
    if (kind < 230)
        return std::make_unique<QPicture>();
    if (kind < 240)
        return std::make_unique<Foreign>(kSmall, QPaintEngine::AllFeatures);
    if (kind < 250)
        return std::make_unique<Foreign>(kSmall, QPaintEngine::PaintEngineFeatures());
    return nullptr;
}

// Leaves the painter as some host may.
void upset(QPainter &painter, Bytes &bytes)
{
    switch (bytes.below(12)) {
    case 0:
        painter.setCompositionMode(QPainter::CompositionMode(bytes.below(QPainter::RasterOp_SourceOrDestination + 1)));
        break;
    case 1:
        painter.setBrush(bytes.color());
        break;
    case 2:
        painter.setTransform(QTransform::fromScale(bytes.coordinate(), bytes.coordinate()));
        break;
    case 3:
        painter.rotate(bytes.coordinate());
        break;
    case 4:
        painter.translate(bytes.pointF());
        break;
    case 5:
        painter.setClipRect(bytes.rect());
        break;
    case 6:
        painter.setOpacity(bytes.coordinate());
        break;
    case 7:
        painter.setWindow(bytes.rect());
        break;
    case 8:
        painter.setRenderHints(QPainter::RenderHints(bytes.byte()));
        break;
    case 9:
        painter.save();
        break;
    case 10:
        painter.setClipping(bytes.flag());
        break;
    default:
        painter.setBackgroundMode(Qt::OpaqueMode);
    }
}

} // namespace

Foreign::Foreign(const QSize &size, QPaintEngine::PaintEngineFeatures features)
    : m_size(size)
    , m_engine(std::make_unique<Engine>(features))
{
}

Foreign::~Foreign() = default;

QPaintEngine *Foreign::paintEngine() const
{
    return m_engine.get();
}

int Foreign::metric(PaintDeviceMetric metric) const
{
    switch (metric) {
    case PdmWidth:
        return m_size.width();
    case PdmHeight:
        return m_size.height();
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
        return 96;
    default:
        return QPaintDevice::metric(metric);
    }
}

Layer::Layer(Bytes &bytes)
    : m_device(makeDevice(bytes))
    , m_painter(std::make_unique<QPainter>())
{
    if (auto *image = dynamic_cast<QImage *>(m_device.get()); image && !image->isNull())
        image->fill(bytes.byte());
    if (m_device && m_device->paintEngine())
        m_painter->begin(m_device.get());
    const int upsets = bytes.byte();
    for (int i = 200; m_painter->isActive() && i < upsets; i += 10)
        upset(*m_painter, bytes);
}

Layer::~Layer()
{
    // The arrow line leaves states behind; a host of its own knows, and an ended painter complains of others.
    m_painter->end();
}

} // namespace Fuzz

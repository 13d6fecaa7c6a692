#include "Layers.h"

#include "CInkGraph.h"

#include <QtGui/QPainter>

namespace Board {

namespace {

// A fresh painter for one Draw, so that no clip outlives it.
//
// An object may also leave saved states on the painter's stack, and QPainter complains about each of them when it
// ends. The lowest state is therefore marked and everything above it is taken back. The mark is the background
// brush, which shows in opaque background mode only.
class LayerPainter
{
public:
    explicit LayerPainter(QImage &image)
        : m_painter(&image)
    {
        const QBrush background = m_painter.background();
        m_painter.setBackground(kMark);
        m_painter.save();
        m_painter.setBackground(background);
    }
    ~LayerPainter()
    {
        while (m_painter.isActive() && m_painter.background().color() != kMark)
            m_painter.restore();
    }

    operator QPainter &() { return m_painter; }

private:
    Q_DISABLE_COPY(LayerPainter)

    const QColor kMark{1, 2, 3, 4};
    QPainter m_painter;
};

} // namespace

Layers::Layers(const QSize &size)
    : m_page(size, QImage::Format_RGB32)
    , m_surface(size, QImage::Format_RGB32)
    , m_background(size, QImage::Format_RGB32)
    , m_ink(size, QImage::Format_ARGB32_Premultiplied)
{
    if (isNull())
        return;
    m_background.fill(Qt::white);
    m_page.fill(Qt::white);
    m_surface.fill(Qt::white);
    m_ink.fill(Qt::transparent);
}

bool Layers::isNull() const
{
    return m_page.isNull() || m_surface.isNull() || m_background.isNull() || m_ink.isNull();
}

void Layers::reset()
{
    m_ink.fill(Qt::transparent);
    QPainter page(&m_page);
    page.setCompositionMode(QPainter::CompositionMode_Source);
    page.drawImage(QPoint(), m_background);
    page.end();
    showPage(rect());
}

void Layers::showPage(const QRect &area)
{
    if (area.isEmpty())
        return;
    QPainter surface(&m_surface);
    surface.setCompositionMode(QPainter::CompositionMode_Source);
    surface.drawImage(area.topLeft(), m_page, area);
}

void Layers::draw(CInkGraph &object, const QRect &area, Background background)
{
    LayerPainter page(m_page);
    LayerPainter surface(m_surface);
    LayerPainter under(m_background);
    LayerPainter ink(m_ink);
    object.Draw(page, surface, under, ink, area, background == Background::New ? 1 : 0, 0);
}

} // namespace Board

#include "lesson/layers/Layers.h"

#include "lesson/layers/StateMark.h"

#include "CInkFloodFill.h"

#include <QtGui/QPainter>

#include <algorithm>

namespace InkLesson {

namespace {

// A fresh painter for one Draw, so that no clip outlives it.
class LayerPainter
{
public:
    explicit LayerPainter(QImage &image)
        : m_painter(&image)
    {
    }

    operator QPainter &() { return m_painter; }

private:
    QPainter m_painter;
    StateMark m_mark{m_painter};
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

void Layers::exchange(Patch &page, Patch &ink)
{
    page.exchange(m_page);
    ink.exchange(m_ink);
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

bool paintsNear(CInkGraph &object, const QPoint &pt, int reach)
{
    const int side = 2 * reach + 1;
    QRect area(pt - QPoint(reach, reach), QSize(side, side));
    QImage image(area.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    if (const auto *fill = dynamic_cast<CInkFloodFill *>(&object)) { // paints on layers only
        if (!fill->m_pImage)
            return false;
        image = fill->m_pImage->copy(area.translated(-fill->m_rcCanvas.topLeft())).convertToFormat(image.format());
    } else {
        LayerPainter layer(image);
        QPainter &painter = layer;
        painter.setWindow(area); // below the transform, which the object sets itself
        object.Draw(painter, area);
    }
    const auto *first = reinterpret_cast<const QRgb *>(image.constBits());
    return std::any_of(first, first + std::ptrdiff_t(side) * side, [](QRgb pixel) { return qAlpha(pixel) != 0; });
}

} // namespace InkLesson

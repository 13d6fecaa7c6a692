#include "lesson/pages/PageLayers.h"

#include "lesson/layers/StateMark.h"
#include "lesson/pages/Difference.h"
#include "lesson/pages/Sprite.h"

#include "CInkGraph.h"

#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>

#include <algorithm>

namespace InkLesson {

namespace {

// A painter for many objects, each of which finds it as the one before did.
class LayerPainter
{
public:
    LayerPainter(QImage &image, const QRegion &area)
        : m_image(image)
    {
        m_image.paintEngine()->setSystemClip(area);
        m_painter.begin(&m_image);
    }
    ~LayerPainter()
    {
        m_painter.end();
        m_image.paintEngine()->setSystemClip(QRegion());
    }

    QPainter &painter() { return m_painter; }

private:
    Q_DISABLE_COPY(LayerPainter)

    QImage &m_image;
    QPainter m_painter;
};

// The same pixels. No object paints on them, but they read them through a painter, which would copy all of an image
// that others share, or that may only be read.
QImage viewOf(const QImage &image)
{
    return QImage(const_cast<uchar *>(image.constBits()), image.width(), image.height(), image.bytesPerLine(),
                  image.format());
}

} // namespace

PageLayers::PageLayers(const QSize &size, Pixels pixels)
    : m_page(size, QImage::Format_RGB32)
    , m_surface(size, QImage::Format_RGB32)
    , m_background(size, QImage::Format_RGB32)
    , m_ink(size, QImage::Format_ARGB32_Premultiplied)
{
    if (isNull() || pixels == Pixels::Any)
        return;
    m_background.fill(Qt::white);
    m_page.fill(Qt::white);
    m_surface.fill(Qt::white);
    m_ink.fill(Qt::transparent);
}

bool PageLayers::isNull() const
{
    return m_page.isNull() || m_surface.isNull() || m_background.isNull() || m_ink.isNull();
}

void PageLayers::clear(const QRect &area)
{
    QPainter ink(&m_ink);
    ink.setCompositionMode(QPainter::CompositionMode_Source);
    ink.fillRect(area, Qt::transparent);
    clearPage(area);
}

void PageLayers::clearPage(const QRect &area)
{
    QPainter page(&m_page);
    page.setCompositionMode(QPainter::CompositionMode_Source);
    page.drawImage(area.topLeft(), m_background, area);
}

void PageLayers::layPage(const Difference &where, const std::vector<const Sprite *> &sprites)
{
    for (int y = 0; y < where.height(); ++y) {
        if (where.begin(y) == where.end(y))
            continue;
        const auto *from = reinterpret_cast<const QRgb *>(m_background.constScanLine(y));
        auto *to = reinterpret_cast<QRgb *>(m_page.scanLine(y));
        for (const Difference::Span *span = where.begin(y); span != where.end(y); ++span)
            std::copy(from + span->from, from + span->to, to + span->from);
    }
    for (const Sprite *sprite : sprites)
        sprite->paint(m_page, where);
}

void PageLayers::restore(const QPoint &at, const QImage &page, const QImage &ink)
{
    for (const auto &[layer, copy] : {std::pair(&m_page, &page), std::pair(&m_ink, &ink)}) {
        QPainter painter(layer);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.drawImage(at, *copy);
    }
}

void PageLayers::showPage(const QRegion &area)
{
    QPainter surface(&m_surface);
    surface.setCompositionMode(QPainter::CompositionMode_Source);
    for (const QRect &part : area)
        surface.drawImage(part.topLeft(), m_page, part);
}

// What an object in progress does to the page, and a committed one to the surface, goes to images that nobody sees.
struct LayerPainting::Painters
{
    Painters(PageLayers &layers, On on, const QRect &area)
        : page(on != On::Surface ? layers.m_page : unseenPage, on != On::Surface ? QRegion(area) : QRegion())
        , surface(on == On::Surface ? layers.m_surface : unseenSurface, on == On::Surface ? QRegion(area) : QRegion())
        , under(background = viewOf(layers.m_background), QRegion())
        , ink(on == On::PageAndInk ? layers.m_ink : unseenInk, on == On::PageAndInk ? QRegion(area) : QRegion())
    {
    }

    QImage unseenPage{1, 1, QImage::Format_RGB32};
    QImage unseenSurface{1, 1, QImage::Format_RGB32};
    QImage unseenInk{1, 1, QImage::Format_ARGB32_Premultiplied};
    QImage background;
    LayerPainter page, surface, under, ink;
};

LayerPainting::LayerPainting(PageLayers &layers, On on, const QRect &area)
    : m_layers(layers)
    , m_on(on)
    , m_area(area)
{
}

LayerPainting::~LayerPainting()
{
    paintSprites();
}

// A tile after the other, so that its pixels stay near the processor.
void LayerPainting::paintSprites()
{
    constexpr QSize kTile(512, 256);
    for (int top = m_area.top(); top <= m_area.bottom() && !m_sprites.empty(); top += kTile.height()) {
        for (int left = m_area.left(); left <= m_area.right(); left += kTile.width()) {
            const QRect tile = QRect(QPoint(left, top), kTile) & m_area;
            for (const Sprite *sprite : m_sprites) {
                if (!sprite->rect().intersects(tile))
                    continue;
                if (m_on == On::Page)
                    sprite->paint(m_layers.m_page, tile);
                else
                    sprite->paint(m_layers.m_page, m_layers.m_ink, tile);
            }
        }
    }
    m_sprites.clear();
}

void LayerPainting::paint(CInkGraph &object, const QRect &reach)
{
    paintSprites();
    if (!m_painters)
        m_painters = std::make_unique<Painters>(m_layers, m_on, m_area);
    Painters &on = *m_painters;
    const StateMark page(on.page.painter()), surface(on.surface.painter()), under(on.under.painter()),
        ink(on.ink.painter());
    object.Draw(on.page.painter(), on.surface.painter(), on.under.painter(), on.ink.painter(), reach, 0, 0);
}

} // namespace InkLesson

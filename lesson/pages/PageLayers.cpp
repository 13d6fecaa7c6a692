#include "lesson/pages/PageLayers.h"

#include "lesson/layers/StateMark.h"
#include "lesson/pages/Difference.h"
#include "lesson/pages/PixelRows.h"
#include "lesson/pages/Sprite.h"
#include "lesson/pages/Workers.h"

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

constexpr qint64 kWorthSharing = 1 << 20; // pixels

qint64 pixels(const QRect &area)
{
    return qint64(area.width()) * area.height();
}

void copyPixels(const QImage &from, const PixelRows &to, const QRect &area)
{
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const QRgb *row = reinterpret_cast<const QRgb *>(from.constScanLine(y)) + area.left();
        std::copy_n(row, area.width(), to.row(y) + area.left());
    }
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
    const PixelRows page(m_page);
    shareOut(m_workers, rect(), [&](const QRect &part) {
        for (int y = part.top(); y <= part.bottom(); ++y) {
            for (const Difference::Span *span = where.begin(y); span != where.end(y); ++span)
                copyPixels(m_background, page, {span->from, y, span->to - span->from, 1});
        }
        for (const Sprite *sprite : sprites)
            sprite->paint(page, where, part);
    });
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
    const PixelRows surface(m_surface);
    for (const QRect &rect : area) {
        shareOut(pixels(rect) < kWorthSharing ? nullptr : m_workers, rect & this->rect(),
                 [&](const QRect &part) { copyPixels(m_page, surface, part); });
    }
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

void LayerPainting::paintSprites()
{
    if (m_sprites.empty())
        return;
    qint64 work = 0;
    for (const Sprite *sprite : m_sprites)
        work += pixels(sprite->rect() & m_area);
    const PixelRows page(m_layers.m_page), ink(m_on == On::Page ? m_layers.m_page : m_layers.m_ink);
    shareOut(work < kWorthSharing ? nullptr : m_layers.m_workers, m_area,
             [&](const QRect &part) { paintSprites(page, ink, part); });
    m_sprites.clear();
}

// A tile after the other, so that its pixels stay near the processor.
void LayerPainting::paintSprites(const PixelRows &page, const PixelRows &ink, const QRect &part) const
{
    constexpr QSize kTile(512, 256);
    for (int top = part.top(); top <= part.bottom(); top += kTile.height()) {
        for (int left = part.left(); left <= part.right(); left += kTile.width()) {
            const QRect tile = QRect(QPoint(left, top), kTile) & part;
            for (const Sprite *sprite : m_sprites) {
                if (!sprite->rect().intersects(tile))
                    continue;
                if (m_on == On::Page)
                    sprite->paint(page, tile);
                else
                    sprite->paint(page, ink, tile);
            }
        }
    }
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

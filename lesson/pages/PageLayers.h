#pragma once

#include "lesson/Export.h"

#include <QtCore/QRect>
#include <QtGui/QImage>
#include <QtGui/QRegion>

#include <memory>
#include <utility>
#include <vector>

class CInkGraph;

namespace InkLesson {

class Difference;
class PackedLayers;
class PixelRows;
class Sprite;
class Workers;

// The four images that an object paints on, all of one size and in page pixels.
class INKLESSON_EXPORT PageLayers
{
public:
    enum class Pixels { White, Any };

    // Null where there is not enough memory for all four.
    explicit PageLayers(const QSize &size, Pixels pixels = Pixels::White);

    // May paint what is large together, from now on; null for none.
    void lend(Workers *workers) { m_workers = workers; }

    bool isNull() const;
    QRect rect() const { return m_page.rect(); }

    const QImage &surface() const { return m_surface; } // what is shown: the page and the objects in progress
    const QImage &page() const { return m_page; }       // the background with the committed ink; opaque
    const QImage &ink() const { return m_ink; }         // the committed ink alone, on transparency

    const QImage &background() const { return m_background; } // the picture that lies under the ink; opaque

    // Takes effect with the next clear(). `picture` is of the layers' size.
    void setBackground(QImage picture) { m_background = std::move(picture); }

    // Takes all committed ink away from `area`.
    void clear(const QRect &area);

    // The same of the page, while the ink keeps its own.
    void clearPage(const QRect &area);

    // The same with what is told by `where`, on which `sprites` are then painted, the first one lowest.
    void layPage(const Difference &where, const std::vector<const Sprite *> &sprites);

    // What was copied from page and ink.
    void restore(const QPoint &at, const QImage &page, const QImage &ink);

    // Makes the surface the page again within `area`.
    void showPage(const QRegion &area);

private:
    friend class LayerPainting;
    friend class PackedLayers;

    QImage m_page;
    QImage m_surface;
    QImage m_background;
    QImage m_ink;
    Workers *m_workers{};
};

// Lets objects paint themselves, one over the other: committed ones on page and ink, or on the page alone where the ink
// has them already, others on the surface. None paints outside of `area`, whatever clip it sets.
class INKLESSON_EXPORT LayerPainting
{
public:
    enum class On { PageAndInk, Page, Surface };

    LayerPainting(PageLayers &layers, On on, const QRect &area);
    ~LayerPainting();

    // `reach` is what the object is asked to repaint.
    void paint(CInkGraph &object, const QRect &reach);

    // But on the surface, what a committed object has painted. It outlives this.
    void paint(const Sprite &sprite) { m_sprites.push_back(&sprite); }

private:
    Q_DISABLE_COPY(LayerPainting)

    void paintSprites();
    void paintSprites(const PixelRows &page, const PixelRows &ink, const QRect &part) const;

    PageLayers &m_layers;
    const On m_on;
    const QRect m_area;
    std::vector<const Sprite *> m_sprites; // not painted yet
    struct Painters;
    std::unique_ptr<Painters> m_painters; // null until an object paints itself
};

} // namespace InkLesson

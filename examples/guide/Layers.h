#pragma once

#include <QtCore/QRect>
#include <QtGui/QImage>

class CInkGraph;

namespace Guide {

// The four layers of one page: images of one size, with devicePixelRatio 1.
class Layers
{
public:
    explicit Layers(const QSize &size);

    QRect rect() const { return page.rect(); }

    // Makes the page what it is without objects.
    void clear();

    // Shows the page on the surface.
    void restore(const QRect &area);

    // Paints an object with painters of its own. `reserved` is for the eraser, after the background has changed.
    void draw(CInkGraph &object, const QRect &area, int reserved = 0);

    QImage page, surface, background, ink;
};

} // namespace Guide

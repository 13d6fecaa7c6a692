#pragma once

#include "lesson/Export.h"
#include "lesson/layers/Patch.h"

#include <QtCore/QRect>
#include <QtGui/QImage>

#include <utility>

class CInkGraph;

namespace InkLesson {

// Whether the background is the one that the object was painted over before.
enum class Background { Same, New };

// The four images that an object paints on, all of one size and in page pixels.
class INKLESSON_EXPORT Layers
{
public:
    // White. Null where there is not enough memory for all four.
    explicit Layers(const QSize &size);

    bool isNull() const;
    QRect rect() const { return m_page.rect(); }

    const QImage &surface() const { return m_surface; } // what is shown: the page and the object in progress
    const QImage &page() const { return m_page; }       // the background with the committed ink; opaque
    const QImage &ink() const { return m_ink; }         // the committed ink alone, on transparency

    const QImage &background() const { return m_background; } // the picture that lies under the ink; opaque

    // Takes effect with the next reset(). `picture` is of the layers' size.
    void setBackground(QImage picture) { m_background = std::move(picture); }

    // Takes all ink away.
    void reset();

    // Gives page and ink another state; what is shown stays.
    void exchange(Patch &page, Patch &ink);

    // Makes the surface the page again within `area`.
    void showPage(const QRect &area);

    // Lets the object paint itself once. `area` is what is to be repainted; it may be empty.
    void draw(CInkGraph &object, const QRect &area, Background background = Background::Same);

private:
    QImage m_page;
    QImage m_surface;
    QImage m_background; // the picture that lies under the ink
    QImage m_ink;
};

// Whether the object paints anything within `reach` pixels of the point to all sides.
INKLESSON_EXPORT bool paintsNear(CInkGraph &object, const QPoint &pt, int reach);

} // namespace InkLesson

#pragma once

#include "lesson/pages/Sprite.h"

#include <cstdlib>
#include <memory>

class CInkGraph;
class CInkPenGraph;

namespace InkLesson {

// Where objects paint what becomes a sprite: pixels as large as a page, transparent in between.
class INKLESSON_EXPORT Sketch
{
public:
    // Of what a committed object paints within `reach` of a page of that size, asked to repaint `asked`. Null where it
    // would take too much memory.
    std::shared_ptr<const Sprite> spriteOf(CInkGraph &object, const QRect &asked, const QRect &reach,
                                           const QSize &page);

    // The same of a pen whose canvas is as large as the page, and which has rendered nothing yet. It does so into
    // pixels that are kept here for the next one, and has none of its own then. Without a sprite it has them.
    std::shared_ptr<const Sprite> spriteOfPen(CInkPenGraph &pen, const QRect &asked, const QRect &reach,
                                              const QSize &page);

private:
    struct Free
    {
        void operator()(void *memory) const { std::free(memory); }
    };

    // Transparent pixels of a page. Wherever `corner` is on it, the pixels from there on lie in the same memory, so
    // that the processor has it at hand.
    QImage pixelsFrom(const QPoint &corner, const QSize &page);

    std::unique_ptr<QRgb, Free> m_memory; // twice as much as a page has, of which little is ever touched
    QSize m_size;                         // of the page
    std::unique_ptr<QImage> m_canvas;     // blank
};

} // namespace InkLesson

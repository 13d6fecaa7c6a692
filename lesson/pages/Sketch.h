#pragma once

#include "lesson/pages/Sprite.h"

#include <memory>

class CInkGraph;

namespace InkLesson {

// Where objects paint what becomes a sprite: pixels as large as a page, transparent in between.
class INKLESSON_EXPORT Sketch
{
public:
    // Of what a committed object paints within `reach` of a page of that size, asked to repaint `asked`. Null where it
    // would take too much memory.
    std::shared_ptr<const Sprite> spriteOf(CInkGraph &object, const QRect &asked, const QRect &reach,
                                           const QSize &page);

private:
    QImage m_pixels;
};

} // namespace InkLesson

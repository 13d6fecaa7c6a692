#pragma once

#include "CInkPencil.h"

class QBrush;
class QPen;

// Paints the background picture back over a freehand stroke.
//
// While the stroke grows it covers the working surface `p2`; once finished it covers the page `p1` where that has ink
// or paper, and makes the ink layer `p4` transparent. `p3` must paint into a QImage, the background; with any other
// device nothing is painted over. See ink-eraser-source-in, ink-eraser-double-tap, ink-eraser-disc-halved and
// ink-eraser-bevel.
class INK_EXPORT CInkEraser : public CInkPencil
{
public:
    // Width 1; the texture is made at the first Draw.
    CInkEraser();
    ~CInkEraser() override;

    using CInkPencil::Draw;

    // A non-zero `rebuildPen` takes a new copy of the background, after it has changed or the width was set.
    void Draw(QPainter &p1, QPainter &p2, QPainter &p3, QPainter &p4, QRect rc, int rebuildPen, int skip) override;

    // The texture's pen takes the width once it is rebuilt; the disc, the ink layer and the rectangles take it at once.
    // Frees m_pWidthCache.
    void SetWidth(int width) override;
    QRect GetUpdateRect() override;
    void AddPoint(int code, QPoint pt, QRect &update) override;

    // Makes the erasing brush and pen from a copy of the image that `background` paints into. Without such an image
    // there is no texture.
    void FormErasePen(QPainter &background);

    QBrush *m_pEraseBrush{nullptr}; // owned; the background as a texture
    QPen *m_pErasePen{nullptr};     // owned; strokes with m_pEraseBrush
};

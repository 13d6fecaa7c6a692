#pragma once

// A text frame in its phases, and an image for it.

#include "CInkText.h"
#include "Canvas.h"

#include <QtGui/QImage>

// Dragged from (100,100) to (299,249), which is 200 x 150 pixels.
class DraggedText : public CInkText
{
public:
    DraggedText()
    {
        feed(*this, PT_DOWN, 100, 100);
        feed(*this, PT_MOVE, 299, 249);
    }
};

class EditedText : public DraggedText
{
public:
    EditedText() { feed(*this, PT_UP, 299, 249); }
};

// 60 x 40 pixels of translucent colours; the first is opaque white.
inline QImage renderedText()
{
    QImage image(60, 40, QImage::Format_ARGB32);
    for (int y = 0; y < 40; ++y) {
        for (int x = 0; x < 60; ++x)
            image.setPixel(x, y, qRgba(4 * x, 6 * y, 60 * (x % 4), 100 + 3 * y));
    }
    image.setPixel(0, 0, 0xFFFFFFFFu);
    return image;
}

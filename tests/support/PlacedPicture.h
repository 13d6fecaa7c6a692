#pragma once

// A picture of 200 x 100 pixels on the canvas, and what it paints without its debug lines.

#include "CInkPicTure.h"
#include "Canvas.h"
#include "MessageLog.h"

#include <QtGui/QImage>

// Every pixel of a translucent colour that its neighbours do not have; the first is opaque white.
inline QImage stripes(int width = 200, int height = 100)
{
    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, qRgba(x * 255 / width, y * 255 / height, 60 * (x % 4), 100 + y % 100));
    }
    image.setPixel(0, 0, 0xFFFFFFFFu);
    return image;
}

// The picture of 200 x 100 pixels with its top left corner at (100,80).
class Placed : public CInkPicTure
{
public:
    Placed()
        : CInkPicTure(&s_image, QPoint(100, 80))
    {
    }

private:
    static inline QImage s_image = stripes();
};

inline QImage drawnQuietly(CInkGraph &graph, const QSize &size = {400, 300})
{
    const MessageLog log;
    return drawn(graph, size);
}

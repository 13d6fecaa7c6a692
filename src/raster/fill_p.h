#pragma once

// What the two fills share.

#include "CInkFloodFill.h"
#include "core/painting_p.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>

#include <initializer_list>

namespace InkInternal {

// FormFloodFillBmp, telling the bounds of what this call has filled; empty where there was nothing to fill.
QRect formFill(CInkFloodFill &fill, QPainter &layer);

// Paints the bitmap over the canvas. Where transparent pixels change nothing, those outside `ink` are left out: all of
// them are transparent, and the bitmap is of the canvas's size unless `ink` is the whole of it.
inline void paintBitmap(const QImage &bitmap, const QRect &canvas, const QRect &ink,
                        std::initializer_list<QPainter *> layers)
{
    if (bitmap.isNull())
        return;
    // A pixel more at every side: an image of one pixel is painted as a colour, which rounds otherwise.
    const QRect source = ink.isEmpty() ? QRect() : grown(ink, 1) & bitmap.rect();
    for (QPainter *layer : layers) {
        const bool inkAlone = keepsWhatIsUnderNothing(*layer);
        if (inkAlone && source.isEmpty())
            continue;
        if (inkAlone && source != bitmap.rect() && canvas.topLeft().isNull() && isWholeShift(layer->deviceTransform()))
            layer->drawImage(source.topLeft(), bitmap, source);
        else
            paintImage(*layer, real(canvas), bitmap, QRectF(0, 0, double(width(canvas)), double(height(canvas))));
    }
}

} // namespace InkInternal

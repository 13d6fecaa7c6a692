#pragma once

// What the two fills share.

#include "CInkFloodFill.h"
#include "core/painting_p.h"
#include "raster/layer_p.h"

#include <QtGui/QImage>
#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>

#include <initializer_list>

namespace InkInternal {

// FormFloodFillBmp, telling the bounds of what this call has filled; empty where there was nothing to fill.
QRect formFill(CInkFloodFill &fill, QPainter &layer);

// Whether a transparent pixel leaves what is below it alone, to the last bit. On a plain ARGB32 image it does not:
// translucent pixels there pass through their premultiplied form.
inline bool keepsWhatIsUnderNothing(const QPainter &layer)
{
    const QImage *image = layerImage(layer);
    const QPaintEngine *engine = layer.paintEngine(); // null where painting on the image could not begin
    if (!image || !engine || engine->type() != QPaintEngine::Raster ||
        layer.compositionMode() != QPainter::CompositionMode_SourceOver)
        return false;
    switch (image->format()) {
    case QImage::Format_RGB32:
    case QImage::Format_ARGB32_Premultiplied:
    case QImage::Format_RGB16:
    case QImage::Format_RGB888:
        return true;
    default:
        return false;
    }
}

// Whether a layer shows pixel for pixel, at whole pixels not so far away that sums of them wrap.
inline bool isPixelForPixel(const QTransform &transform)
{
    constexpr double kFar = 1 << 24;
    const auto isNear = [](double shift) { return shift == double(truncated(shift)) && qAbs(shift) < kFar; };
    return transform.type() <= QTransform::TxTranslate && isNear(transform.dx()) && isNear(transform.dy());
}

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
        if (inkAlone && source != bitmap.rect() && canvas.topLeft().isNull() &&
            isPixelForPixel(layer->deviceTransform()))
            layer->drawImage(source.topLeft(), bitmap, source);
        else
            paintImage(*layer, real(canvas), bitmap, QRectF(0, 0, double(width(canvas)), double(height(canvas))));
    }
}

} // namespace InkInternal

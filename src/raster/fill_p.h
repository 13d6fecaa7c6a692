#pragma once

// What the two fills share.

#include "core/geometry_p.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>

#include <initializer_list>

namespace InkInternal {

inline void paintBitmap(const QImage &bitmap, const QRect &canvas, std::initializer_list<QPainter *> layers)
{
    if (bitmap.isNull())
        return;
    for (QPainter *layer : layers)
        layer->drawImage(real(canvas), bitmap, QRectF(0, 0, double(width(canvas)), double(height(canvas))));
}

} // namespace InkInternal

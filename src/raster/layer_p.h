#pragma once

#include <QtGui/QImage>
#include <QtGui/QPainter>

namespace InkInternal {

// The image that a layer's painter paints into; null for every other device.
inline QImage *layerImage(const QPainter &layer)
{
    QPaintDevice *device = layer.device();
    return device && device->devType() == QInternal::Image ? static_cast<QImage *>(device) : nullptr;
}

// Puts `image` into `slot`. One object for the life of the tool, so that pointers to it stay valid.
inline void assignImage(QImage *&slot, const QImage &image)
{
    if (!slot)
        slot = new QImage;
    *slot = image;
}

} // namespace InkInternal

#pragma once

#include <QtCore/QPoint>
#include <QtCore/QRect>
#include <QtGui/QRgb>

class QImage;

namespace InkInternal {

// Floods the 4-connected region of `image` that has the colour of `seed`, alpha left aside, and returns its bounds.
//
// `within` lies inside the image and holds the seed. The opaque `color` is written into the image and, where it has
// such pixels, into `bitmap`, which may be null. Takes about half a byte of memory for each pixel of `within`.
QRect floodRegion(QImage &image, QImage *bitmap, const QRect &within, const QPoint &seed, QRgb color);

} // namespace InkInternal

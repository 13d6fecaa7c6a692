#pragma once

#include <QtGui/QImage>

class QIODevice;

namespace InkInternal {

// The image in `device`, its format told from the bytes. Null when it cannot be decoded, or would decode to more than
// 256 megapixels.
QImage decoded(QIODevice *device);

} // namespace InkInternal

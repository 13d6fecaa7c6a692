#include "decode_p.h"

#include "pixels_p.h"

#include <QtGui/QImageReader>

using namespace InkInternal;

QImage InkInternal::decoded(QIODevice *device)
{
    QImageReader reader(device);
    reader.setDecideFormatFromContent(true);
    if (!fitsIntoMemory(reader.size()))
        return {};
    const QImage image = reader.read();
    return fitsIntoMemory(image.size()) ? image : QImage();
}

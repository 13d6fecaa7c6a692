#include "cache_p.h"

#include "geometry_p.h"
#include "pixels_p.h"

#include <memory>

using namespace InkInternal;

QRect InkInternal::canvasRect(const QSize &size)
{
    return edges(0, 0, qint64(size.width()) - 1, qint64(size.height()) - 1);
}

QImage InkInternal::blankPixels(const QRect &canvas)
{
    const QSize size(saturated(width(canvas)), saturated(height(canvas)));
    if (!fitsIntoMemory(size))
        return {};
    QImage image(size, QImage::Format_ARGB32);
    image.fill(0);
    return image;
}

bool InkInternal::ensureCache(CInkGraph &graph, const QRect &canvas)
{
    if (!graph.m_pImage) {
        auto image = std::make_unique<QImage>(blankPixels(canvas));
        if (!image->isNull())
            graph.m_pImage = image.release();
    }
    return graph.m_pImage && !graph.m_pImage->isNull();
}

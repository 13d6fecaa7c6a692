#include "cache_p.h"

#include "geometry_p.h"

#include <QtGui/QImage>

#include <memory>

using namespace InkInternal;

QRect InkInternal::canvasRect(const QSize &size)
{
    return edges(0, 0, qint64(size.width()) - 1, qint64(size.height()) - 1);
}

bool InkInternal::ensureCache(CInkGraph &graph, const QRect &canvas)
{
    if (!graph.m_pImage) {
        auto image =
            std::make_unique<QImage>(saturated(width(canvas)), saturated(height(canvas)), QImage::Format_ARGB32);
        image->fill(0);
        if (!image->isNull())
            graph.m_pImage = image.release();
    }
    return graph.m_pImage && !graph.m_pImage->isNull();
}

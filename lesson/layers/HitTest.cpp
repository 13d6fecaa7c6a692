#include "lesson/layers/HitTest.h"

#include "lesson/layers/StateMark.h"

#include "CInkFloodFill.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>

#include <algorithm>

namespace InkLesson {

bool paintsNear(CInkGraph &object, const QPoint &pt, int reach)
{
    const int side = 2 * reach + 1;
    QRect area(pt - QPoint(reach, reach), QSize(side, side));
    QImage image(area.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    if (const auto *fill = dynamic_cast<CInkFloodFill *>(&object)) { // paints on layers only
        if (!fill->m_pImage)
            return false;
        image = fill->m_pImage->copy(area.translated(-fill->m_rcCanvas.topLeft())).convertToFormat(image.format());
    } else {
        QPainter painter(&image);
        const StateMark mark(painter);
        painter.setWindow(area); // below the transform, which the object sets itself
        object.Draw(painter, area);
    }
    const auto *first = reinterpret_cast<const QRgb *>(image.constBits());
    return std::any_of(first, first + std::ptrdiff_t(side) * side, [](QRgb pixel) { return qAlpha(pixel) != 0; });
}

} // namespace InkLesson

#include "lesson/pages/Sketch.h"

#include "lesson/layers/StateMark.h"

#include "CInkGraph.h"

#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>

#include <algorithm>

namespace InkLesson {

std::shared_ptr<const Sprite> Sketch::spriteOf(CInkGraph &object, const QRect &asked, const QRect &reach,
                                               const QSize &page)
{
    if (reach.isEmpty())
        return std::make_shared<const Sprite>();
    if (m_pixels.size() != page) {
        m_pixels = QImage(page, QImage::Format_ARGB32_Premultiplied);
        m_pixels.fill(Qt::transparent);
    }
    if (m_pixels.isNull())
        return nullptr;
    m_pixels.paintEngine()->setSystemClip(reach);
    {
        QPainter painter(&m_pixels);
        const StateMark mark(painter);
        QRect area = asked;
        object.Draw(painter, area);
    }
    m_pixels.paintEngine()->setSystemClip(QRegion());
    std::optional<Sprite> sprite = Sprite::of(m_pixels, reach, object.m_color);
    const QRect painted = sprite ? sprite->rect() : reach;
    for (int y = painted.top(); y <= painted.bottom(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(m_pixels.scanLine(y));
        std::fill(row + painted.left(), row + painted.right() + 1, 0);
    }
    return sprite ? std::make_shared<const Sprite>(std::move(*sprite)) : nullptr;
}

} // namespace InkLesson

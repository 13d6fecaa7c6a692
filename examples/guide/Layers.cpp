#include "Layers.h"

#include <CInk1ArrowLine>

#include <QtGui/QPainter>

namespace Guide {

//! [layers]
Layers::Layers(const QSize &size)
    : page(size, QImage::Format_RGB32) // opaque
    , surface(size, QImage::Format_RGB32)
    , background(size, QImage::Format_RGB32)
    , ink(size, QImage::Format_ARGB32_Premultiplied)
{
    background.fill(Qt::white);
    clear();
}

void Layers::clear()
{
    ink.fill(Qt::transparent);
    page = background.copy();
    surface = background.copy();
}

void Layers::restore(const QRect &area)
{
    const QRect inside = area & rect();
    QPainter painter(&surface);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(inside.topLeft(), page, inside);
}
//! [layers]

//! [draw]
void Layers::draw(CInkGraph &object, const QRect &area, int reserved)
{
    QPainter p1(&page), p2(&surface), p3(&background), p4(&ink);
    object.Draw(p1, p2, p3, p4, area, reserved, /*skip*/ 0);

    // The arrow line leaves two saved states on each painter that it has painted on.
    if (dynamic_cast<CInk1ArrowLine *>(&object) && object.m_nPointCount > 0) {
        for (QPainter *painter : {&p2, &p4, &p1}) {
            if (painter == &p2 || object.m_bFinished) {
                painter->restore();
                painter->restore();
            }
        }
    }
}
//! [draw]

} // namespace Guide

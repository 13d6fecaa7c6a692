#include "Output.h"

#include <CInkGraph>

#include <QtGui/QPageSize>
#include <QtGui/QPainter>
#include <QtGui/QPdfWriter>

namespace Guide {

//! [zoom]
void paintZoomed(QPainter &painter, const Layers &layers, double zoom, const QPointF &origin)
{
    painter.setRenderHint(QPainter::SmoothPixmapTransform, zoom < 1);
    painter.scale(zoom, zoom);
    painter.translate(-origin);
    painter.drawImage(QPointF(), layers.surface);
}
//! [zoom]

//! [sharp]
void paintSharp(QPainter &painter, const Layers &layers, double ratio)
{
    painter.drawImage(QRectF(QPointF(), QSizeF(layers.surface.size()) / ratio), layers.surface);
}
//! [sharp]

//! [thumbnail]
QImage thumbnail(const Layers &layers, const QSize &within)
{
    return layers.page.scaled(within, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}
//! [thumbnail]

//! [pdf]
bool writePdf(const QString &path, const Layers &layers)
{
    constexpr int kDotsPerInch = 96;
    constexpr double kPointsPerDot = 72.0 / kDotsPerInch;
    QPdfWriter pdf(path);
    pdf.setResolution(kDotsPerInch);
    pdf.setPageSize(QPageSize(QSizeF(layers.page.size()) * kPointsPerDot, QPageSize::Point));
    pdf.setPageMargins(QMarginsF());

    QPainter painter;
    if (!painter.begin(&pdf))
        return false;
    painter.setRenderHint(QPainter::LosslessImageRendering); // or the page is stored as a JPEG picture
    painter.drawImage(QRect(0, 0, pdf.width(), pdf.height()), layers.page);
    return painter.end();
}
//! [pdf]

//! [enlarged]
void paintEnlarged(QPainter &painter, CInkGraph &object, const QRect &page, const QRect &target)
{
    painter.setWindow(page); // these lie below the world transform, which the object may replace
    painter.setViewport(target);
    QRect area = page;
    object.Draw(painter, area);
}
//! [enlarged]

} // namespace Guide

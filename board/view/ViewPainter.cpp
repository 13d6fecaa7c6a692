#include "board/view/ViewPainter.h"

#include "board/look/Style.h"
#include "board/view/View.h"

#include <QtCore/QtMath>
#include <QtGui/QImage>
#include <QtGui/QPainter>

#include <algorithm>

namespace Board {

namespace {

constexpr int kMixed = 2; // neighbours that a pixel may be mixed with

// The mean of each channel, halves downwards.
QRgb mean(QRgb a, QRgb b)
{
    return (a & b) + (((a ^ b) & 0xFEFEFEFEU) >> 1);
}

// Half as large: each pixel is the mean of four.
QImage halved(const QImage &image, const QRect &area)
{
    QImage half((area.width() + 1) / 2, (area.height() + 1) / 2, image.format());
    for (int y = 0; y < half.height(); ++y) {
        const int above = area.top() + 2 * y;
        const auto *first = reinterpret_cast<const QRgb *>(image.constScanLine(above)) + area.left();
        const auto *second =
            reinterpret_cast<const QRgb *>(image.constScanLine(std::min(above + 1, area.bottom()))) + area.left();
        auto *to = reinterpret_cast<QRgb *>(half.scanLine(y));
        const int pairs = area.width() / 2;
        for (int x = 0; x < pairs; ++x)
            to[x] = mean(mean(first[2 * x], first[2 * x + 1]), mean(second[2 * x], second[2 * x + 1]));
        if (pairs < half.width())
            to[pairs] = mean(first[2 * pairs], second[2 * pairs]);
    }
    return half;
}

// To where one unit is a pixel of the device, and the widget begins at a whole one.
QTransform devicePixels(const QPainter &painter, double ratio)
{
    const QTransform &device = painter.deviceTransform();
    if (!qFuzzyCompare(device.m11(), ratio))
        return QTransform::fromScale(1 / ratio, 1 / ratio); // onto another device than the widget's own
    return QTransform::fromTranslate(qFloor(device.dx() + 0.5), qFloor(device.dy() + 0.5)) * device.inverted();
}

// `area` in pixels of the device. Smaller than half, Qt alone would leave pixels out.
void paintScaled(QPainter &painter, const View &view, const QImage &page, const QRect &area)
{
    double scale = view.scale();
    int block = 1; // page pixels a side that are one in `source`
    for (; scale < 0.5; scale *= 2)
        block *= 2;
    const QRectF shown(QPointF(area.topLeft() - view.corner()) / view.scale(), QSizeF(area.size()) / view.scale());
    const int margin = kMixed * block;
    const QPoint topLeft(std::max(qFloor(shown.left()) - margin, 0) / block * block,
                         std::max(qFloor(shown.top()) - margin, 0) / block * block);
    const QPoint end(qCeil(shown.right()) + margin, qCeil(shown.bottom()) + margin);
    QRect part = QRect(topLeft, end) & page.rect();
    if (part.isEmpty())
        return;
    QImage source = page;
    for (int side = block; side > 1; side /= 2) {
        source = halved(source, part);
        part = source.rect();
    }
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(view.corner());
    painter.scale(scale, scale);
    painter.drawImage(topLeft / block, source, part);
    painter.restore();
}

} // namespace

void paintView(QPainter &painter, const View &view, const QImage &page, const QRegion &region)
{
    painter.save();
    painter.setWorldTransform(devicePixels(painter, view.ratio()), true);
    const QSizeF size = QSizeF(page.size()) * view.scale();
    const QRect whole(view.corner(), QSize(qFloor(size.width()), qFloor(size.height())));
    for (const QRect &rect : region) {
        const QRectF device(QPointF(rect.topLeft()) * view.ratio(), QSizeF(rect.size()) * view.ratio());
        const QRect area = device.toAlignedRect();
        if (!whole.contains(area))
            painter.fillRect(area, QColor(kSurroundColor));
        if (view.scale() != 1)
            paintScaled(painter, view, page, area);
        else if (const QRect part = area & whole; !part.isEmpty())
            painter.drawImage(part.topLeft(), page, part.translated(-whole.topLeft()));
    }
    painter.restore();
}

} // namespace Board

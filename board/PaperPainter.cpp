#include "PaperPainter.h"

#include <QtGui/QPainter>

namespace Board {

namespace {

constexpr int kLineDistance = 32; // page pixels
constexpr QRgb kLineColor = 0xFFCBD8EA;

} // namespace

void paintPaper(QPainter &painter, const Paper &paper, const QSize &size)
{
    painter.fillRect(QRect(QPoint(), size), Qt::white);
    if (paper.kind == Paper::Kind::Picture)
        painter.drawImage(0, 0, paper.picture);
    if (paper.kind == Paper::Kind::Ruled || paper.kind == Paper::Kind::Squared) {
        for (int y = kLineDistance; y < size.height(); y += kLineDistance)
            painter.fillRect(0, y, size.width(), 1, QColor(kLineColor));
    }
    if (paper.kind == Paper::Kind::Squared) {
        for (int x = kLineDistance; x < size.width(); x += kLineDistance)
            painter.fillRect(x, 0, 1, size.height(), QColor(kLineColor));
    }
}

QImage paintedPaper(const Paper &paper, const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    if (image.isNull())
        return image;
    QPainter painter(&image);
    paintPaper(painter, paper, size);
    return image;
}

} // namespace Board

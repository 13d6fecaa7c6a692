#include "lesson/paper/PaperPainter.h"

#include <QtGui/QPainter>

#include <algorithm>

namespace InkLesson {

namespace {

constexpr int kLineDistance = 32; // pixels of a plain screen
constexpr QRgb kLineColor = 0xFFCBD8EA;

} // namespace

void paintPaper(QPainter &painter, const Paper &paper, const QSize &size, double density)
{
    const int line = std::max(int(density), 1);
    const auto place = [density](int number) { return qRound(number * kLineDistance * density); };
    painter.fillRect(QRect(QPoint(), size), Qt::white);
    if (paper.kind == Paper::Kind::Picture)
        painter.drawImage(0, 0, paper.picture);
    if (paper.kind == Paper::Kind::Ruled || paper.kind == Paper::Kind::Squared) {
        for (int i = 1; place(i) < size.height(); ++i)
            painter.fillRect(0, place(i), size.width(), line, QColor(kLineColor));
    }
    if (paper.kind == Paper::Kind::Squared) {
        for (int i = 1; place(i) < size.width(); ++i)
            painter.fillRect(place(i), 0, line, size.height(), QColor(kLineColor));
    }
}

QImage paintedPaper(const Paper &paper, const QSize &size, double density)
{
    QImage image(size, QImage::Format_RGB32);
    if (image.isNull())
        return image;
    QPainter painter(&image);
    paintPaper(painter, paper, size, density);
    return image;
}

QImage PaintedPapers::of(const Paper &paper, const QSize &size, double density)
{
    const bool isSame = m_image.size() == size && m_density == density && m_paper.kind == paper.kind &&
                        m_paper.picture.cacheKey() == paper.picture.cacheKey();
    if (!isSame) {
        m_paper = paper;
        m_density = density;
        m_image = paintedPaper(paper, size, density);
    }
    return m_image;
}

} // namespace InkLesson

#pragma once

// What a page is expected to look like, drawn without a page.

#include <QtGui/QImage>
#include <QtGui/QPainter>

#include <utility>

// White, with what `paint(QPainter &)` leaves on it.
template <typename Paint>
QImage paper(const QSize &size, Paint paint)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    paint(painter);
    painter.end();
    return image;
}

inline QImage blankPaper(const QSize &size)
{
    return paper(size, [](QPainter &) {});
}

inline void drawLine(QPainter &painter, const QColor &color, int width, const QPoint &from, const QPoint &to)
{
    painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawLine(QPointF(from), QPointF(to));
}

inline void drawBox(QPainter &painter, const QColor &color, int width, const QPoint &topLeft, const QPoint &bottomRight)
{
    painter.setPen(QPen(color, width, Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin));
    painter.drawRect(QRect(topLeft, bottomRight));
}

// Whether the images agree wherever `area` is not.
inline bool sameOutside(QImage first, QImage second, const QRect &area)
{
    for (QImage *image : {&first, &second}) {
        QPainter painter(image);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        if (!area.isEmpty())
            painter.fillRect(area, Qt::white);
    }
    return first == second;
}

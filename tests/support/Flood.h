#pragma once

// A fill worked out step by step, and pages to fill.

#include "Canvas.h"

#include <QtCore/QStringList>

#include <algorithm>
#include <queue>
#include <vector>

// What a fill leaves: the page, its own bitmap, the bounds of what it set, and whether it set anything.
struct Flood
{
    QImage page, bitmap;
    QRect bounds;
    bool filled;
};

// The fill in its plainest form. Pixels that the page lacks are a wall, and each pixel is filled once.
inline Flood plainFlood(const QImage &page, const QSize &canvas, const QPoint &seed, const QColor &color, QRect bounds)
{
    Flood flood{page.copy(), QImage(canvas, QImage::Format_ARGB32), bounds, false};
    flood.bitmap.fill(0);
    const int lastX = canvas.width() - 1;
    const int lastY = canvas.height() - 1;
    if (seed.x() < 0 || seed.y() < 0 || seed.x() > lastX || seed.y() > lastY || !page.rect().contains(seed))
        return flood;
    const QColor target(page.pixel(seed));
    if (color == target)
        return flood;

    std::vector<std::vector<bool>> done(size_t(page.height()), std::vector<bool>(size_t(page.width())));
    const auto matches = [&](int x, int y) {
        return page.rect().contains(x, y) && !done[size_t(y)][size_t(x)] && QColor(flood.page.pixel(x, y)) == target;
    };
    std::queue<QPoint> work({seed});
    for (; !work.empty(); work.pop()) {
        const QPoint at = work.front();
        if (!matches(at.x(), at.y()))
            continue;
        int left = at.x();
        while (left >= 1 && matches(left - 1, at.y()))
            left -= 1;
        int right = at.x();
        while (right < lastX && matches(right + 1, at.y()))
            right += 1;
        for (int x = left; x <= right; ++x) {
            done[size_t(at.y())][size_t(x)] = true;
            flood.page.setPixel(x, at.y(), color.rgb());
            flood.bitmap.setPixel(x, at.y(), color.rgb());
            flood.bounds.setLeft(std::min(flood.bounds.left(), x));
            flood.bounds.setTop(std::min(flood.bounds.top(), at.y()));
            flood.bounds.setRight(std::max(flood.bounds.right(), x));
            flood.bounds.setBottom(std::max(flood.bounds.bottom(), at.y()));
            if (at.y() > 0 && matches(x, at.y() - 1))
                work.emplace(x, at.y() - 1);
            if (at.y() < lastY && matches(x, at.y() + 1))
                work.emplace(x, at.y() + 1);
        }
    }
    flood.filled = true;
    return flood;
}

// Paints the object on a page and on two transparent layers.
struct FilledLayers
{
    FilledLayers(CInkGraph &graph, const QImage &onPage, const QRect &area = QRect(0, 0, 1000, 1000), int skip = 0)
        : page(onPage.copy())
        , surface(blankCanvas(onPage.size()))
        , background(surface)
        , ink(surface)
    {
        QPainter p1(&page), p2(&surface), p3(&background), p4(&ink);
        graph.Draw(p1, p2, p3, p4, area, 0, skip);
    }

    QImage page, surface, background, ink;
};

// '.' white, '#' black, 'o' red, ' ' nothing.
inline QImage picture(const QStringList &rows, QImage::Format format = QImage::Format_ARGB32_Premultiplied)
{
    QImage image(rows.first().size(), rows.size(), format);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QChar mark = rows[y][x];
            image.setPixel(x, y,
                           mark == '.'   ? 0xffffffffU
                           : mark == '#' ? 0xff000000U
                           : mark == 'o' ? 0xffff0000U
                                         : 0U);
        }
    }
    return image;
}

// Back from an image to its rows.
inline QStringList rowsOf(const QImage &image)
{
    QStringList rows;
    for (int y = 0; y < image.height(); ++y) {
        rows.append(QString());
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            rows.last() += pixel == 0xffffffffU   ? '.'
                           : pixel == 0xff000000U ? '#'
                           : pixel == 0xffff0000U ? 'o'
                           : pixel == 0           ? ' '
                                                  : '?';
        }
    }
    return rows;
}

// Rows as one text, for a readable difference.
inline std::string joined(const QStringList &rows)
{
    return rows.join('\n').toStdString();
}

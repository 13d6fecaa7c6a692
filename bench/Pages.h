#pragma once

// Pages to fill, all of them opaque black on white.

#include "Bench.h"
#include "LiteralPens.h"
#include "Strokes.h"

#include <algorithm>
#include <vector>

namespace Bench {

constexpr QPoint kSeed{1, 1};

inline QImage emptyPage()
{
    return canvas();
}

// Strokes that people drew, and made up ones beside them where the recordings are not there.
inline QImage writtenPage()
{
    QImage page = canvas();
    QPainter painter(&page);
    QVector<Stroke> strokes = recorded();
    for (int i = 0; strokes.size() < 500; ++i) {
        QVector<QPoint> points = writing(40);
        for (QPoint &point : points)
            point += QPoint(i * 977 % 3600, i * 619 % 2000);
        strokes.append({Qt::black, 4, points});
    }
    for (int i = 0; i < 500; ++i)
        Literal::paintPencil(painter, real(strokes.at(i).points), strokes.at(i).width, strokes.at(i).color);
    return page;
}

// A region of 300 x 300 on a page that is otherwise far larger.
inline QImage smallRegion()
{
    QImage page = canvas();
    QPainter painter(&page);
    painter.fillRect(0, 301, 302, 1, Qt::black);
    painter.fillRect(301, 0, 1, 302, Qt::black);
    return page;
}

// One corridor a pixel wide, up and down.
inline QImage comb()
{
    QImage page = canvas();
    QPainter painter(&page);
    for (int x = 2; x < kCanvas.width(); x += 2)
        painter.fillRect(x, x % 4 ? 0 : 1, 1, kCanvas.height() - 1, Qt::black);
    return page;
}

// One corridor a pixel wide, round and round to the middle.
inline QImage spiral()
{
    QImage page = canvas(Qt::black);
    QPainter painter(&page);
    painter.setPen(Qt::white);
    int from = 1; // where a round begins: below the end of the one before
    for (int inset = 1; 2 * inset < kCanvas.height() - 2; inset += 2) {
        const QRect round(QPoint(inset, inset), QPoint(kCanvas.width() - 1 - inset, kCanvas.height() - 1 - inset));
        painter.drawLine(from, round.top(), round.right(), round.top());
        painter.drawLine(round.topRight(), round.bottomRight());
        painter.drawLine(round.bottomRight(), round.bottomLeft());
        painter.drawLine(round.left(), round.bottom(), round.left(), round.top() + 2);
        from = round.left();
    }
    return page;
}

// Corridors a pixel wide that branch at random, always in the same way.
inline QImage maze()
{
    QImage page = canvas(Qt::black);
    const QSize cells(kCanvas.width() / 2, kCanvas.height() / 2);
    std::vector<bool> seen(size_t(cells.width()) * size_t(cells.height()));
    const auto visit = [&](const QPoint &cell) {
        seen[size_t(cell.y()) * size_t(cells.width()) + size_t(cell.x())] = true;
        page.setPixel(2 * cell.x() + 1, 2 * cell.y() + 1, 0xffffffffU);
    };
    unsigned random = 1;
    std::vector<QPoint> way{{0, 0}};
    visit(way.back());
    while (!way.empty()) {
        QPoint steps[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
        for (int i = 3; i > 0; --i) {
            random = random * 1664525U + 1013904223U;
            std::swap(steps[i], steps[(random >> 16) % unsigned(i + 1)]);
        }
        const QPoint here = way.back();
        const auto *step = std::find_if(std::begin(steps), std::end(steps), [&](const QPoint &by) {
            const QPoint next = here + by;
            return QRect(QPoint(), cells).contains(next) &&
                   !seen[size_t(next.y()) * size_t(cells.width()) + size_t(next.x())];
        });
        if (step == std::end(steps)) {
            way.pop_back();
            continue;
        }
        page.setPixel(2 * here.x() + 1 + step->x(), 2 * here.y() + 1 + step->y(), 0xffffffffU);
        visit(here + *step);
        way.push_back(here + *step);
    }
    return page;
}

} // namespace Bench

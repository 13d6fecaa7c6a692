#pragma once

// How an edge is followed through rows and pixels: the arithmetic of qgrayraster.c of Qt 5.15, which took it from
// FreeType's smooth rasteriser. Divisions hand their remainders on, from row to row and from pixel to pixel.

#include <QtCore/QtGlobal>

#include <algorithm>
#include <cstdlib>

namespace InkInternal {

// In 1/256 of a device pixel.
struct Edge
{
    int x1, y1, x2, y2;
};

constexpr int kSubpixelBits = 8;
constexpr int kSubpixels = 1 << kSubpixelBits; // of a pixel, in each direction

// Rounded down, with what remains.
struct Division
{
    int quotient, remainder;
};

inline Division divided(int dividend, int divisor)
{
    const int quotient = dividend / divisor;
    const int remainder = dividend % divisor;
    return remainder < 0 ? Division{quotient - 1, remainder + divisor} : Division{quotient, remainder};
}

// How much a pixel of a row is covered, from the `area` of its cell and the `height` of all cells up to it, 0 to 255 by
// the non-zero winding rule.
template <typename Number>
uchar coverageOf(Number area, Number height)
{
    constexpr Number kFull = 255;
    const Number covered = std::abs((2 * kSubpixels * height - area) >> (kSubpixelBits + 1));
    return uchar(std::min(covered, kFull));
}

// The part of an edge from (x1, y1) to (x2, y2) that lies in one row, both y counted from the row's top. Calls
// add(x, area, height) for each pixel, from that of (x1, y1) on: what is added to twice the area that lies between the
// edge and the left of the pixel, and to the height of what is covered of it and of all pixels right of it.
template <typename Add>
inline void walkRow(int x1, int y1, int x2, int y2, Add add)
{
    if (y1 == y2)
        return;
    int x = x1 >> kSubpixelBits;
    const int lastX = x2 >> kSubpixelBits;
    const int from = x1 - x * kSubpixels;
    const int to = x2 - lastX * kSubpixels;
    if (x == lastX)
        return add(x, (from + to) * (y2 - y1), y2 - y1);

    const bool isRight = x2 > x1;
    const int step = isRight ? 1 : -1;
    const int leave = isRight ? kSubpixels : 0; // where the edge leaves a pixel
    const int width = std::abs(x2 - x1);

    const Division start = divided(std::abs(leave - from) * (y2 - y1), width);
    add(x, (from + leave) * start.quotient, start.quotient);
    x += step;
    int rest = y2 - y1 - start.quotient;
    if (x != lastX) {
        const Division slope = divided(kSubpixels * (y2 - y1), width);
        int error = start.remainder;
        for (; x != lastX; x += step) {
            int height = slope.quotient;
            error += slope.remainder;
            if (error >= width) {
                error -= width;
                ++height;
            }
            add(x, kSubpixels * height, height);
            rest -= height;
        }
    }
    add(x, (to + kSubpixels - leave) * rest, rest);
}

// Calls addToRow(y, x1, y1, x2, y2) for each row of an edge, with what walkRow() takes. Rows for which !holds(y) may be
// left out; ahead(y, step) says how many of those come first.
template <typename Rows>
inline void walk(const Edge &edge, Rows &rows)
{
    int y = edge.y1 >> kSubpixelBits;
    const int lastY = edge.y2 >> kSubpixelBits;
    const int from = edge.y1 - y * kSubpixels;
    const int to = edge.y2 - lastY * kSubpixels;
    if (y == lastY)
        return rows.addToRow(y, edge.x1, from, edge.x2, to);

    const bool isDown = edge.y2 > edge.y1;
    const int step = isDown ? 1 : -1;
    const int leave = isDown ? kSubpixels : 0; // where the edge leaves a row, and where it enters the next
    const int enter = kSubpixels - leave;
    const int width = edge.x2 - edge.x1;
    const int height = std::abs(edge.y2 - edge.y1);

    const Division start = divided(std::abs(leave - from) * width, height);
    int x = edge.x1 + start.quotient;
    rows.addToRow(y, edge.x1, from, x, leave);
    y += step;
    if (y != lastY) {
        const Division slope = divided(kSubpixels * width, height);
        int error = start.remainder;
        if (const int ahead = rows.ahead(y, step); ahead > 0) {
            const int left = std::min(ahead, std::abs(lastY - y));
            const qint64 errors = error + qint64(left) * slope.remainder;
            x += left * slope.quotient + int(errors / height);
            error = int(errors % height);
            y += left * step;
        }
        for (; y != lastY && rows.holds(y); y += step) {
            const int entry = x;
            x += slope.quotient;
            error += slope.remainder;
            if (error >= height) {
                error -= height;
                ++x;
            }
            rows.addToRow(y, entry, enter, x, leave);
        }
    }
    if (y == lastY)
        rows.addToRow(y, x, enter, edge.x2, to);
}

} // namespace InkInternal

#pragma once

// How much of each pixel a small outline covers.

#include "core/edgewalk_p.h"

#include <QtCore/QRect>

#include <array>
#include <utility>

namespace InkInternal {

// A block of pixels that no edge leaves, or touches at its right or lower border: what CoverageBand computes, without
// what that needs for long outlines.
class SmallCoverage
{
public:
    static constexpr int kMostSide = 48; // pixels of a block, in each direction

    // The block is empty, as it is once all of its rows were visited.
    void moveTo(const QRect &pixels) { m_pixels = pixels; }

    void add(const Edge &edge) { walk(edge, *this); }

    // As walk() asks for.
    static bool holds(int) { return true; }
    static int ahead(int, int) { return 0; }
    void addToRow(int y, int x1, int y1, int x2, int y2)
    {
        Cell *const cells = cellsOf(y);
        walkRow(x1, y1, x2, y2, [cells, left = m_pixels.left()](int x, int area, int height) {
            Cell &cell = cells[x - left];
            cell.area += area;
            cell.height += height;
        });
    }

    // Takes a row out: how much of each pixel is covered, 0 to 255. It stays until the next one is taken.
    const uchar *takeRow(int y)
    {
        Cell *cell = cellsOf(y);
        int height = 0;
        for (int i = 0; i < m_pixels.width(); ++i) {
            const Cell taken = std::exchange(*cell++, {});
            height += taken.height;
            m_row[std::size_t(i)] = coverageOf(taken.area, height);
        }
        return m_row.data();
    }

private:
    struct Cell
    {
        int area, height; // as walkRow() tells them
    };

    Cell *cellsOf(int y) { return &m_cells[std::size_t(y - m_pixels.top()) * kMostSide]; }

    QRect m_pixels;
    std::array<Cell, std::size_t(kMostSide) * kMostSide> m_cells{}; // row by row
    std::array<uchar, kMostSide> m_row;
};

} // namespace InkInternal

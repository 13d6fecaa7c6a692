#pragma once

// How much of each pixel an outline covers, to the last bit what Qt's raster engine computes. Qt keeps the cells that
// the edges cut in one list for each row and walks it for each of them, so its time grows with the square of what lies
// over each other; here it grows with the length of the edges alone.

#include "core/edgewalk_p.h"

#include <QtCore/QRect>
#include <QtGui/QPainterPath>
#include <QtGui/QTransform>

#include <optional>
#include <vector>

namespace InkInternal {

// By how much Qt takes a transform to enlarge what is painted.
double scaleOf(const QTransform &transform);

// The edges of an outline, flattened and rounded as QOutlineMapper of Qt 5.15 does, without those that lie along a row.
// `toDevice` is affine. Nothing for an outline that reaches so far that Qt would cut it first.
std::optional<std::vector<Edge>> edgesOf(const QPainterPath &outline, const QTransform &toDevice);

// A band of pixel rows.
class CoverageBand
{
public:
    // Of at most so many pixels in each direction.
    explicit CoverageBand(const QSize &most);

    // The band is empty, as it is once all of its rows were taken.
    void moveTo(const QRect &pixels);

    void add(const Edge &edge);

    // As walk() asks for.
    bool holds(int y) const { return unsigned(y - m_top) < unsigned(m_rows); }
    int ahead(int y, int step) const;
    void addToRow(int y, int x1, int y1, int x2, int y2);

    // Takes a row out of the band: how much of each pixel is covered, 0 to 255 by the non-zero winding rule. Returns
    // the first pixel that may be covered at all; `coverage` is written from there on, one value a pixel of the band.
    int takeRow(int y, uchar *coverage);

private:
    // What edges add to the area of a pixel, 2 * 256 * 256 being the whole, and to the height of what is covered of it
    // and of all pixels right of it.
    struct Cell
    {
        qint64 area, height;
    };

    Cell *cellsOf(int y) { return &m_cells[std::size_t(y - m_top) * m_rowCells]; }
    void addToCell(Cell *cells, int x, int area, int height) const;

    const std::size_t m_rowCells; // one for all that lies left of the band, then one for each pixel
    int m_left = 0, m_width = 0;
    int m_top = 0, m_rows = 0;
    std::vector<Cell> m_cells; // row by row
    std::vector<int> m_first;  // cell of each row that was touched
};

} // namespace InkInternal

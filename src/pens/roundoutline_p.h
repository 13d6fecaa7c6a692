#pragma once

// The outline of a line with round ends, as Qt's raster engine fills it.

#include "core/edgewalk_p.h"

#include <QtCore/QLineF>
#include <QtCore/QRect>

#include <optional>
#include <vector>

namespace InkInternal {

// Qt computes an outline step by step in the coordinates of the image, makes lines of its curves and rounds their ends
// to parts of a pixel. Here the ends of the line are turned quarters of a circle: after the rounding that is the same,
// unless a coordinate lies where the least difference matters.
class RoundOutline
{
public:
    explicit RoundOutline(double width);

    // Appends the edges of a line of some length, no part of whose outline has a negative coordinate; those that lie
    // along a row are left out. Returns the pixels that they go through, and those between. Nothing where the edges may
    // not be those that Qt makes.
    std::optional<QRect> trace(const QLineF &line, std::vector<Edge> &edges);

    // Both coordinates as one value, which processors compute at once.
    using Vector = double __attribute__((vector_size(16)));

private:
    void split(int piece);
    bool isFlat(int piece, Vector right, Vector up);
    void addPiece(int piece, Vector right, Vector up);
    bool isLess(double a, double b);

    double m_reach;             // half of the width
    std::vector<int> m_pieces;  // of a quarter, that may be lines in some direction
    bool m_isCertain = true;    // which of them are, in this one
    std::vector<Vector> m_ends; // of the lines of its first quarter, from the middle
};

} // namespace InkInternal

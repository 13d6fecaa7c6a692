#pragma once

// Short lines with round ends, many of them over each other, to the last bit as QPainter paints them.

#include "core/smallcoverage_p.h"
#include "pens/roundoutline_p.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPen>

#include <optional>
#include <vector>

namespace InkInternal {

// QPainter makes ready for each line what is the same for all of them, and converts the pixels of a plain ARGB32 image
// twice each time. Here they are converted once for many lines: a pixel that is stored there and fetched again is the
// premultiplied one that it was.
class RoundLines
{
public:
    // Each line is painted with all of the pens, one after the other: solid ones with round ends and one colour each. A
    // painter on the image may stay there meanwhile.
    RoundLines(QImage &image, const std::vector<QPen> &pens);

    // Lines from each point to the next, beginning with `points[first]`. Returns the index of the point up to which
    // they are painted; it is `first` where QPainter has to paint the next one: a line that is long, wide, next to the
    // border, or on an image of another kind.
    int paint(const QVector<QPointF> &points, int first);

private:
    struct Pass
    {
        QPen pen;
        QRgb ink; // premultiplied
        RoundOutline outline;

        bool hasOutline() const; // not a mere line
    };
    struct Outline
    {
        QRect pixels;
        std::size_t firstEdge, endEdge;
    };

    std::optional<QRect> pixelsAround(const QPointF &from, const QPointF &to) const;
    bool trace(const QLineF &line);
    bool load(const QRect &box);
    void fill(const Outline &outline, QRgb ink);
    void store();
    QRgb *imageRow(int y);
    QPainter &onTile(const Pass &pass);

    QImage &m_image;
    std::vector<Pass> m_passes;
    double m_widest = 0;
    bool m_isAble; // to paint on this image, as far as is known
    std::vector<Edge> m_edges;
    std::vector<Outline> m_outlines; // of some lines, for each pen that is wider than a pixel
    QRect m_box;                     // of the image, in the tile, which is as large as was needed so far
    QImage m_tile;                   // premultiplied
    QRgb *m_pixels = nullptr;        // of the tile
    std::optional<QPainter> m_tilePainter;
    const Pass *m_tilePass = nullptr; // that the painter is ready for
    SmallCoverage m_coverage;
};

} // namespace InkInternal

#include "coverage_p.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <utility>

using namespace InkInternal;

namespace {

constexpr int kCoarsePixel = 64;       // what Qt rounds the points of an outline to
constexpr double kFlatness = 0.25;     // device pixels, about, between a curve and its lines
constexpr int kMostSplits = 9;         // of a curve, one within the other
constexpr double kDeviceLimit = 32767; // device pixels, in each direction and from edge to edge

class EdgeList
{
public:
    EdgeList(const QTransform &toDevice, int count)
        : m_toDevice(toDevice)
    {
        m_edges.reserve(std::size_t(count));
        const double scale = scaleOf(toDevice);
        m_flatness = scale == 0 ? kFlatness : kFlatness / scale;
    }

    void append(const QPainterPath &path)
    {
        for (int i = 0; i < path.elementCount(); ++i) {
            const QPainterPath::Element element = path.elementAt(i);
            if (element.type == QPainterPath::MoveToElement) {
                close();
                m_start = m_end = placed(element);
            } else if (element.type == QPainterPath::CurveToElement) {
                curveTo({{m_last, element, path.elementAt(i + 1), path.elementAt(i + 2)}});
                i += 2;
            } else {
                edgeTo(placed(element));
            }
        }
        close();
    }

    bool isWithinLimits() const
    {
        return m_isNear && m_high.x() - m_low.x() <= kDeviceLimit && m_high.y() - m_low.y() <= kDeviceLimit;
    }

    std::vector<Edge> &&take() { return std::move(m_edges); }

private:
    using Curve = std::array<QPointF, 4>;

    struct Point
    {
        int x, y;
    };

    // Where a point of the path lies on the device.
    Point placed(const QPointF &point)
    {
        m_last = point;
        const QPointF place = m_toDevice.map(point);
        m_isNear = m_isNear && std::abs(place.x()) <= kDeviceLimit && std::abs(place.y()) <= kDeviceLimit;
        m_low = {std::min(m_low.x(), place.x()), std::min(m_low.y(), place.y())};
        m_high = {std::max(m_high.x(), place.x()), std::max(m_high.y(), place.y())};
        return {rounded(place.x()), rounded(place.y())};
    }

    static int rounded(double coordinate)
    {
        return qRound(qBound(-kDeviceLimit, coordinate, kDeviceLimit) * kCoarsePixel) * (kSubpixels / kCoarsePixel);
    }

    void close() { edgeTo(m_start); }

    void edgeTo(Point point)
    {
        if (point.y != m_end.y)
            m_edges.push_back({m_end.x, m_end.y, point.x, point.y});
        m_end = point;
    }

    // QBezier::addToPolygon().
    void curveTo(const Curve &curve)
    {
        struct Piece
        {
            Curve curve;
            int splits;
        };
        std::array<Piece, kMostSplits + 1> pieces{Piece{curve, kMostSplits}};
        int top = 0;
        while (top >= 0) {
            Piece &piece = pieces[std::size_t(top)];
            if (piece.splits == 0 || isFlat(piece.curve)) {
                edgeTo(placed(piece.curve[3]));
                --top;
            } else {
                --piece.splits;
                Piece &first = pieces[std::size_t(++top)];
                first.splits = piece.splits;
                split(piece.curve, first.curve, piece.curve);
            }
        }
    }

    bool isFlat(const Curve &curve) const
    {
        const auto manhattan = [](const QPointF &v) { return std::abs(v.x()) + std::abs(v.y()); };
        const auto cross = [](const QPointF &v, const QPointF &w) { return v.x() * w.y() - v.y() * w.x(); };
        const QPointF chord = curve[3] - curve[0];
        const QPointF a = curve[0] - curve[1];
        const QPointF b = curve[0] - curve[2];
        const double length = manhattan(chord);
        if (length > 1.0)
            return std::abs(cross(chord, a)) + std::abs(cross(chord, b)) < m_flatness * length;
        return std::abs(a.x()) + std::abs(a.y()) + std::abs(b.x()) + std::abs(b.y()) < m_flatness;
    }

    static void split(Curve curve, Curve &first, Curve &second)
    {
        const auto middle = [](const QPointF &a, const QPointF &b) { return (a + b) * .5; };
        const QPointF inner = middle(curve[1], curve[2]);
        first[0] = curve[0];
        first[1] = middle(curve[0], curve[1]);
        first[2] = middle(first[1], inner);
        second[3] = curve[3];
        second[2] = middle(curve[2], curve[3]);
        second[1] = middle(inner, second[2]);
        first[3] = second[0] = middle(first[2], second[1]);
    }

    const QTransform m_toDevice;
    double m_flatness; // in units of the path
    QPointF m_last;    // in the path
    Point m_start{}, m_end{};
    bool m_isNear = true; // within the limits in each direction, so far
    QPointF m_low{kDeviceLimit, kDeviceLimit}, m_high{-kDeviceLimit, -kDeviceLimit}; // on the device
    std::vector<Edge> m_edges;
};

} // namespace

// qt_scaleForTransform().
double InkInternal::scaleOf(const QTransform &transform)
{
    if (transform.type() <= QTransform::TxTranslate)
        return 1;
    if (transform.type() == QTransform::TxScale)
        return std::max(std::abs(transform.m11()), std::abs(transform.m22()));
    const auto squares = [](double a, double b) { return a * a + b * b; };
    const double column1 = squares(transform.m11(), transform.m21());
    const double column2 = squares(transform.m12(), transform.m22());
    const double row1 = squares(transform.m11(), transform.m12());
    const double row2 = squares(transform.m21(), transform.m22());
    return std::abs(column1 - column2) > std::abs(row1 - row2) ? std::sqrt(std::max(column1, column2))
                                                               : std::sqrt(std::max(row1, row2));
}

std::optional<std::vector<Edge>> InkInternal::edgesOf(const QPainterPath &outline, const QTransform &toDevice)
{
    EdgeList list(toDevice, outline.elementCount());
    list.append(outline);
    if (!list.isWithinLimits())
        return {};
    return list.take();
}

CoverageBand::CoverageBand(const QSize &most)
    : m_rowCells(std::size_t(most.width()) + 1)
    , m_cells(std::size_t(most.height()) * m_rowCells)
    , m_first(std::size_t(most.height()))
{
}

void CoverageBand::moveTo(const QRect &pixels)
{
    m_left = pixels.left();
    m_width = pixels.width();
    m_top = pixels.top();
    m_rows = pixels.height();
    std::fill_n(m_first.begin(), m_rows, m_width + 1);
}

void CoverageBand::add(const Edge &edge)
{
    const int y = edge.y1 >> kSubpixelBits, lastY = edge.y2 >> kSubpixelBits;
    if (std::max(y, lastY) >= m_top && std::min(y, lastY) < m_top + m_rows)
        walk(edge, *this);
}

int CoverageBand::ahead(int y, int step) const
{
    return step > 0 ? m_top - y : y - (m_top + m_rows - 1);
}

void CoverageBand::addToRow(int y, int x1, int y1, int x2, int y2)
{
    if (y1 == y2 || !holds(y))
        return;
    int &first = m_first[std::size_t(y - m_top)];
    first = std::min(first, std::clamp((std::min(x1, x2) >> kSubpixelBits) - m_left + 1, 0, m_width + 1));
    Cell *const cells = cellsOf(y);
    walkRow(x1, y1, x2, y2, [&](int x, int area, int height) { addToCell(cells, x, area, height); });
}

// What lies left of the band counts in its first cell, what lies right of it nowhere.
inline void CoverageBand::addToCell(Cell *cells, int x, int area, int height) const
{
    const int i = x - m_left + 1;
    if (i > m_width)
        return;
    Cell &cell = cells[std::max(i, 0)];
    cell.area += area;
    cell.height += height;
}

int CoverageBand::takeRow(int y, uchar *coverage)
{
    Cell *const cells = cellsOf(y);
    const int first = m_first[std::size_t(y - m_top)];
    qint64 height = first == 0 ? std::exchange(cells[0], {}).height : 0;
    for (int i = std::max(first, 1); i <= m_width; ++i) {
        const Cell cell = std::exchange(cells[i], {});
        height += cell.height;
        coverage[i - 1] = coverageOf(cell.area, height);
    }
    return std::max(first, 1) - 1;
}

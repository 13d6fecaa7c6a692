#include "roundoutline_p.h"

#include <algorithm>
#include <array>
#include <cmath>

using namespace InkInternal;

namespace {

constexpr double kFlatness = 0.25;            // what QBezier::addToPolygon() asks of a curve to be a line
constexpr int kCoarsePixel = 64;              // what Qt rounds the points of an outline to
constexpr double kUncertain = 1. / (1 << 20); // more than all that roundings add up to

using Vector = RoundOutline::Vector;

Vector vectorOf(const QPointF &point)
{
    return Vector{point.x(), point.y()};
}

// To the right, where y grows downwards.
Vector quarterTurned(Vector vector)
{
    return Vector{-vector[1], vector[0]};
}

double cross(const QPointF &v, const QPointF &w)
{
    return v.x() * w.y() - v.y() * w.x();
}

// The curve that QStroker makes of a quarter of the unit circle, from (0, 1) to (1, 0), cut in halves again and again.
class Quarter
{
public:
    struct Piece
    {
        QPointF control1, control2, chord; // from where it begins
        double bend;                       // what the controls lie beside the chord, times its length
        QPointF end;                       // from the middle of the circle
    };

    static constexpr int kWhole = 1; // the halves of a piece are at twice its index, and after that
    static constexpr int kPieces = 1 << 6;

    static const Quarter &ofCircle()
    {
        static const Quarter quarter;
        return quarter;
    }

    const Piece &at(int index) const { return m_pieces[std::size_t(index)]; }

private:
    using Curve = std::array<QPointF, 4>;

    Quarter()
    {
        constexpr double kKappa = 0.5522847498;
        cut(kWhole, {QPointF(0, 1), QPointF(kKappa, 1), QPointF(1, kKappa), QPointF(1, 0)});
    }

    void cut(int index, const Curve &curve)
    {
        if (index >= kPieces)
            return;
        const QPointF control1 = curve[1] - curve[0], control2 = curve[2] - curve[0], chord = curve[3] - curve[0];
        const double bend = std::abs(cross(chord, control1)) + std::abs(cross(chord, control2));
        m_pieces[std::size_t(index)] = {control1, control2, chord, bend, curve[3]};

        const auto middle = [](const QPointF &a, const QPointF &b) { return (a + b) / 2; };
        const QPointF first = middle(curve[0], curve[1]);
        const QPointF inner = middle(curve[1], curve[2]);
        const QPointF last = middle(curve[2], curve[3]);
        const QPointF center = middle(middle(first, inner), middle(inner, last));
        cut(2 * index, {curve[0], first, middle(first, inner), center});
        cut(2 * index + 1, {center, middle(inner, last), last, curve[3]});
    }

    std::array<Piece, kPieces> m_pieces;
};

// The edges of a line with round ends, whose points Qt rounds.
class Contour
{
public:
    void moveTo(Vector point) { m_first = m_last = placed(point); }

    void lineTo(Vector point) { edgeTo(placed(point)); }

    void close() { edgeTo(m_first); }

    const Edge *begin() const { return m_edges.data(); }
    const Edge *end() const { return m_end; }

    // No point was so close to where Qt rounds it to another one that the last bit decides.
    bool isCertain() const { return std::max(m_farthest[0], m_farthest[1]) < 0.5 - kUncertain; }

private:
    using Point = int __attribute__((vector_size(8))); // as in Edge

    Point placed(Vector point)
    {
        const Vector coarse = point * double(kCoarsePixel) + 0.5;
        const Point rounded = __builtin_convertvector(coarse, Point);
        const Vector above = coarse - __builtin_convertvector(rounded, Vector) - 0.5;
        const Vector distance = above < 0 ? -above : above;
        m_farthest = distance > m_farthest ? distance : m_farthest;
        return rounded * (kSubpixels / kCoarsePixel);
    }

    void edgeTo(Point point)
    {
        if (point[1] != m_last[1]) {
            m_end->x1 = m_last[0];
            m_end->y1 = m_last[1];
            m_end->x2 = point[0];
            m_end->y2 = point[1];
            ++m_end;
        }
        m_last = point;
    }

    static constexpr int kMost = 4 * (Quarter::kPieces / 2 + 1);

    std::array<Edge, kMost> m_edges;
    Edge *m_end = m_edges.data();
    Point m_first{}, m_last{};
    Vector m_farthest{}; // of all coordinates from the middle of what is rounded alike
};

} // namespace

RoundOutline::RoundOutline(double width)
    : m_reach(width / 2)
{
    split(Quarter::kWhole);
}

// Down to where it depends on the direction whether Qt goes on.
void RoundOutline::split(int piece)
{
    constexpr double kMostManhattan = 1.42; // of a vector, for each unit of its length
    const Quarter::Piece &curve = Quarter::ofCircle().at(piece);
    const double length = m_reach * std::hypot(curve.chord.x(), curve.chord.y());
    if (2 * piece >= Quarter::kPieces || length < 1.01 ||
        m_reach * m_reach * curve.bend < 1.01 * kMostManhattan * kFlatness * length) {
        m_pieces.push_back(piece);
    } else {
        split(2 * piece);
        split(2 * piece + 1);
    }
}

std::optional<QRect> RoundOutline::trace(const QLineF &line, std::vector<Edge> &edges)
{
    const Vector from = vectorOf(line.p1()), to = vectorOf(line.p2());
    const Vector along = (to - from) * (m_reach / std::hypot(line.dx(), line.dy()));
    const Vector beside = -quarterTurned(along);
    m_isCertain = true;
    m_ends.clear();
    for (const int piece : m_pieces)
        addPiece(piece, along, beside);

    Contour contour;
    contour.moveTo(from + beside);
    contour.lineTo(to + beside);
    for (const Vector &end : m_ends)
        contour.lineTo(to + end);
    for (const Vector &end : m_ends)
        contour.lineTo(to + quarterTurned(end));
    contour.lineTo(from - beside);
    for (const Vector &end : m_ends)
        contour.lineTo(from - end);
    for (const Vector &end : m_ends)
        contour.lineTo(from - quarterTurned(end));
    contour.close();

    if (!m_isCertain || !contour.isCertain())
        return {};
    edges.insert(edges.end(), contour.begin(), contour.end());
    const double reach = m_reach + 1. / kCoarsePixel;
    return QRect(QPoint(int(std::min(from[0], to[0]) - reach), int(std::min(from[1], to[1]) - reach)),
                 QPoint(int(std::max(from[0], to[0]) + reach), int(std::max(from[1], to[1]) + reach)));
}

// Where the lines end that Qt makes of a quarter whose axes are `right` and `up`. Of those that are turned by right
// angles it makes the same, since neither a length nor what it asks of a curve depends on such a turn.
void RoundOutline::addPiece(int piece, Vector right, Vector up)
{
    if (isFlat(piece, right, up)) {
        const QPointF end = Quarter::ofCircle().at(piece).end;
        m_ends.push_back(end.x() * right + end.y() * up);
    } else if (2 * piece < Quarter::kPieces) {
        addPiece(2 * piece, right, up);
        addPiece(2 * piece + 1, right, up);
    } else {
        m_isCertain = false;
    }
}

bool RoundOutline::isFlat(int piece, Vector right, Vector up)
{
    const Quarter::Piece &curve = Quarter::ofCircle().at(piece);
    const auto manhattan = [&](const QPointF &vector) {
        const Vector turned = vector.x() * right + vector.y() * up;
        return std::abs(turned[0]) + std::abs(turned[1]);
    };
    const double length = manhattan(curve.chord);
    return isLess(1, length) ? isLess(m_reach * m_reach * curve.bend, kFlatness * length)
                             : isLess(manhattan(curve.control1) + manhattan(curve.control2), kFlatness);
}

bool RoundOutline::isLess(double a, double b)
{
    m_isCertain = m_isCertain & (std::abs(a - b) > kUncertain);
    return a < b;
}

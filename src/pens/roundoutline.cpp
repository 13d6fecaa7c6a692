#include "roundoutline_p.h"

#include <algorithm>
#include <array>
#include <cmath>

using namespace InkInternal;

namespace {

constexpr double kFlatness = 0.25;            // what QBezier::addToPolygon() asks of a curve to be a line
constexpr int kPixel = 256;                   // of an edge
constexpr int kCoarsePixel = 64;              // what Qt rounds the points of an outline to
constexpr double kUncertain = 1. / (1 << 20); // more than all that roundings add up to

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
    m_edges = &edges;
    m_isCertain = true;
    const QPointF from = line.p1(), to = line.p2();
    const QPointF along = (to - from) * (m_reach / std::hypot(line.dx(), line.dy()));
    const QPointF beside(along.y(), -along.x());
    const Point start = placed(from + beside);
    m_end = start;
    edgeTo(placed(to + beside));
    addQuarter(to, along, beside);
    addQuarter(to, -beside, along);
    edgeTo(placed(from - beside));
    addQuarter(from, -along, -beside);
    addQuarter(from, beside, -along);
    edgeTo(start);

    if (!m_isCertain)
        return {};
    const double reach = m_reach + 1. / kCoarsePixel;
    return QRect(QPoint(int(std::min(from.x(), to.x()) - reach), int(std::min(from.y(), to.y()) - reach)),
                 QPoint(int(std::max(from.x(), to.x()) + reach), int(std::max(from.y(), to.y()) + reach)));
}

// A quarter that is turned and enlarged so that its axes are `right` and `up`, in the lines that Qt makes of it.
void RoundOutline::addQuarter(const QPointF &middle, const QPointF &right, const QPointF &up)
{
    for (const int piece : m_pieces)
        addPiece(piece, middle, right, up);
}

void RoundOutline::addPiece(int piece, const QPointF &middle, const QPointF &right, const QPointF &up)
{
    if (isFlat(piece, right, up)) {
        const QPointF end = Quarter::ofCircle().at(piece).end;
        edgeTo(placed(middle + end.x() * right + end.y() * up));
    } else if (2 * piece < Quarter::kPieces) {
        addPiece(2 * piece, middle, right, up);
        addPiece(2 * piece + 1, middle, right, up);
    } else {
        m_isCertain = false;
    }
}

bool RoundOutline::isFlat(int piece, const QPointF &right, const QPointF &up)
{
    const Quarter::Piece &curve = Quarter::ofCircle().at(piece);
    const auto manhattan = [&](const QPointF &vector) {
        return std::abs(vector.x() * right.x() + vector.y() * up.x()) +
               std::abs(vector.x() * right.y() + vector.y() * up.y());
    };
    const double length = manhattan(curve.chord);
    return isLess(1, length) ? isLess(m_reach * m_reach * curve.bend, kFlatness * length)
                             : isLess(manhattan(curve.control1) + manhattan(curve.control2), kFlatness);
}

RoundOutline::Point RoundOutline::placed(const QPointF &point)
{
    return {placed(point.x()), placed(point.y())};
}

int RoundOutline::placed(double coordinate)
{
    const double coarse = coordinate * kCoarsePixel + 0.5;
    const int rounded = int(coarse);
    m_isCertain = m_isCertain & (std::abs(coarse - rounded - 0.5) < 0.5 - kUncertain);
    return rounded * (kPixel / kCoarsePixel);
}

void RoundOutline::edgeTo(Point point)
{
    if (point.y != m_end.y)
        m_edges->push_back({m_end.x, m_end.y, point.x, point.y});
    m_end = point;
}

bool RoundOutline::isLess(double a, double b)
{
    m_isCertain = m_isCertain & (std::abs(a - b) > kUncertain);
    return a < b;
}

#include "pens/culled_p.h"

#include "core/painting_p.h"
#include "core/paintpath_p.h"

#include <QtGui/QImage>
#include <QtGui/QPaintEngine>

#include <cmath>
#include <optional>

using namespace InkInternal;

namespace {

constexpr double kPenReach = 1.01;    // of half the pen's width: how far an outline may lie from its segment
constexpr double kPixelReach = 1.5;   // device pixels more, for antialiasing, hairlines and the rounding of the clip
constexpr double kThinnest = 1.6;     // device pixels; below, Qt may paint lines rather than outlines
constexpr double kSamePlace = 1e-4;   // more than the distance at which Qt takes points for equal
constexpr double kFlattest = 1e-3;    // device pixels that a unit of length must at least become
constexpr double kDeviceLimit = 32e3; // device pixels; outlines that go beyond 32767 are cut before they are rasterised
constexpr double kExactThirds = 1e6;  // coordinates up to which a third of three whole numbers is exact, and more

// Segments `first` to `last`; segment i leads from point i - 1 to point i.
struct Run
{
    int first, last;
};

using Runs = QVarLengthArray<Run, 64>;
using Blocks = QVarLengthArray<int, 64>;

bool isSamePlace(const QPointF &a, const QPointF &b)
{
    return std::abs(a.x() - b.x()) <= kSamePlace && std::abs(a.y() - b.y()) <= kSamePlace;
}

int segments(const Runs &runs)
{
    int count = 0;
    for (const Run &run : runs)
        count += run.last - run.first + 1;
    return count;
}

// The shortest length on the device of a unit of path: the smaller singular value.
double smallestScale(const QTransform &transform)
{
    const double squares = transform.m11() * transform.m11() + transform.m12() * transform.m12() +
                           transform.m21() * transform.m21() + transform.m22() * transform.m22();
    const double area = std::abs(transform.determinant());
    const double largest = std::sqrt((squares + std::sqrt(std::max(0.0, squares * squares - 4 * area * area))) / 2);
    return largest > 0 ? area / largest : 0;
}

// How path coordinates become device pixels, and how far the pen reaches there.
class Frame
{
public:
    Frame(const QTransform &transform, const QPen &pen)
        : m_toPath(transform.inverted())
        , m_x{transform.m11(), transform.m12()}
        , m_y{transform.m21(), transform.m22()}
        , m_origin{transform.dx(), transform.dy()}
    {
        const double width = std::max(pen.widthF(), 1.0);
        const double half = width / 2 * kPenReach;
        m_reach = Pair{half * std::hypot(transform.m11(), transform.m21()),
                       half * std::hypot(transform.m12(), transform.m22())};
        m_reach += kPixelReach;
        m_isThin = pen.widthF() == 0 || width * smallestScale(transform) <= kThinnest;
    }

    bool isThin() const { return m_isThin; }

    // The part of the device that a pen along a diagonal of `box` may touch.
    Box reached(const Box &box) const
    {
        const Pair half = (box.high - box.low) / 2;
        return around((box.low + box.high) / 2, magnitude(m_x) * half[0] + magnitude(m_y) * half[1]);
    }

    Box reached(const QPointF &from, const QPointF &to) const
    {
        const Pair half = (load(to) - load(from)) / 2;
        return around((load(from) + load(to)) / 2, magnitude(m_x * half[0] + m_y * half[1]));
    }

    // A box that holds every point from which the pen may touch `box`, in path coordinates.
    Box reaching(const Box &box) const { return boxOf(m_toPath.mapRect(rectOf(grown(box, m_reach)))); }

private:
    Box around(Pair middle, Pair half) const
    {
        const Pair center = m_origin + m_x * middle[0] + m_y * middle[1];
        return grown({center - half, center + half}, m_reach);
    }

    QTransform m_toPath;
    Pair m_x, m_y; // where the axes point
    Pair m_origin;
    Pair m_reach;
    bool m_isThin;
};

// All points of a stroke, the last block included, which need not be full; it counts as met.
BlockScan scanStroke(const QVector<QPointF> &points, const Box &clip)
{
    const int full = (points.size() - 1) / kBlock;
#ifdef __x86_64__
    static const bool hasAvx2 = __builtin_cpu_supports("avx2");
    BlockScan scan = (hasAvx2 ? scanBlocksWithAvx2 : scanBlocks)(points.constData(), full, clip);
#else
    BlockScan scan = scanBlocks(points.constData(), full, clip);
#endif
    const int rest = full * kBlock + 1;
    for (int i = rest; i < points.size(); ++i) {
        const Pair point = load(points.at(i));
        scan.bounds = united(scan.bounds, {point, point});
        scan.isFinite = scan.isFinite && std::isfinite(point[0] + point[1]);
    }
    if (rest < points.size())
        scan.met.append(full);
    return scan;
}

// Of coordinates within kExactThirds.
bool areWhole(const QVector<QPointF> &points)
{
    constexpr double kRound = 3.0 * (1LL << 51); // added and taken away again, it leaves whole numbers
    auto whole = Pair{} == Pair{};
    for (const QPointF &point : points) {
        const Pair pair = load(point);
        whole &= (pair + kRound) - kRound == pair;
    }
    return whole[0] && whole[1];
}

// Finds the segments that may touch a part of the device.
class Culler
{
public:
    Culler(const QVector<QPointF> &points, const Frame &frame)
        : m_points(points)
        , m_frame(frame)
    {
    }

    // The blocks that may touch `clip`; nothing where leaving any out might change a pixel.
    std::optional<Blocks> blocksWithin(const Box &clip)
    {
        const BlockScan scan = scanStroke(m_points, m_frame.reaching(clip));
        m_bounds = m_frame.reached(scan.bounds);
        const Pair limit{kDeviceLimit, kDeviceLimit};
        if (!scan.isFinite || !contains({-limit, limit}, m_bounds))
            return {};
        return scan.met;
    }

    // What the stroke may touch, once the blocks are known.
    const Box &bounds() const { return m_bounds; }

    // In order, apart from each other, and none of them closed.
    Runs runsWithin(const Box &clip, const Blocks &blocks) const
    {
        Runs runs;
        for (const Run &run : touching(clip, blocks))
            appendWidened(runs, run);
        return runs;
    }

private:
    Runs touching(const Box &clip, const Blocks &blocks) const
    {
        Runs runs;
        for (const int block : blocks) {
            const int first = block * kBlock + 1;
            const int end = std::min(first + kBlock, m_points.size());
            for (int i = first; i < end; ++i) {
                if (!meets(m_frame.reached(m_points.at(i - 1), m_points.at(i)), clip))
                    continue;
                if (!runs.isEmpty() && runs.last().last == i - 1)
                    runs.last().last = i;
                else
                    runs.append({i, i});
            }
        }
        return runs;
    }

    void appendWidened(Runs &runs, Run run) const
    {
        if (m_frame.isThin())
            run = {before(run.first), after(run.last)};
        join(runs, run);
        while (isSamePlace(m_points.at(run.first - 1), m_points.at(run.last))) {
            if (run.first > 1)
                run.first = before(run.first);
            else
                run.last = after(run.last);
            join(runs, run);
        }
        runs.append(run);
    }

    // Takes the last of `runs` into `run` where they meet: a segment handed over twice would be painted twice.
    void join(Runs &runs, Run &run) const
    {
        while (run.first > 1 && isEmpty(run.first - 1))
            --run.first;
        if (runs.isEmpty() || runs.last().last < run.first - 1)
            return;
        run = {runs.last().first, std::max(run.last, runs.last().last)};
        runs.removeLast();
    }

    // The last segment before `i`, or the first after, that has a length; at the ends the outermost.
    int before(int i) const
    {
        do
            --i;
        while (i > 1 && isEmpty(i));
        return std::max(i, 1);
    }
    int after(int i) const
    {
        do
            ++i;
        while (i < m_points.size() - 1 && isEmpty(i));
        return std::min(i, m_points.size() - 1);
    }

    bool isEmpty(int i) const { return isSamePlace(m_points.at(i - 1), m_points.at(i)); }

    const QVector<QPointF> &m_points;
    const Frame &m_frame;
    Box m_bounds;
};

QPainterPath pathOf(const QVector<QPointF> &points, const Runs &runs, StrokeSegment segment)
{
    QPainterPath path;
    path.reserve(3 * segments(runs) + runs.size());
    for (const Run &run : runs) {
        path.moveTo(points.at(run.first - 1));
        for (int i = run.first; i <= run.last; ++i) {
            if (segment == StrokeSegment::Curve)
                path.quadTo(points.at(i - 1), points.at(i));
            else
                path.lineTo(points.at(i));
        }
    }
    return path;
}

// The part of the device that a painter's clip lets it paint; not ordered without a clip.
Box deviceClip(QPainter &painter)
{
    if (!painter.hasClipping())
        return {Pair{1, 1}, Pair{0, 0}};
    const Box clip = boxOf(painter.deviceTransform().mapRect(clipBounds(painter)));
    const auto *image = dynamic_cast<const QImage *>(painter.paintEngine()->paintDevice());
    if (!isOrdered(clip.low, clip.high) || !image)
        return clip;
    return intersected(clip, boxOf(image->rect()));
}

bool isPlain(const QPen &pen)
{
    return pen.style() == Qt::SolidLine && pen.capStyle() == Qt::RoundCap && pen.joinStyle() != Qt::MiterJoin &&
           pen.widthF() >= 0 && (pen.widthF() == 0 || !pen.isCosmetic());
}

// Whether Qt divides colours by their alpha again, four pixels at a time: what is left over of a span is rounded
// otherwise, and where a span ends depends on all that is painted.
bool dividesByAlpha(const QPaintDevice &device)
{
    const auto *image = dynamic_cast<const QImage *>(&device);
    return image && (image->format() == QImage::Format_ARGB32 || image->format() == QImage::Format_RGBA8888);
}

// A texture is sampled from the start of each span on, unless it is moved only.
bool isPaintedPixelByPixel(const QBrush &brush, const QTransform &transform, const QPaintDevice &device)
{
    return brush.style() == Qt::SolidPattern ||
           (brush.style() == Qt::TexturePattern && (brush.transform() * transform).type() <= QTransform::TxTranslate &&
            !dividesByAlpha(device));
}

// Whether a box and its image under the transform can stand for each other.
bool mapsBoxes(const QTransform &transform)
{
    return transform.isAffine() && smallestScale(transform) >= kFlattest;
}

// The path is in a world of its own, the clip in the painter's.
bool canCull(const QPainter &painter, const QVector<QPointF> &points, const QTransform &transform)
{
    const QPaintEngine *engine = painter.paintEngine(); // null while the painter is not active
    return engine && engine->type() == QPaintEngine::Raster && points.size() > 2 &&
           painter.brush().style() == Qt::NoBrush && isPlain(painter.pen()) &&
           isPaintedPixelByPixel(painter.pen().brush(), transform, *engine->paintDevice()) &&
           !isSamePlace(points.first(), points.last()) && mapsBoxes(transform) && mapsBoxes(painter.deviceTransform());
}

// In a world of its own, or in the painter's; setting that anew would also switch it on.
void drawPath(QPainter &painter, const QPainterPath &path, const QTransform *world)
{
    if (!world)
        return paintPath(painter, path);
    const PainterStateScope scope(painter);
    painter.setWorldTransform(*world);
    paintPath(painter, path);
}

QTransform deviceTransform(QPainter &painter, const QTransform *world)
{
    if (!world)
        return painter.deviceTransform();
    const PainterStateScope scope(painter);
    painter.setWorldTransform(*world);
    return painter.deviceTransform();
}

} // namespace

QPointF InkInternal::strokeTopLeft(const QVector<QPointF> &points)
{
    // Each curve starts flat, so it is within the box of its ends; where Qt computes with thirds of whole numbers, to
    // the last bit. A path of its start alone has no box.
    const Pair limit{kExactThirds, kExactThirds};
    const BlockScan scan = scanStroke(points, {limit, -limit});
    if (points.size() > 1 && scan.isFinite && contains({-limit, limit}, scan.bounds) && areWhole(points))
        return {scan.bounds.low[0], scan.bounds.low[1]};
    return strokePath(points).boundingRect().topLeft();
}

void InkInternal::paintStroke(QPainter &painter, const QVector<QPointF> &points, StrokeSegment segment,
                              const QTransform *world)
{
    const auto whole = [&] { return segment == StrokeSegment::Curve ? strokePath(points) : linePath(points); };
    const QTransform transform = deviceTransform(painter, world);
    if (!canCull(painter, points, transform))
        return drawPath(painter, whole(), world);
    const Box clip = deviceClip(painter);
    if (!isOrdered(clip.low, clip.high))
        return drawPath(painter, whole(), world);

    const Frame frame(transform, painter.pen());
    Culler culler(points, frame);
    const std::optional<Blocks> blocks = culler.blocksWithin(clip);
    if (!blocks)
        return drawPath(painter, whole(), world);

    drawPath(painter, pathOf(points, culler.runsWithin(clip, *blocks), segment), world);
}

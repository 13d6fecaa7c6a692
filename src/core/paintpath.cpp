#include "paintpath_p.h"

#include "coverage_p.h"
#include "mixing_p.h"
#include "painting_p.h"

#include <QtGui/QPainterPathStroker>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#ifdef __x86_64__
#include <immintrin.h>
#endif

using namespace InkInternal;

namespace {

constexpr double kHairline = 1; // device pixels; up to this width Qt paints lines, not outlines
constexpr int kFewest = 24;     // elements of a path; with fewer, it is not worth a look

// All edges are walked through for every band; the more of them there are, the more memory a band is worth.
constexpr int kLeastBandRows = 8, kMostBandRows = 64, kEdgesPerBandRow = 2048;

const QImage &deviceOf(const QPainter &painter)
{
    return *static_cast<const QImage *>(painter.paintEngine()->paintDevice());
}

// What the pen of a painter paints where it covers whole pixels.
class Ink
{
public:
    explicit Ink(const QPainter &painter)
        : m_brush(painter.pen().brush())
        , m_toDevice(m_brush.transform() *
                     QTransform::fromTranslate(painter.brushOrigin().x(), painter.brushOrigin().y()) *
                     painter.deviceTransform())
        , m_isIn(painter.compositionMode() == QPainter::CompositionMode_SourceIn)
        , m_isOpaqueTexture(m_brush.style() == Qt::TexturePattern && !m_brush.textureImage().hasAlphaChannel())
    {
    }

    // On an empty device: `area`, or its first row where all of them are alike.
    QImage on(const QRect &area) const
    {
        QBrush brush = m_brush;
        brush.setTransform(m_toDevice * QTransform::fromTranslate(-area.x(), -area.y()));
        QImage ink(area.width(), isSolid() ? 1 : area.height(), QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&ink);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(ink.rect(), brush);
        return ink;
    }

    bool isSolid() const { return m_brush.style() == Qt::SolidPattern; }

    // Over a pixel, of which a part is covered. Qt mixes the two where a texture is opaque.
    QRgb over(QRgb pixel, QRgb ink, uint coverage) const
    {
        if (m_isOpaqueTexture && !m_isIn)
            return mixed(ink, coverage, pixel, kFullCoverage - coverage);
        const QRgb inked = scaled(ink, coverage);
        return m_isIn ? mixed(inked, uint(qAlpha(pixel)), pixel, kFullCoverage - coverage) : laidOver(inked, pixel);
    }

private:
    const QBrush m_brush;
    const QTransform m_toDevice; // from the brush
    const bool m_isIn;
    const bool m_isOpaqueTexture;
};

// Qt's build for arm64 scales the coverage of a texture to 256 parts.
#ifdef __x86_64__
constexpr bool kKnowsTextures = true;
#else
constexpr bool kKnowsTextures = false;
#endif

bool isKnownBrush(const QBrush &brush, const QTransform &transform)
{
    return brush.style() == Qt::SolidPattern ||
           (kKnowsTextures && brush.style() == Qt::TexturePattern && isWholeShift(brush.transform() * transform));
}

bool isPlainImage(const QPainter &painter)
{
    const QPaintEngine *engine = painter.paintEngine(); // null while the painter is not active
    return engine && engine->type() == QPaintEngine::Raster && engine->paintDevice()->devType() == QInternal::Image &&
           deviceOf(painter).format() == QImage::Format_ARGB32_Premultiplied &&
           deviceOf(painter).devicePixelRatioF() == 1.0;
}

// Whether Qt's raster engine fills the outline of the pen, with pixels that Ink computes. The painter of a widget may
// be led elsewhere than its transform says.
bool isOutlined(const QPainter &painter)
{
    if (!isPlainImage(painter))
        return false;
    const QPen &pen = painter.pen();
    const QTransform &transform = painter.deviceTransform();
    const QPainter::CompositionMode mode = painter.compositionMode();
    return painter.testRenderHint(QPainter::Antialiasing) && painter.opacity() == 1.0 &&
           (mode == QPainter::CompositionMode_SourceOver || mode == QPainter::CompositionMode_SourceIn) &&
           painter.brush().style() == Qt::NoBrush && pen.style() == Qt::SolidLine && !pen.isCosmetic() &&
           transform == painter.combinedTransform() && transform.isAffine() &&
           pen.widthF() * scaleOf(transform) > kHairline && isKnownBrush(pen.brush(), transform);
}

// The pixels that a painter may paint, where those are a rectangle of whole ones.
std::optional<QRect> paintable(QPainter &painter)
{
    const QRegion system = painter.paintEngine()->systemClip();
    if (system.rectCount() > 1)
        return {};
    QRect device = deviceOf(painter).rect();
    if (!system.isEmpty())
        device &= system.boundingRect();
    if (!painter.hasClipping())
        return device;
    const PainterStateScope scope(painter);
    painter.resetTransform();
    // The region of a turned clip has rectangles for each row, whose making takes longer than the path would, and of a
    // very high one Qt frees not all.
    constexpr double kHighest = 1e5; // device pixels
    const QRectF bounds = clipBounds(painter);
    const auto isWhole = [](double edge) { return edge == std::floor(edge); };
    if (!isWhole(bounds.left()) || !isWhole(bounds.top()) || !isWhole(bounds.right()) || !isWhole(bounds.bottom()) ||
        !(bounds.height() <= kHighest))
        return {};
    const QRegion clip = painter.clipRegion();
    if (clip.rectCount() != 1 || bounds != real(clip.boundingRect()))
        return {};
    return device & clip.boundingRect();
}

// Whether Qt takes longer for a path than it takes to composite the pixels around it in `area`. Qt paints in bands, one
// for so much length, and walks through the whole outline for each of them. The estimates are nanoseconds.
bool isCrowded(const QPainterPath &path, double penWidth, const QTransform &transform, const QRect &area)
{
    constexpr double kLengthPerBand = 80; // device pixels
    constexpr double kLengthWalk = 2, kElementWalk = 20;
    constexpr double kPixelComposition = 1.5, kElementConversion = 330;
    constexpr double kJoin = 0.1; // of the pen's reach, for each element; sharp turns take more of it

    const double reach = penWidth / 2;
    const QRectF around =
        transform.mapRect(path.controlPointRect().adjusted(-reach, -reach, reach, reach)) & QRectF(area);
    const double elements = path.elementCount();
    double length = kJoin * reach * elements;
    for (int i = 1; i < path.elementCount(); ++i) {
        const QPointF step = QPointF(path.elementAt(i)) - QPointF(path.elementAt(i - 1));
        length += std::sqrt(QPointF::dotProduct(step, step));
    }
    length *= scaleOf(transform);
    const double bands = std::min(around.height(), length / kLengthPerBand);
    return bands * (kLengthWalk * length + kElementWalk * elements) >
           kPixelComposition * around.width() * around.height() + kElementConversion * elements;
}

// The pixels that edges go through, and those between.
QRect pixelsOf(const std::vector<Edge> &edges)
{
    constexpr int kSubpixelBits = 8;
    constexpr int kMost = std::numeric_limits<int>::max();
    int left = kMost, top = kMost, right = -kMost, bottom = -kMost;
    for (const Edge &edge : edges) {
        left = std::min({left, edge.x1, edge.x2});
        right = std::max({right, edge.x1, edge.x2});
        top = std::min({top, edge.y1, edge.y2});
        bottom = std::max({bottom, edge.y1, edge.y2});
    }
    QRect pixels;
    pixels.setCoords(left >> kSubpixelBits, top >> kSubpixelBits, right >> kSubpixelBits, bottom >> kSubpixelBits);
    return pixels;
}

void paint(QPainter &painter, const std::vector<Edge> &edges, const QRect &area)
{
    if (area.isEmpty())
        return;
    const Ink ink(painter);
    const PainterStateScope scope(painter);
    painter.resetTransform();
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    const int bandRows = qBound(kLeastBandRows, int(edges.size()) / kEdgesPerBandRow, kMostBandRows);
    CoverageBand band({area.width(), bandRows});
    std::vector<uchar> coverage(std::size_t(area.width()));
    for (int top = area.top(); top <= area.bottom(); top += bandRows) {
        const QRect rows = area & QRect(area.left(), top, area.width(), bandRows);
        band.moveTo(rows);
        for (const Edge &edge : edges)
            band.add(edge);

        const QImage inks = ink.on(rows);
        QImage result = deviceOf(painter).copy(rows);
        for (int i = 0; i < rows.height(); ++i) {
            const auto *inkRow = reinterpret_cast<const QRgb *>(inks.constScanLine(ink.isSolid() ? 0 : i));
            auto *row = reinterpret_cast<QRgb *>(result.scanLine(i));
            for (int x = band.takeRow(top + i, coverage.data()); x < rows.width(); ++x) {
                if (coverage[std::size_t(x)] > 0)
                    row[x] = ink.over(row[x], inkRow[x], coverage[std::size_t(x)]);
            }
        }
        painter.drawImage(rows.topLeft(), result);
    }
}

// Whether that is what drawPath() does.
bool paintCrowded(QPainter &painter, const QPainterPath &path)
{
    if (path.elementCount() < kFewest || !isOutlined(painter))
        return false;
    const std::optional<QRect> area = paintable(painter);
    if (!area || !isCrowded(path, painter.pen().widthF(), painter.deviceTransform(), *area))
        return false;
    const QPainterPath outline = QPainterPathStroker(painter.pen()).createStroke(path);
    const std::optional<std::vector<Edge>> edges = edgesOf(outline, painter.deviceTransform());
    if (!edges)
        return false;
    paint(painter, *edges, *area & pixelsOf(*edges));
    return true;
}

#ifdef __x86_64__
__attribute__((target("avx"))) void clearUpperHalves()
{
    _mm256_zeroupper();
}
#endif

// One of the span fills of Qt 5.15 returns with the upper halves of the AVX registers in use. Until they are cleared,
// every SSE instruction costs more on many CPUs, and there are nothing but these in the making of an outline.
void freeRegisters()
{
#ifdef __x86_64__
    static const bool hasAvx = __builtin_cpu_supports("avx");
    if (hasAvx)
        clearUpperHalves();
#endif
}

} // namespace

void InkInternal::paintPath(QPainter &painter, const QPainterPath &path)
{
    if (paintCrowded(painter, path))
        return;
    freeRegisters();
    painter.drawPath(path);
}

#include "roundlines_p.h"

#include "core/mixing_p.h"

#include <QtGui/QPainterPath>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

using namespace InkInternal;

namespace {

constexpr int kSide = 128;            // pixels of a tile
constexpr int kMostAtOnce = 16;       // lines
constexpr double kHairline = 1;       // up to this width Qt paints lines, not outlines
constexpr double kShortest = 1. / 64; // pixels; nearer points may be one to Qt
constexpr double kFarthest = 1 << 14; // pixels from the image's corner; farther off, coordinates have fewer bits left

QRgb inkOf(const QPen &pen)
{
    return pen.color().rgba64().premultiplied().toArgb32();
}

// What becomes of a premultiplied pixel that Qt stores in a plain ARGB32 image. Processors round it in several ways.
class Storing
{
public:
    static const Storing &ofQt()
    {
        static const Storing storing;
        return storing;
    }

    // Whether it is the same in runs of any length, and fetched again is the premultiplied pixel, as qPremultiply() has
    // it.
    bool isReliable() const { return m_isReliable; }

    QRgb stored(QRgb pixel) const
    {
        const int alpha = qAlpha(pixel);
        const Values &values = m_values[std::size_t(alpha)];
        const auto channel = [&values](int value) { return values[std::size_t(value)]; };
        return qRgba(channel(qRed(pixel)), channel(qGreen(pixel)), channel(qBlue(pixel)), alpha);
    }

private:
    static constexpr int kValues = 256;
    using Values = std::array<uchar, kValues>; // of a channel, by its premultiplied value

    // In parts, since Qt would start threads for many rows.
    Storing()
    {
        constexpr int kRows = 16;
        for (int alpha = 0; alpha < kValues; alpha += kRows)
            learn(alpha, kRows);
    }

    void learn(int firstAlpha, int alphas)
    {
        QImage pixels(kValues, alphas, QImage::Format_ARGB32_Premultiplied); // a row for each alpha
        for (int y = 0; y < alphas; ++y) {
            for (int value = 0; value < kValues; ++value) {
                const int channel = std::min(value, firstAlpha + y);
                pixels.setPixel(value, y, qRgba(channel, channel, channel, firstAlpha + y));
            }
        }
        const QImage stored = storedInRuns(pixels, kValues);
        for (int y = 0; y < alphas; ++y) {
            for (int value = 0; value < kValues; ++value)
                m_values[std::size_t(firstAlpha + y)][std::size_t(value)] = uchar(qBlue(stored.pixel(value, y)));
        }
        QImage plain(pixels.size(), QImage::Format_ARGB32);
        QImage fetched(pixels.size(), pixels.format());
        for (int y = 0; y < alphas; ++y) {
            for (int value = 0; value < kValues; ++value) {
                const QRgb pixel = qRgba(value, value, value, firstAlpha + y);
                plain.setPixel(value, y, pixel);
                fetched.setPixel(value, y, qPremultiply(pixel));
            }
        }
        m_isReliable = m_isReliable && stored == storedInRuns(pixels, 1) && stored == storedInRuns(pixels, 7) &&
                       copied(stored, pixels.format()) == pixels && copied(plain, pixels.format()) == fetched;
    }

    static QImage copied(const QImage &image, QImage::Format format)
    {
        QImage copy(image.size(), format);
        QPainter painter(&copy);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.drawImage(0, 0, image);
        return copy;
    }

    // Fetched, left as they are, and stored.
    static QImage storedInRuns(const QImage &pixels, int length)
    {
        QImage stored = copied(pixels, QImage::Format_ARGB32);
        QPainter painter(&stored);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setCompositionMode(QPainter::CompositionMode_DestinationOver);
        for (int x = 0; x < pixels.width(); x += length) {
            QPainterPath run;
            run.addRoundedRect(QRectF(x, 0, length, pixels.height()), 0, 0);
            painter.fillPath(run, Qt::transparent);
        }
        return stored;
    }

    bool m_isReliable = true;
    std::array<Values, kValues> m_values; // by alpha
};

} // namespace

bool RoundLines::Pass::hasOutline() const
{
    return pen.widthF() > kHairline;
}

RoundLines::RoundLines(QImage &image, const std::vector<QPen> &pens)
    : m_image(image)
    , m_isAble(image.format() == QImage::Format_ARGB32 && image.devicePixelRatioF() == 1.0 &&
               Storing::ofQt().isReliable())
{
    for (const QPen &pen : pens) {
        m_passes.push_back({pen, inkOf(pen), RoundOutline(pen.widthF())});
        m_widest = std::max(m_widest, pen.widthF());
    }
}

int RoundLines::paint(const QVector<QPointF> &points, int first)
{
    if (!m_isAble)
        return first;
    constexpr std::size_t kEdges = 64; // of a line with all pens, if they are not wide
    m_edges.clear();
    m_edges.reserve(kMostAtOnce * kEdges);
    m_outlines.clear();
    QRect box;
    int end = first;
    for (; end + 1 < points.size() && end - first < kMostAtOnce; ++end) {
        const std::optional<QRect> around = pixelsAround(points.at(end), points.at(end + 1));
        const QRect larger = around ? box | *around : QRect();
        if (larger.isEmpty() || larger.width() > kSide || larger.height() > kSide ||
            !trace({points.at(end), points.at(end + 1)}))
            break;
        box = larger;
    }
    if (end == first)
        return first;
    m_isAble = load(box);
    if (!m_isAble)
        return first;
    auto outline = m_outlines.begin();
    for (int i = first; i < end; ++i) {
        for (const Pass &pass : m_passes) {
            if (pass.hasOutline()) {
                fill(*outline++, pass.ink);
            } else {
                onTile(pass).drawLine(points.at(i), points.at(i + 1));
            }
        }
    }
    store();
    return end;
}

// What a line can change, where that is a part of the image that a tile holds.
std::optional<QRect> RoundLines::pixelsAround(const QPointF &from, const QPointF &to) const
{
    constexpr double kRim = 2;
    const double reach = m_widest / 2 + kRim;
    const double left = std::min(from.x(), to.x()) - reach, right = std::max(from.x(), to.x()) + reach;
    const double top = std::min(from.y(), to.y()) - reach, bottom = std::max(from.y(), to.y()) + reach;
    const bool isInside = left >= 0 && top >= 0 && right < std::min(double(m_image.width()), kFarthest) &&
                          bottom < std::min(double(m_image.height()), kFarthest);
    if (!isInside || right - left >= SmallCoverage::kMostSide - 1 || bottom - top >= SmallCoverage::kMostSide - 1 ||
        !(std::hypot(to.x() - from.x(), to.y() - from.y()) >= kShortest))
        return {};
    return QRect(QPoint(int(left), int(top)), QPoint(int(right), int(bottom)));
}

// False where storing would change a pixel that no line goes through: what a host has put there need not be one that
// comes back as it is.
bool RoundLines::load(const QRect &box)
{
    if (m_tile.width() < box.width() || m_tile.height() < box.height()) {
        m_tilePainter.reset();
        m_tile = QImage(box.size().expandedTo(m_tile.size()), QImage::Format_ARGB32_Premultiplied);
        m_pixels = reinterpret_cast<QRgb *>(m_tile.bits());
    }
    m_box = box;
    m_tilePass = nullptr;
    for (int y = 0; y < box.height(); ++y) {
        const QRgb *from = imageRow(y);
        QRgb *row = m_pixels + y * m_tile.width();
        std::transform(from, from + box.width(), row, [](QRgb pixel) { return qPremultiply(pixel); });
        if (!std::equal(from, from + box.width(), row,
                        [](QRgb pixel, QRgb fetched) { return pixel == Storing::ofQt().stored(fetched); }))
            return false;
    }
    return true;
}

// A painter with the pen of a pass, in the coordinates of the image. Not every brush needs one, and it takes up tens of
// kilobytes.
QPainter &RoundLines::onTile(const Pass &pass)
{
    if (!m_tilePainter) {
        m_tilePainter.emplace(&m_tile);
        m_tilePainter->setRenderHint(QPainter::Antialiasing);
    }
    if (m_tilePass != &pass) {
        m_tilePainter->setTransform(QTransform::fromTranslate(-m_box.left(), -m_box.top()));
        m_tilePainter->setPen(pass.pen);
        m_tilePass = &pass;
    }
    return *m_tilePainter;
}

void RoundLines::store()
{
    for (int y = 0; y < m_box.height(); ++y) {
        const QRgb *row = m_pixels + y * m_tile.width();
        const auto stored = [](QRgb pixel) { return Storing::ofQt().stored(pixel); };
        std::transform(row, row + m_box.width(), imageRow(y), stored);
    }
}

// Of the part that is in the tile.
QRgb *RoundLines::imageRow(int y)
{
    return reinterpret_cast<QRgb *>(m_image.scanLine(m_box.top() + y)) + m_box.left();
}

// False where it is not certain what Qt would paint.
bool RoundLines::trace(const QLineF &line)
{
    for (Pass &pass : m_passes) {
        if (!pass.hasOutline())
            continue;
        const std::size_t firstEdge = m_edges.size();
        const std::optional<QRect> pixels = pass.outline.trace(line, m_edges);
        if (!pixels)
            return false;
        m_outlines.push_back({*pixels, firstEdge, m_edges.size()});
    }
    return true;
}

void RoundLines::fill(const Outline &outline, QRgb ink)
{
    const QRect area = m_box & outline.pixels;
    m_coverage.moveTo(area);
    for (std::size_t i = outline.firstEdge; i < outline.endEdge; ++i)
        m_coverage.add(m_edges[i]);
    for (int y = area.top(); y <= area.bottom(); ++y) {
        QRgb *const row = m_pixels + (y - m_box.top()) * m_tile.width() + area.left() - m_box.left();
        layOver(row, m_coverage.takeRow(y), area.width(), ink);
    }
}

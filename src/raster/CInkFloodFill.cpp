#include "CInkFloodFill.h"

#include "core/cache_p.h"
#include "core/geometry_p.h"
#include "core/life_p.h"
#include "raster/fill_p.h"
#include "raster/layer_p.h"
#include "raster/region_p.h"

#include <algorithm>

using namespace InkInternal;

namespace {

constexpr int kSeedPoints = 10;
constexpr int kUpdateMargin = 10; // canvas pixels around what was filled

} // namespace

CInkFloodFill::CInkFloodFill() = default;

CInkFloodFill::CInkFloodFill(QSize canvas)
    : m_rcCanvas(canvasRect(canvas))
{
    m_graphData.resize(kSeedPoints);
}

CInkFloodFill::~CInkFloodFill() = default;

void CInkFloodFill::Draw(QPainter &p1, QPainter &p2, QPainter & /*p3*/, QPainter &p4, QRect /*rc*/, int /*reserved*/,
                         int skip)
{
    if (skip || m_nPointCount < 1 || !m_bFinished)
        return;

    // [ink-fill-every-draw] Filled anew each time, from what the page now is.
    assignImage(m_pImage, blankPixels(m_rcCanvas));
    const QRect filled = formFill(*this, p1);
    paintBitmap(*m_pImage, m_rcCanvas, filled, {&p2, &p1, &p4});
}

void CInkFloodFill::SetCanvasSize(QSize size)
{
    m_rcCanvas = canvasRect(size);
}

int CInkFloodFill::GetPointCount()
{
    return m_nPointCount;
}

bool CInkFloodFill::FinishGraph()
{
    if (m_nPointCount < 1)
        return false;
    commit(*this);
    return true;
}

QRect CInkFloodFill::GetUpdateRect()
{
    return m_bFilled ? grown(m_rcFillBounds, kUpdateMargin) : m_rcCanvas;
}

void CInkFloodFill::AddPoint(int code, QPoint pt, QRect &update)
{
    if (code != PT_DOWN)
        return;
    if (m_graphData.isEmpty())
        m_graphData.resize(1);
    m_graphData[0] = widened(pt);
    m_nPointCount = 1;
    commit(*this);
    // [ink-fill-assigns-update] Not united with what the host has collected, and taken before the bounds are reset.
    update = GetUpdateRect();
    m_rcFillBounds = QRect(pt, pt);
}

QColor CInkFloodFill::GetPixel(int x, int y, QImage *img)
{
    // [ink-fill-drops-alpha] An empty pixel of a transparent layer equals opaque black.
    return img && img->valid(x, y) ? QColor(img->pixel(x, y)) : QColor();
}

void CInkFloodFill::SetPixel(int x, int y, QColor color, QImage *img)
{
    for (QImage *image : {img, m_pImage}) {
        if (image && image->valid(x, y))
            image->setPixel(x, y, color.rgb());
    }
    m_rcFillBounds = edges(std::min(m_rcFillBounds.left(), x), std::min(m_rcFillBounds.top(), y),
                           std::max(m_rcFillBounds.right(), x), std::max(m_rcFillBounds.bottom(), y));
}

void CInkFloodFill::FormFloodFillBmp(QPainter &layer)
{
    formFill(*this, layer);
}

QRect InkInternal::formFill(CInkFloodFill &fill, QPainter &layer)
{
    QImage *image = layerImage(layer);
    if (!image || fill.m_graphData.isEmpty())
        return {};
    // [ink-layer-pixels] The press and the canvas are in pixels of the image, whatever the painter makes of positions.
    const QPoint seed = truncated(fill.m_graphData.constFirst());
    const QColor target = fill.GetPixel(seed.x(), seed.y(), image);
    // [ink-fill-same-color] The fill colour is compared with its alpha and its colour model, the pixel without.
    if (fill.m_color == target || !fill.m_rcCanvas.contains(seed) || !image->valid(seed))
        return {};

    // The canvas begins at the origin, but the field is public: the page's own pixels bound the region, too. Not with
    // Qt's operator, which takes a canvas wider than an int for one that is turned over.
    const QRect canvas = normalized(fill.m_rcCanvas);
    const QRect within(
        QPoint(std::max(canvas.left(), 0), std::max(canvas.top(), 0)),
        QPoint(std::min(canvas.right(), image->width() - 1), std::min(canvas.bottom(), image->height() - 1)));
    const QRect filled = floodRegion(*image, fill.m_pImage, within, seed, fill.m_color.rgb());
    QRect &bounds = fill.m_rcFillBounds;
    bounds = edges(std::min(bounds.left(), filled.left()), std::min(bounds.top(), filled.top()),
                   std::max(bounds.right(), filled.right()), std::max(bounds.bottom(), filled.bottom()));
    fill.m_bFilled = 1;
    return filled;
}

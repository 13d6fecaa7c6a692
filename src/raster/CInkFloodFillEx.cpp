#include "CInkFloodFillEx.h"

#include "core/cache_p.h"
#include "core/geometry_p.h"
#include "core/painting_p.h"
#include "raster/fill_p.h"
#include "raster/layer_p.h"

#include <memory>

using namespace InkInternal;

CInkFloodFillEx::CInkFloodFillEx(QSize canvas)
{
    m_graphData.resize(1);
    m_rcCanvas = canvasRect(canvas);
}

CInkFloodFillEx::~CInkFloodFillEx() = default;

void CInkFloodFillEx::Draw(QPainter &p1, QPainter &p2, QPainter & /*p3*/, QPainter &p4, QRect rc, int /*reserved*/,
                           int skip)
{
    if (skip || m_nPointCount < 1)
        return;

    const PainterStateScope scope1(p1);
    const PainterStateScope scope4(p4);
    const PainterStateScope scope2(p2);
    for (QPainter *layer : {&p1, &p4, &p2})
        layer->setClipRect(rc, Qt::ReplaceClip);

    QRect ink = m_pImage ? m_pImage->rect() : QRect();
    if (!m_bFilled && m_bHideHotShape && !drawnByAnother(*this)) {
        assignImage(m_pImage, blankPixels(m_rcCanvas));
        // [ink-fill-ex-before-commit] The page is filled at the first Draw after the press, whatever is to be
        // repainted.
        ink = formFill(*this, p1);
        m_pLocalBitmap = m_pImage;
    }
    if (m_pImage && m_bFinished)
        paintBitmap(*m_pImage, m_rcCanvas, ink, {&p2, &p1, &p4});
}

void CInkFloodFillEx::AddPoint(int code, QPoint pt, QRect &update)
{
    if (code != PT_DOWN)
        return;
    if (m_graphData.isEmpty())
        m_graphData.resize(1);
    m_graphData[0] = widened(pt);
    m_nPointCount = 1;
    m_bHideHotShape = 1;
    // [ink-fill-ex-bounds] Assigned; the bounds are not reset, so they reach the origin.
    update = GetUpdateRect();
}

QImage *CInkFloodFillEx::GetBitmap()
{
    m_bBitmapGetted = 1;
    return m_pImage;
}

int CInkFloodFillEx::IsBitmapGetted()
{
    return m_bBitmapGetted;
}

void CInkFloodFillEx::InitPicture(void *data, int len)
{
    if (!data || m_pLocalBitmap) {
        m_bFinished = 1;
        return;
    }
    const std::unique_ptr<QImage> image(ImageFromMem(data, len));
    assignImage(m_pImage, *image);
}

void CInkFloodFillEx::SetFloodFillBitmap(void *data, int len)
{
    if (data)
        InitPicture(data, len);
    m_bFinished = 1;
}

#include "CInkRgnSelect.h"

#include "core/cache_p.h"
#include "core/geometry_p.h"
#include "core/painting_p.h"
#include "raster/layer_p.h"

using namespace InkInternal;

namespace {

constexpr int kDefaultWidth = 2;
constexpr float kAbandonDistance = 6.0f; // canvas pixels; corners of exactly this distance are still too close
constexpr float kFrameWidth = 1.3f;

} // namespace

CInkRgnSelect::CInkRgnSelect()
{
    m_nWidth = kDefaultWidth;
}

CInkRgnSelect::~CInkRgnSelect() = default;

void CInkRgnSelect::Draw(QPainter &p1, QPainter &p2, QPainter &p3, QPainter &p4, QRect rc, int /*reserved*/,
                         int /*skip*/)
{
    if (m_nPointCount == 0 || m_graphData.size() < 2)
        return;

    if (!m_bFinished) {
        // [ink-clip-outlives-draw] Set before the state is saved: the host finds it afterwards.
        p2.setClipRect(rc, Qt::ReplaceClip);
        const PainterStateScope scope(p2);
        p2.setRenderHint(QPainter::Antialiasing);
        if (!m_bEditMode) {
            p2.setPen(QPen(Qt::black, double(kFrameWidth), Qt::DashLine, Qt::SquareCap, Qt::BevelJoin));
            p2.drawRect(cornerBox(m_graphData.at(0), m_graphData.at(1)));
        }
        DrawDisInfo(p2);
    } else if (m_bEditMode) {
        // [ink-select-clips-stay] No state is saved, so the clips stay on three painters.
        for (QPainter *layer : {&p4, &p1, &p3})
            layer->setClipRect(rc, Qt::ReplaceClip);
        // [ink-select-every-draw] Lifted anew each time, from what the ink now is.
        FormSelBmp(layerImage(p4));
        DrawRng2theBk(p4, p1, p3);
    }
}

void CInkRgnSelect::AddPoint(int code, QPoint pt, QRect &update)
{
    // [ink-select-after-commit] m_bFinished is not tested: the second corner goes on moving.
    m_bSparePoint = 0;
    const QRect before = GetUpdateRect();
    if (m_graphData.size() < 2)
        m_graphData.resize(2);
    if (code == PT_DOWN) {
        m_graphData[0] = m_graphData[1] = widened(pt);
        m_nPointCount = 1;
    } else if (m_nPointCount > 0) {
        m_graphData[1] = widened(pt);
        m_nPointCount = 2;
        m_bSparePoint = code != PT_UP;
        if (code == PT_UP) {
            const QPointF first = m_graphData.at(0);
            const QPointF second = m_graphData.at(1);
            m_bFinished = 1;
            if (CalcGapOfpoints(first, second) > kAbandonDistance && first.x() != second.x() &&
                first.y() != second.y()) {
                m_bEditMode = 1;
                SetHotData(0, 0);
            }
        }
    }
    update = update | (before | GetUpdateRect());
}

void CInkRgnSelect::FormSelBmp(QImage *source)
{
    if (!source || source->isNull())
        return;
    QImage lifted = blankPixels(m_rcHot);
    if (lifted.isNull())
        return;
    QPainter painter(&lifted);
    // [ink-layer-pixels] The frame is in pixels of the source, whatever the layer's painter makes of positions.
    paintImage(painter, QRectF(0, 0, lifted.width(), lifted.height()), *source, real(m_rcHot));
    painter.end();
    assignImage(m_pImage, lifted);
}

void CInkRgnSelect::DrawRng2theBk(QPainter &ink, QPainter &layer, QPainter &background)
{
    ink.setCompositionMode(QPainter::CompositionMode_Clear);
    ink.fillRect(m_rcHot, QColor(255, 255, 255, 0));
    ink.setCompositionMode(QPainter::CompositionMode_SourceOver);
    if (const QImage *picture = layerImage(background))
        paintImage(layer, real(m_rcHot), *picture, real(m_rcHot));
}

void CInkRgnSelect::DrawDisInfo(QPainter &painter)
{
    if (m_bShowDrawerName && m_graphData.size() > 1)
        DrawStudentName(painter);
    if (m_bShowDrawerIcon && !m_bEditMode)
        DrawGraphIcon(painter);
}

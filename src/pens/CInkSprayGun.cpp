#include "CInkSprayGun.h"

#include "core/cache_p.h"
#include "core/geometry_p.h"
#include "core/life_p.h"
#include "core/painting_p.h"
#include "pens/stroke_p.h"

#include <algorithm>

using namespace InkInternal;

namespace {

constexpr int kReservedPoints = 20;
constexpr int kReportMargin = 10; // canvas pixels around a square of the pen width

} // namespace

CInkSprayGun::CInkSprayGun(QSize canvas)
    : m_rcCanvas(canvasRect(canvas))
{
    m_graphData.reserve(kReservedPoints);
}

CInkSprayGun::~CInkSprayGun() = default;

void CInkSprayGun::Draw(QPainter &painter, QRect &rect)
{
    if (m_graphData.isEmpty() || !ensureCache(*this, m_rcCanvas))
        return;

    if (!m_bFinished)
        m_rcDirty = m_rcDirty | rect;
    const PainterStateScope scope(painter);
    // [ink-textured-clip-restored] Set after the state is saved.
    painter.setClipRect(m_bFinished ? m_rcCanvas : m_rcDirty, Qt::ReplaceClip);
    DrawSprayGraph(painter);
    m_rcDirty = QRect();
}

void CInkSprayGun::SetCanvasSize(QSize size)
{
    m_rcCanvas = canvasRect(size);
}

int CInkSprayGun::GetPointCount()
{
    return m_graphData.size();
}

bool CInkSprayGun::FinishGraph()
{
    // [ink-spray-never-finishes] Nothing raises the counter, so a spray ends only at its release.
    if (m_nPointCount <= 0)
        return false;
    commit(*this);
    return true;
}

QRect CInkSprayGun::GetUpdateRect()
{
    if (m_graphData.isEmpty())
        return {};
    if (m_bFinished)
        return m_rcHot;
    const qint64 width = m_nWidth;
    const QPoint dot = truncated(m_graphData.constLast());
    const qint64 left = dot.x() - width / 2 - kReportMargin;
    const qint64 top = dot.y() - width / 2 - kReportMargin;
    const QRect spot = sized(left, top, width + 2 * kReportMargin, width + 2 * kReportMargin);

    m_rcName = m_bShowDrawerName ? sized(dot, m_sizeName) : QRect();
    m_rcIcon = m_bShowDrawerIcon ? iconRectOnTip(m_graphData) : QRect();
    const QRect name = m_bShowDrawerName ? grown(m_rcName, width) : QRect();
    const QRect icon = m_bShowDrawerIcon ? grown(m_rcIcon, width) : QRect();
    const QRect reported = spot | (name | icon);
    m_rcDirty = m_rcDirty | reported;
    return reported;
}

void CInkSprayGun::AddPoint(int code, QPoint pt, QRect &update)
{
    if (m_bFinished)
        return;
    m_graphData.append(widened(pt));
    if (code == PT_UP)
        commit(*this);
    // [ink-spray-reaches-origin] The box starts as the null rectangle at the origin, which it goes on containing.
    m_rcHot = edges(std::min(m_rcHot.left(), pt.x()), std::min(m_rcHot.top(), pt.y()),
                    std::max(m_rcHot.right(), pt.x()), std::max(m_rcHot.bottom(), pt.y()));
    // [ink-spray-assigns-update] Not united with what the host has collected.
    update = GetUpdateRect();
}

void CInkSprayGun::DrawSprayGraph(QPainter &painter)
{
    if (!ensureCache(*this, m_rcCanvas))
        return;
    const QVector<QPointF> &points = m_graphData;
    // [ink-spray-last-dot] The last dot is never plotted.
    for (int i = std::max(m_nDrawnCount, 0); i < points.size() - 1; m_nDrawnCount = ++i) {
        const QPoint dot = truncated(points.at(i));
        if (m_pImage->valid(dot))
            m_pImage->setPixel(dot, m_color.rgba());
    }
    layOver(painter, *m_pImage, m_rcCanvas, real(m_rcCanvas));
}

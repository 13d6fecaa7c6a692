#include "CInkSignGraph.h"

#include "core/geometry_p.h"
#include "core/life_p.h"
#include "core/painting_p.h"
#include "stencils/stencil_p.h"

#include <algorithm>

using namespace InkInternal;

namespace {

constexpr float kAbandonDistance = 4.0f; // canvas pixels; a drag of exactly this length is still too short
constexpr int kFrameMargin = 10;         // between the shape and its handles
constexpr int kMinDragMargin = 10;       // around the box that is being dragged

void endDrag(CInkSignGraph &stencil)
{
    QVector<QPointF> &points = stencil.m_graphData;
    const int count = points.size() - 2;
    if (stencil.CalcGapOfpoints(points.at(count), points.at(count + 1)) <= kAbandonDistance) {
        commit(stencil);
        return;
    }
    stencil.m_nPointCount = count;
    stencil.m_bEditMode = 1;
    stencil.NormalizeGraphData(points);
    points.resize(count);
    stencil.SetHotData(kFrameMargin, kFrameMargin);
}

} // namespace

CInkSignGraph::CInkSignGraph() = default;
CInkSignGraph::~CInkSignGraph() = default;

void CInkSignGraph::Draw(QPainter &painter, QRect &rect)
{
    if (!isShown(*this))
        return;

    // [ink-clip-outlives-draw] Set before the state is saved: the host finds it afterwards.
    painter.setClipRect(rect | GetUpdateRect(), Qt::ReplaceClip);
    paintOverHandles(*this, painter, styledPen(*this), [&] {
        const QVector<QPointF> &points = shownPoints(*this);
        if (m_nOutlinePointCount > 0 && points.size() >= m_nOutlinePointCount &&
            areRasterizable(points.constData(), m_nOutlinePointCount))
            painter.drawPolygon(points.constData(), m_nOutlinePointCount, Qt::OddEvenFill);
    });
}

void CInkSignGraph::SetWidth(int width)
{
    m_nWidth = width;
}

int CInkSignGraph::GetPointCount()
{
    return m_nPointCount;
}

bool CInkSignGraph::FinishGraph()
{
    if (m_nPointCount <= 0)
        return false;
    // [ink-stencil-finish-no-handles] Finished in mid-drag it stays invisible, and no handles are laid out.
    commit(*this);
    return true;
}

QRect CInkSignGraph::GetUpdateRect()
{
    if (m_bEditMode)
        return normalized(coveredInEdit(*this));
    const int size = m_graphData.size();
    if (size < 2)
        return {};
    const QPointF press = m_graphData.at(size - 2);
    const QPointF pointer = m_graphData.at(size - 1);
    const qint64 width = m_nWidth;
    if (m_nPointCount == 1) {
        const QPoint corner = truncated(press);
        return normalized(sized(corner.x() - width, corner.y() - width, 3 * width, 3 * width));
    }
    if (m_nPointCount == 2) {
        const QPoint tip = truncated(pointer);
        m_rcName = m_bShowDrawerName ? sized(tip, m_sizeName) : QRect();
        m_rcIcon = m_bShowDrawerIcon ? iconRectAround(tip) : QRect();
        const QRect box = grown(cornerBox(press, pointer), std::max<qint64>(3 * width, kMinDragMargin));
        return normalized(box | m_rcName | m_rcIcon);
    }
    return {};
}

void CInkSignGraph::AddPoint(int code, QPoint pt, QRect &update)
{
    if (m_bFinished)
        return;
    m_bSparePoint = 0;
    if (m_bEditMode)
        editEvent(*this, code, pt, update);
    else
        FormGraphData(code, pt, update);
}

QRect CInkSignGraph::FormGraphData(int code, QPoint pt, QRect &update)
{
    m_bSparePoint = 0;
    const QRect before = GetUpdateRect();
    const int size = m_graphData.size();
    if (size < 2)
        return update;

    QPointF &press = m_graphData[size - 2];
    QPointF &pointer = m_graphData[size - 1];
    if (code == PT_DOWN) {
        press = pointer = widened(pt);
        m_nPointCount = 1;
    } else if (m_nPointCount >= 1) {
        pointer = widened(pt);
        m_nPointCount = 2;
        m_previewData = m_graphData;
        NormalizeGraphData(m_previewData);
        m_bSparePoint = code != PT_UP;
        if (code == PT_UP)
            endDrag(*this);
    }
    update = update | (before | GetUpdateRect());
    return update;
}

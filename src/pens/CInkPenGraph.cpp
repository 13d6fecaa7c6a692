#include "CInkPenGraph.h"

#include "core/geometry_p.h"
#include "core/life_p.h"
#include "pens/stroke_p.h"

#include <algorithm>

using namespace InkInternal;

namespace {

constexpr int kMinSegmentMargin = 20; // around the newest segment

// The name label hangs at `corner`. [ink-pen-name-doubled] Its far edges count the corner's coordinates twice.
QRect nameRectCornerTwice(const QPoint &corner, const QSize &size)
{
    return edges(corner.x(), corner.y(), 2 * qint64(corner.x()) + size.width() - 1,
                 2 * qint64(corner.y()) + size.height() - 1);
}

void endStroke(CInkPenGraph &pen)
{
    pen.m_bEditMode = 1;
    pen.SetHotData(kStrokeFrameMargin, kStrokeFrameMargin);
    commit(pen);
}

} // namespace

CInkPenGraph::CInkPenGraph() = default;
CInkPenGraph::~CInkPenGraph() = default;

bool CInkPenGraph::FinishGraph()
{
    if (m_graphData.isEmpty())
        return false;
    endStroke(*this);
    return true;
}

QRect CInkPenGraph::GetUpdateRect()
{
    if (m_bFinished) {
        // [ink-pen-finished-no-icon] A finished stroke reports its name label, never its icon.
        m_rcName = m_bShowDrawerName ? nameRectCornerTwice(m_rcHot.topLeft(), m_sizeName) : QRect();
        return m_rcHot | m_rcName;
    }
    const int count = m_graphData.size();
    if (count < 2)
        return {};

    const QPoint from = truncated(m_graphData.at(count - 2));
    QRect segment = cornerBox(m_graphData.at(count - 2), m_graphData.at(count - 1));
    if (width(segment) < m_nWidth)
        segment.setRight(saturated(qint64(segment.right()) + m_nWidth));
    if (height(segment) < m_nWidth)
        segment.setBottom(saturated(qint64(segment.bottom()) + m_nWidth));
    segment = grown(segment, std::max<qint64>(2 * qint64(m_nWidth), kMinSegmentMargin));

    m_rcName = m_bShowDrawerName ? nameRectCornerTwice(from, m_sizeName) : QRect();
    m_rcIcon = m_bShowDrawerIcon ? GetDisIconRect() : QRect();
    return segment | (m_rcName | m_rcIcon);
}

void CInkPenGraph::AddPoint(int code, QPoint pt, QRect &update)
{
    if (!m_bFinished)
        FormGraphData(code, pt, update);
}

QRect CInkPenGraph::FormGraphData(int code, QPoint pt, QRect &update)
{
    m_bSparePoint = 0;
    const QRect before = GetUpdateRect();
    m_graphData.append(widened(pt));
    m_nPointCount = saturated(qint64(m_nPointCount) + 1);
    if (code == PT_UP)
        endStroke(*this);
    update = update | (before | GetUpdateRect());
    return update;
}

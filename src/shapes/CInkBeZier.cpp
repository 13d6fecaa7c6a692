#include "CInkBeZier.h"

#include "core/geometry_p.h"
#include "core/painting_p.h"
#include "shapes/shape_p.h"

#include <QtGui/QPainterPath>

using namespace InkInternal;

namespace {

enum Point { Start, FirstControl, SecondControl, End, PointCount };

constexpr float kAbandonDistance = 1.0f; // canvas pixels between start and end; exactly this far is still too short
constexpr int kUpdateMargin = 16;        // canvas pixels, whatever the width

// The point that follows the pointer, by the number of completed drags plus one.
Point followingPoint(int count)
{
    switch (count) {
    case 1:
        return End;
    case 2:
        return FirstControl;
    case 3:
        return SecondControl;
    default:
        return Start;
    }
}

void endDrag(CInkBeZier &curve)
{
    if (curve.CalcGapOfpoints(curve.m_graphData.at(Start), curve.m_graphData.at(End)) <= kAbandonDistance) {
        // [ink-curve-abandoned-painted] Keeps counter and points, so it is painted.
        commit(curve);
        return;
    }
    curve.m_nPointCount = saturated(qint64(curve.m_nPointCount) + 1);
    if (curve.m_nPointCount == PointCount) {
        curve.m_bEditMode = 1;
        curve.SetHotData(kFrameMargin, kFrameMargin);
    }
}

} // namespace

CInkBeZier::CInkBeZier(Qt::PenCapStyle begin, Qt::PenCapStyle end, Qt::PenStyle style)
    : m_capStyleBegin(begin)
    , m_capStyleEnd(end)
{
    m_graphData.resize(PointCount);
    m_penStyle = style;
}

CInkBeZier::~CInkBeZier() = default;

void CInkBeZier::Draw(QPainter &painter, QRect &rect)
{
    if (m_nPointCount == 0 || m_graphData.size() < PointCount)
        return;

    // [ink-clip-outlives-draw] Set before the state is saved: the host finds it afterwards.
    // [ink-curve-clip] United with the host's rectangle while edited, too.
    painter.setClipRect(rect | GetUpdateRect(), Qt::ReplaceClip);
    paintOverHandles(*this, painter, solidPen(*this, Qt::SquareCap), [&] {
        if (!areRasterizable(m_graphData.constData(), PointCount))
            return;
        QPainterPath path(m_graphData.at(Start));
        path.cubicTo(m_graphData.at(FirstControl), m_graphData.at(SecondControl), m_graphData.at(End));
        painter.drawPath(path);
    });
}

QRect CInkBeZier::GetUpdateRect()
{
    if (m_bEditMode)
        return coveredInEdit(*this);
    if (m_graphData.size() < PointCount)
        return {};
    const QPoint tip = truncated(m_graphData.at(followingPoint(m_nPointCount)));
    m_rcName = m_bShowDrawerName ? sized(tip, m_sizeName) : QRect();
    m_rcIcon = m_bShowDrawerIcon ? iconRectAround(tip) : QRect();
    return grown(GetRect(m_graphData), kUpdateMargin) | m_rcName | m_rcIcon;
}

QRect CInkBeZier::FormGraphData(int code, QPoint pt, QRect &update)
{
    m_bSparePoint = 0;
    const QRect before = GetUpdateRect();
    if (m_graphData.size() < PointCount)
        m_graphData.resize(PointCount);

    if (code == PT_DOWN) {
        if (m_nPointCount == 0) {
            m_graphData.fill(widened(pt));
            m_nPointCount = 1;
        }
    } else {
        // [ink-curve-moves-before-press] Also before the first press: a release then abandons the curve.
        if (m_nPointCount >= 1 && m_nPointCount <= 3)
            m_graphData[followingPoint(m_nPointCount)] = widened(pt);
        if (m_nPointCount == 1)
            m_graphData[SecondControl] = widened(pt); // a straight segment
        m_bSparePoint = code != PT_UP;
        if (code == PT_UP)
            endDrag(*this);
    }
    update = update | (before | GetUpdateRect());
    return update;
}

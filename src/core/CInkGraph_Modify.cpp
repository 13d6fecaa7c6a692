// What an editing drag does: move, stretch, rotate.

#include "CInkGraph.h"

#include "geometry_p.h"
#include "handles_p.h"

#include <algorithm>
#include <cmath>

using namespace InkInternal;

namespace {

constexpr int kMinExtent = 15;       // right - left, and bottom - top, of a box that was stretched too small
constexpr float kFrameMargin = 8.0f; // around the box when its diagonal is measured
constexpr float kKnobReach = 40.0f;  // top of the rotation handle above the frame: 30 up, radius 10
constexpr int kTurnedMargin = 10;    // around a rotated object; a wider pen needs its width

// Where a coordinate of the stretched box comes from.
enum class From { Caller, Frame, Pointer };

struct Stretch
{
    From left, top, right, bottom;
    int fixedHandle;     // -1: none
    bool tooNarrowRight; // a box that is too narrow moves its right edge, not its left
    bool tooLowBottom;   // a box that is too low moves its bottom edge, not its top
};

Stretch stretchOf(int modifyType)
{
    constexpr From C = From::Caller, F = From::Frame, P = From::Pointer;
    switch (modifyType) {
    case MT_LEFT_TOP:
        return {P, P, C, C, BottomRightHandle, false, false};
    case MT_TOP:
        return {F, P, C, C, BottomHandle, true, false};
    case MT_RIGHT_TOP:
        return {F, P, P, F, BottomLeftHandle, true, false};
    case MT_LEFT:
        return {P, F, C, C, RightHandle, false, false};
    case MT_RIGHT:
        return {C, C, P, F, LeftHandle, true, true};
    case MT_LEFT_BOTTOM:
        return {P, F, F, P, TopRightHandle, false, true};
    case MT_BOTTOM:
        return {C, C, F, P, TopHandle, false, true};
    case MT_RIGHT_BOTTOM:
        return {C, C, P, P, TopLeftHandle, true, true};
    default:
        return {C, C, C, C, -1, false, false};
    }
}

void take(int &coordinate, From from, int frame, int pointer)
{
    if (from != From::Caller)
        coordinate = from == From::Frame ? frame : pointer;
}

void keepMinExtent(int &low, int &high, bool moveHigh)
{
    if (qint64(high) - low > kMinExtent)
        return;
    if (moveHigh)
        high = saturated(qint64(low) + kMinExtent);
    else
        low = saturated(qint64(high) - kMinExtent);
}

// How much an axis grows whose inclusive edges were `oldLow` to `oldHigh`.
double stretchFactor(int low, int high, int oldLow, int oldHigh)
{
    const float oldExtent = float(qint64(oldHigh) - oldLow + 1) - 1.0f;
    if (oldExtent == 0.0f)
        return 1.0;
    return double(float(std::abs(qint64(high) - low)) / oldExtent);
}

// Whole degrees, 0 to 90.
float wholeDegrees(float opposite, float adjacent)
{
    constexpr double kDegreesPerRadian = 57.29578399658203; // in single precision, so a right angle is above 90.0
    if (adjacent == 0.0f)
        return 90.0f;
    return float(std::abs(truncated(std::atan(double(opposite / adjacent)) * kDegreesPerRadian)));
}

} // namespace

void CInkGraph::ModifyGraph(QPoint pt, ModifyType type)
{
    switch (type) {
    case MT_NONE:
        break;
    case MT_MOVE: {
        const QPoint from = truncated(m_ptLast);
        MoveGraph(pt, from);
        m_ptLast = widened(pt);
        MoveHotData(float(pt.x()) - float(from.x()), float(pt.y()) - float(from.y()));
        break;
    }
    case MT_ROTATE:
        m_fRotateAngle = CalcRotateAngle(pt, m_ptCenter);
        break;
    default:
        StretchGraph(pt);
    }
}

void CInkGraph::MoveGraph(float dx, float dy)
{
    const QPointF step{double(dx), double(dy)};
    for (QPointF &point : m_graphData)
        point += step;
}

void CInkGraph::MoveGraph(QPoint to, QPoint from)
{
    MoveGraph(float(to.x()) - float(from.x()), float(to.y()) - float(from.y()));
}

float CInkGraph::CalcRotateAngle(QPoint pt, QPointF center)
{
    const float dx = float(pt.x() - center.x());
    const float dy = float(pt.y() - center.y());
    if (dx > 0 && dy > 0)
        return 90.0f + wholeDegrees(dy, dx);
    if (dx <= 0 && dy > 0)
        return 180.0f + wholeDegrees(dx, dy);
    if (dx <= 0 && dy == 0)
        return 270.0f;
    if (dx < 0 && dy < 0)
        return 270.0f + wholeDegrees(dy, dx);
    return wholeDegrees(dx, dy);
}

void CInkGraph::CalcStretchPoint(QPoint &topLeft, QPoint &bottomRight, QPoint pt, QPointF &anchor)
{
    const Stretch stretch = stretchOf(m_modifyType);
    take(topLeft.rx(), stretch.left, m_rcHot.left(), pt.x());
    take(topLeft.ry(), stretch.top, m_rcHot.top(), pt.y());
    take(bottomRight.rx(), stretch.right, m_rcHot.right(), pt.x());
    take(bottomRight.ry(), stretch.bottom, m_rcHot.bottom(), pt.y());
    if (stretch.fixedHandle >= 0)
        anchor = m_hotPts[stretch.fixedHandle];
    keepMinExtent(topLeft.rx(), bottomRight.rx(), stretch.tooNarrowRight);
    keepMinExtent(topLeft.ry(), bottomRight.ry(), stretch.tooLowBottom);
}

void CInkGraph::StretchGraph(QPoint pt)
{
    const QPointF q = mapped(turn(m_ptCenter, -m_fRotateAngle), widened(pt));
    QPoint topLeft = m_rcHot.topLeft();
    QPoint bottomRight = m_rcHot.bottomRight();
    QPointF anchor;
    CalcStretchPoint(topLeft, bottomRight, truncated(q), anchor);

    const double sx = stretchFactor(topLeft.x(), bottomRight.x(), m_rcHot.left(), m_rcHot.right());
    const double sy = stretchFactor(topLeft.y(), bottomRight.y(), m_rcHot.top(), m_rcHot.bottom());
    for (QPointF &point : m_graphData)
        point = {anchor.x() + (point.x() - anchor.x()) * sx, anchor.y() + (point.y() - anchor.y()) * sy};

    m_rcHot = normalized(QRect(topLeft, bottomRight));
    // [ink-stretch-keeps-pivot] m_ptCenter stays where it was, so the object goes on turning about its old centre.
    layOutHandles(m_hotPts, m_rcHot);
}

void CInkGraph::AdjustGraph(float /*angle*/)
{
    const QPointF center = centerOfEdges(m_rcHot);
    // [ink-adjust-inverse] Maps with the inverse rotation although the object then jumps.
    const QPointF turned = mapped(turn(m_ptCenter, -m_fRotateAngle), center);
    const float dx = float(turned.x() - center.x());
    const float dy = float(turned.y() - center.y());
    // [ink-adjust-both-axes] A shift along one axis alone is not applied. No tolerance: after a half turn the other
    // axis mostly carries a rest of 1e-14, which counts.
    if (dx != 0.0f && dy != 0.0f) {
        MoveGraph(dx, dy);
        MoveHotData(dx, dy);
    }
    m_ptCenter = centerOfEdges(m_rcHot);
}

QRect CInkGraph::GetRotateUpDateRect()
{
    const float w = float(width(m_rcHot)) + kFrameMargin;
    const float h = float(height(m_rcHot)) + kFrameMargin;
    const float diagonal = sqrtf(w * w + h * h);
    const float half = std::max(h * 0.5f + kKnobReach, std::max(h + kKnobReach, diagonal) * 0.5f);

    const QMatrix forwards = turn(m_ptCenter, m_fRotateAngle);
    QVector<QPointF> corners;
    for (const QPoint &corner : {m_rcHot.topLeft(), m_rcHot.topRight(), m_rcHot.bottomRight(), m_rcHot.bottomLeft()})
        corners.append(mapped(forwards, widened(corner)));
    const QRect bounds = GetRect(corners);

    const int cx = int((qint64(bounds.left()) + bounds.right()) / 2);
    const int cy = int((qint64(bounds.top()) + bounds.bottom()) / 2);
    const int side = truncated(double(half + half));
    const QRect square = sized(truncated(double(float(cx) - half)), truncated(double(float(cy) - half)), side, side);
    return grown(normalized(square), std::max(m_nWidth, kTurnedMargin));
}

QRect CInkGraph::GetRect(QVector<QPointF> &points)
{
    if (points.isEmpty())
        return {};

    const QRect bounds = pixelBounds(points);
    // [ink-rect-short] One pixel short on the right and at the bottom.
    return edges(bounds.left(), bounds.top(), qint64(bounds.right()) - 1, qint64(bounds.bottom()) - 1);
}

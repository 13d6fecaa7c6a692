// Selection handles: where they lie, what a pointer hits, how they are painted.

#include "CInkGraph.h"

#include "geometry_p.h"
#include "handles_p.h"
#include "painting_p.h"

#include <QtGui/QPainterPath>

using namespace InkInternal;

namespace {

constexpr float kHitRadius = 10.0f; // canvas pixels; a pointer exactly this far away still hits
constexpr double kKnobRise = 30.0;  // of the rotation handle above the frame
constexpr double kKnobRadius = 10.0;
constexpr int kSquareSide = 8; // of the box handles

// Where handles lie close together the earlier one wins.
constexpr struct
{
    Handle handle;
    ModifyType type;
} kHitOrder[] = {
    {TopLeftHandle, MT_LEFT_TOP},   {TopHandle, MT_TOP},
    {TopRightHandle, MT_RIGHT_TOP}, {LeftHandle, MT_LEFT},
    {RightHandle, MT_RIGHT},        {BottomLeftHandle, MT_LEFT_BOTTOM},
    {BottomHandle, MT_BOTTOM},      {BottomRightHandle, MT_RIGHT_BOTTOM},
    {RotateHandle, MT_ROTATE},
};

constexpr Handle kPaintOrder[] = {BottomHandle,      BottomLeftHandle, LeftHandle,     TopLeftHandle,
                                  BottomRightHandle, RightHandle,      TopRightHandle, TopHandle};

QPointF inObjectFrame(const CInkGraph &graph, const QPoint &pointer)
{
    return mapped(turn(graph.m_ptCenter, -graph.m_fRotateAngle), widened(pointer));
}

// The handle within reach of `q`, a position in the object's frame; MT_NONE when there is none.
ModifyType handleAt(CInkGraph &graph, const QPointF &q)
{
    for (const auto &candidate : kHitOrder) {
        if (graph.CalcGapOfpoints(q, graph.m_hotPts[candidate.handle]) <= kHitRadius)
            return candidate.type;
    }
    return MT_NONE;
}

} // namespace

void InkInternal::layOutHandles(QPointF (&handles)[HandleCount], const QRect &box)
{
    const double left = widened(box.left());
    const double top = widened(box.top());
    const double right = widened(box.right());
    const double bottom = widened(box.bottom());
    const QPointF center = centerOfEdges(box);

    handles[TopHandle] = {center.x(), top};
    handles[BottomHandle] = {center.x(), bottom};
    handles[LeftHandle] = {left, center.y()};
    handles[RightHandle] = {right, center.y()};
    handles[TopLeftHandle] = {left, top};
    handles[BottomLeftHandle] = {left, bottom};
    handles[TopRightHandle] = {right, top};
    handles[BottomRightHandle] = {right, bottom};
    handles[RotateHandle] = {center.x(), top - kKnobRise};
}

void CInkGraph::SetHotData(int mx, int my)
{
    if (m_graphData.isEmpty())
        return;

    m_rcHot = grown(pixelBounds(m_graphData), mx, my);
    layOutHandles(m_hotPts, m_rcHot);
    m_ptCenter = centerOfEdges(m_rcHot);
}

void CInkGraph::ResetHotData(QRect box)
{
    m_rcHot = box;
    const double keptY = m_hotPts[BottomLeftHandle].y();
    layOutHandles(m_hotPts, m_rcHot);
    // [ink-reset-bottom-left] The box's bottom becomes this handle's x; its y stays as it was.
    m_hotPts[BottomLeftHandle] = {widened(box.bottom()), keptY};
    m_ptCenter = centerOfEdges(m_rcHot);
}

void CInkGraph::MoveHotData(float dx, float dy)
{
    const QPointF step{double(dx), double(dy)};
    m_ptCenter += step;
    for (QPointF &handle : m_hotPts)
        handle += step;
    const QPoint pixels = truncated(step);
    m_rcHot = edges(qint64(m_rcHot.left()) + pixels.x(), qint64(m_rcHot.top()) + pixels.y(),
                    qint64(m_rcHot.right()) + pixels.x(), qint64(m_rcHot.bottom()) + pixels.y());
}

ModifyType CInkGraph::AroundHotPts(QPoint pt)
{
    return m_bEditMode ? DecideModiFyType(pt) : MT_NONE;
}

bool CInkGraph::IsPtInModifyZone(QPoint pt)
{
    const QPointF q = inObjectFrame(*this, pt);
    return handleAt(*this, q) != MT_NONE || m_rcHot.contains(truncated(q));
}

ModifyType CInkGraph::DecideModiFyType(QPoint pt)
{
    const QPointF q = inObjectFrame(*this, pt);
    const ModifyType handle = handleAt(*this, q);
    if (handle != MT_NONE)
        return handle;
    if (!m_rcHot.contains(truncated(q)))
        return MT_NONE;
    // [ink-hover-stores-last] Also when a host only asks for the cursor.
    m_ptLast = widened(pt);
    return MT_MOVE;
}

void CInkGraph::DrawHotShape(QPainter &painter)
{
    const PainterStateScope scope(painter);

    if (drawnByAnother(*this)) {
        painter.fillRect(m_rcHot, QColor(50, 50, 50, 60));
        return;
    }

    const QColor blue(64, 64, 255);
    QPen pen(blue, 1.5, Qt::DashLine, Qt::SquareCap, Qt::BevelJoin);
    painter.setPen(pen);
    painter.drawRect(m_rcHot);
    const QPointF knob = m_hotPts[RotateHandle];
    painter.drawLine(m_hotPts[TopHandle], knob);
    QPainterPath disc;
    disc.addEllipse(knob, kKnobRadius, kKnobRadius);
    painter.fillPath(disc, blue);

    pen.setColor(QColor(0, 255, 0));
    pen.setStyle(Qt::SolidLine);
    painter.setPen(pen);
    for (const Handle handle : kPaintOrder) {
        const QPoint middle = truncated(m_hotPts[handle]);
        painter.drawRect(sized(qint64(middle.x()) - kSquareSide / 2, qint64(middle.y()) - kSquareSide / 2, kSquareSide,
                               kSquareSide));
    }
}

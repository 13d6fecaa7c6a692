#include "CInkLine.h"

#include "core/geometry_p.h"
#include "core/painting_p.h"
#include "shapes/line_p.h"
#include "shapes/shape_p.h"

#include <QtGui/QPainterPath>

#include <algorithm>

using namespace InkInternal;

namespace {

constexpr float kAbandonLength = 1.0f; // canvas pixels; a line of exactly this length is still too short
constexpr int kDefaultWidth = 10;
constexpr int kMinRegionMargin = 5;
constexpr int kUpdateMargin = 6;        // in pen widths or handle radii, whichever is larger
constexpr int kForeignShadeMargin = 10; // around the shade over a line that somebody else drew

bool hasEndpoints(const CInkLine &line)
{
    return line.m_graphData.size() >= 2;
}

ModifyType endpointAsTop(ModifyType type)
{
    // [ink-line-endpoint-as-top] Hosts are told MT_TOP for either endpoint.
    return type == MT_LEFT_TOP || type == MT_RIGHT_BOTTOM ? MT_TOP : type;
}

// [ink-line-shade-corner-as-size] The second endpoint is taken as a size.
QRect shadeCornerAsSize(const QPoint &first, const QPoint &second)
{
    return grown(normalized(sized(first.x(), first.y(), second.x(), second.y())), kForeignShadeMargin);
}

} // namespace

QPen InkInternal::linePen(const CInkLine &line)
{
    const QPen pen(line.m_color, qreal(line.m_nWidth), Qt::PenStyle(line.m_nPenStyle),
                   Qt::PenCapStyle(line.m_nCapStyle), Qt::RoundJoin);
    return endingPen(pen, line.m_graphData);
}

void InkInternal::paintLine(CInkLine &line, QPainter &painter)
{
    if (!hasEndpoints(line))
        return;
    const QPointF first = line.m_graphData.at(0);
    const bool onlyPressed = !line.m_bFinished && !line.m_bEditMode && line.m_nPointCount == 1;
    const QPointF second = onlyPressed ? first : line.m_graphData.at(1);

    // drawLine paints nothing between equal points, not even the round cap.
    const bool isDot = first.x() == second.x() && first.y() == second.y() && line.m_nCapStyle == Qt::RoundCap;
    if (isDot)
        painter.drawPoint(first);
    else
        painter.drawLine(first, second);

    if (showsHandles(line))
        line.DrawHotShape(painter);
}

CInkLine::CInkLine()
{
    m_graphData.resize(2);
    // [ink-line-radius-kept] The handle radius stays 3 until SetWidth changes this width.
    m_nWidth = kDefaultWidth;
}

CInkLine::~CInkLine() = default;

void CInkLine::Draw(QPainter &painter, QRect &rect)
{
    if (m_nPointCount <= 0)
        return;

    // [ink-clip-outlives-draw] Set before the state is saved: the host finds it afterwards.
    painter.setClipRect(clipUnlessFormed(*this, rect), Qt::ReplaceClip);

    const PainterStateScope scope(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(linePen(*this));
    paintLine(*this, painter);
}

void CInkLine::SetWidth(int width)
{
    if (width == m_nWidth)
        return;
    m_nWidth = width;
    if (m_bEditMode)
        SetRegion();
    m_nHotRadius = std::clamp(width, 5, 7);
}

int CInkLine::GetPointCount()
{
    return m_nPointCount;
}

bool CInkLine::FinishGraph()
{
    if (m_nPointCount <= 0)
        return false;
    commit(*this);
    return true;
}

QRect CInkLine::GetUpdateRect()
{
    const qint64 margin = std::max(m_nWidth, m_nHotRadius);
    // [ink-line-fresh-rect] Follows the list, not the counter: a fresh line covers both its points at the origin.
    if (hasEndpoints(*this)) {
        const QPoint tip = truncated(m_graphData.at(1));
        const QRect line = grown(cornerBox(m_graphData.at(0), m_graphData.at(1)), kUpdateMargin * margin);
        m_rcName = m_bShowDrawerName ? sized(tip, m_sizeName) : QRect();
        m_rcIcon = m_bShowDrawerIcon && !m_bEditMode ? iconRectAround(tip) : QRect();
        return normalized(line | m_rcName | m_rcIcon);
    }
    if (m_graphData.size() == 1) {
        const QPoint point = truncated(m_graphData.constFirst());
        // [ink-line-one-point-rect] Two margins to the left and above, four to the right and below.
        return normalized(sized(point.x() - 2 * margin, point.y() - 2 * margin, 6 * margin, 6 * margin));
    }
    return {};
}

ModifyType CInkLine::GetModifyType()
{
    return endpointAsTop(ModifyType(m_modifyType));
}

ModifyType CInkLine::AroundHotPts(QPoint pt)
{
    return m_bEditMode ? endpointAsTop(DecideModiFyType(pt)) : MT_NONE;
}

void CInkLine::AddPoint(int code, QPoint pt, QRect &update)
{
    if (m_bFinished)
        return;
    m_bSparePoint = 0;
    if (!m_bEditMode) {
        FormGraphData(code, pt, update);
        return;
    }

    const QRect before = GetUpdateRect();
    switch (code) {
    case PT_DOWN:
        if (IsPtInModifyZone(pt)) {
            m_modifyType = DecideModiFyType(pt);
            if (m_modifyType == MT_MOVE)
                m_ptLast = widened(pt);
        } else {
            letGo(*this);
        }
        break;
    case PT_MOVE:
        m_bSparePoint = 1;
        ModifyGraph(pt, ModifyType(m_modifyType));
        break;
    case PT_UP:
        ModifyGraph(pt, ModifyType(m_modifyType));
        SetRegion();
        break;
    }
    update = update | (before | GetUpdateRect());
}

bool CInkLine::IsPtInModifyZone(QPoint pt)
{
    if (!hasEndpoints(*this))
        return false;
    const QPointF point = widened(pt);
    const float reach = float(m_nHotRadius);
    return CalcGapOfpoints(point, m_graphData.at(0)) <= reach || CalcGapOfpoints(point, m_graphData.at(1)) <= reach ||
           m_rcRegion.contains(pt);
}

ModifyType CInkLine::DecideModiFyType(QPoint pt)
{
    if (!hasEndpoints(*this))
        return MT_NONE;
    const QPointF point = widened(pt);
    const float reach = float(m_nHotRadius);
    if (CalcGapOfpoints(point, m_graphData.at(0)) <= reach)
        return MT_LEFT_TOP;
    if (CalcGapOfpoints(point, m_graphData.at(1)) <= reach)
        return MT_RIGHT_BOTTOM;
    return m_rcRegion.contains(pt) ? MT_MOVE : MT_NONE;
}

void CInkLine::ModifyGraph(QPoint pt, ModifyType type)
{
    if (type == MT_NONE)
        return;
    if (type == MT_MOVE) {
        MoveGraph(pt, truncated(m_ptLast));
        m_ptLast = widened(pt);
        return;
    }
    StretchGraph(pt);
}

void CInkLine::StretchGraph(QPoint pt)
{
    if (!hasEndpoints(*this))
        return;
    if (m_modifyType == MT_LEFT_TOP)
        m_graphData[0] = widened(pt);
    else if (m_modifyType == MT_RIGHT_BOTTOM)
        m_graphData[1] = widened(pt);
}

void CInkLine::DrawHotShape(QPainter &painter)
{
    if (!hasEndpoints(*this))
        return;
    const PainterStateScope scope(painter);

    if (drawnByAnother(*this)) {
        painter.fillRect(shadeCornerAsSize(truncated(m_graphData.at(0)), truncated(m_graphData.at(1))),
                         QColor(0, 0, 0, 100));
        return;
    }

    painter.setPen(QPen(QColor(0, 0, 255), 3.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    const double radius = m_nHotRadius;
    for (const QPointF &endpoint : {m_graphData.at(0), m_graphData.at(1)}) {
        const QRectF circle(endpoint.x() - radius, endpoint.y() - radius, 2 * radius, 2 * radius);
        painter.drawEllipse(circle);
        QPainterPath disc;
        disc.addEllipse(circle);
        painter.fillPath(disc, Qt::white);
    }
}

QRect CInkLine::FormGraphData(int code, QPoint pt, QRect &update)
{
    m_bSparePoint = 0;
    const QRect before = GetUpdateRect();
    if (!hasEndpoints(*this))
        m_graphData.resize(2);

    if (code == PT_DOWN) {
        m_graphData[0] = m_graphData[1] = widened(pt);
        m_nPointCount = 1;
    } else if (m_nPointCount > 0) {
        m_graphData[1] = widened(pt);
        m_nPointCount = 2;
        m_bSparePoint = code != PT_UP;
        if (code == PT_UP) {
            if (CalcGapOfpoints(m_graphData.at(0), m_graphData.at(1)) <= kAbandonLength) {
                commit(*this);
            } else {
                m_bEditMode = 1;
                SetRegion();
            }
        }
    }
    update = update | (before | GetUpdateRect());
    return update;
}

void CInkLine::SetRegion()
{
    if (!hasEndpoints(*this))
        return;
    const QPoint first = truncated(m_graphData.at(0));
    const QPoint second = truncated(m_graphData.at(1));
    const qint64 margin = std::max(m_nWidth, kMinRegionMargin);
    // [ink-line-region-reversed] Not normalised: a line drawn from right to left is grabbed between its ends only.
    m_rcRegion = edges(first.x() - margin, first.y() - margin, second.x() + margin, second.y() + margin);
}

#include "CInkPolygon.h"

#include "core/geometry_p.h"
#include "core/painting_p.h"
#include "core/paintpath_p.h"
#include "shapes/shape_p.h"

#include <QtGui/QPainterPath>

using namespace InkInternal;

namespace {

constexpr float kCloseDistance = 5.0f;   // canvas pixels from the first vertex; exactly this far still closes
constexpr float kAbandonDistance = 2.0f; // likewise, for the first release
constexpr int kReservedPoints = 10;

QPainterPath outline(const QVector<QPointF> &points, bool closed)
{
    if (!areRasterizable(points.constData(), points.size()))
        return {};
    QPainterPath path(points.first());
    for (const QPointF &point : points)
        path.lineTo(point); // from the first on: a segment of no length
    if (closed)
        path.lineTo(points.first());
    return path;
}

void complete(CInkPolygon &polygon)
{
    polygon.m_bEditMode = 1;
    polygon.SetHotData(kFrameMargin, kFrameMargin);
}

// Sets the vertex that the rubber band has been drawn to, closes the polygon or abandons it.
void release(CInkPolygon &polygon, const QPointF &position)
{
    if (polygon.m_bFinishOnRelease) {
        // [ink-polygon-keeps-rubber-band] As it stands: the rubber-band point becomes the last vertex.
        complete(polygon);
        return;
    }
    QVector<QPointF> &points = polygon.m_graphData;
    int &count = polygon.m_nPointCount;
    const float toStart = polygon.CalcGapOfpoints(position, points.at(0));
    if (toStart <= kCloseDistance && count > 1) {
        points[count] = QPointF(points.at(0));
        ++count;
        complete(polygon);
    } else if (toStart <= kAbandonDistance && count == 1) {
        // [ink-polygon-abandoned-painted] Keeps counter and points, so it is painted.
        commit(polygon);
    } else {
        points[count] = position;
        points.append(position);
        ++count;
    }
}

} // namespace

CInkPolygon::CInkPolygon()
{
    m_graphData.clear();
    m_graphData.reserve(kReservedPoints);
}

CInkPolygon::~CInkPolygon() = default;

void CInkPolygon::Draw(QPainter &painter, QRect &rect)
{
    if (m_nPointCount < 1 || m_graphData.isEmpty())
        return;

    // [ink-clip-outlives-draw] Set before the state is saved: the host finds it afterwards.
    painter.setClipRect(clipUnlessFormed(*this, rect), Qt::ReplaceClip);
    paintOverHandles(*this, painter, solidPen(*this, Qt::RoundCap),
                     [&] { paintPath(painter, outline(m_graphData, m_bEditMode)); });
}

QRect CInkPolygon::GetUpdateRect()
{
    if (m_graphData.isEmpty())
        return {};
    if (m_bEditMode)
        return coveredInEdit(*this);
    const QPoint tip = truncated(m_graphData.constLast());
    m_rcName = m_bShowDrawerName ? sized(tip, m_sizeName) : QRect();
    m_rcIcon = m_bShowDrawerIcon ? iconRectAround(tip) : QRect();
    return grown(GetRect(m_graphData), 3 * qint64(m_nWidth)) | m_rcName | m_rcIcon;
}

QRect CInkPolygon::FormGraphData(int code, QPoint pt, QRect &update)
{
    m_bSparePoint = 0;
    const QRect before = GetUpdateRect();
    const QPointF position = widened(pt);
    const int rubberBand = m_nPointCount; // index; behind the vertices

    if (code == PT_DOWN && m_nPointCount == 0) {
        m_graphData.append(position);
        m_graphData.append(position);
        m_nPointCount = 1;
    } else if (rubberBand >= 1 && rubberBand < m_graphData.size()) {
        switch (code) {
        case PT_DOWN:
            m_graphData[rubberBand] = position;
            break;
        case PT_MOVE:
            m_graphData[rubberBand] = position;
            m_bSparePoint = 1;
            break;
        case PT_DBLCLK:
            m_bFinishOnRelease = 1;
            break;
        case PT_UP:
            release(*this, position);
            break;
        }
    }
    update = update | (before | GetUpdateRect());
    return update;
}

#include "CInkRectangle.h"

#include "core/debug_p.h"
#include "core/geometry_p.h"
#include "core/painting_p.h"
#include "shapes/shape_p.h"

#include <QtCore/QDebug>

using namespace InkInternal;

namespace {

constexpr int kDefaultWidth = 4;
constexpr int kIconReach = 15; // of the drawer's icon to each side of the dragged corner

// [ink-box-name-corner-as-size] The corner's coordinates are added to the label's size.
QRect nameRectCornerAsSize(const QPoint &corner, const QSize &size)
{
    return sized(corner.x(), corner.y(), qint64(corner.x()) + size.width(), qint64(corner.y()) + size.height());
}

// [ink-box-icon-corner-as-size] The far corner is taken as width and height.
QRect iconRectCornerAsSize(const QPoint &corner)
{
    return sized(qint64(corner.x()) - kIconReach, qint64(corner.y()) - kIconReach, qint64(corner.x()) + kIconReach,
                 qint64(corner.y()) + kIconReach);
}

} // namespace

CInkRectangle::CInkRectangle()
{
    m_graphData.resize(2);
    m_nWidth = kDefaultWidth;
}

// [ink-box-pen-style-width] Width and point list stay as the base leaves them: 1, and empty.
CInkRectangle::CInkRectangle(Qt::PenStyle style)
    : m_penStyle(style)
{
}

CInkRectangle::~CInkRectangle() = default;

void CInkRectangle::Draw(QPainter &painter, QRect &rect)
{
    const QRect clip = rect | GetUpdateRect();
    if (!isLargeEnough(*this)) {
        // [ink-box-too-small-clips] Nothing to paint, and the clip is set all the same.
        painter.setClipRect(clip, Qt::ReplaceClip);
        return;
    }

    // [ink-clip-outlives-draw] Set before the state is saved: the host finds it afterwards.
    const bool writesLine = writesDebugLines();
    const QRectF clipBefore = writesLine ? clipBounds(painter) : QRectF();
    painter.setClipRect(clip, Qt::ReplaceClip);
    if (writesLine)
        qDebug() << "CInkRectangle::Draw clip" << clip << "before" << clipBefore << "after" << clipBounds(painter);

    const PainterStateScope scope(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    // [ink-world-replaced] A transform of the host's is not seen by the outline; the clip has been set in it.
    painter.setWorldTransform(objectFrame(*this));
    // [ink-box-always-solid] m_penStyle is for derived tools.
    painter.setPen(solidPen(*this, Qt::SquareCap));
    painter.drawRect(cornerBox(m_graphData.at(0), m_graphData.at(1)));
    if (showsHandles(*this))
        DrawHotShape(painter); // over the outline; the rounded rectangle draws them under it
}

void CInkRectangle::SetWidth(int width)
{
    m_nWidth = width;
}

int CInkRectangle::GetPointCount()
{
    return m_nPointCount;
}

bool CInkRectangle::FinishGraph()
{
    if (m_nPointCount <= 0)
        return false;
    commit(*this);
    // [ink-finish-lays-out] Unlike a press outside: a turned box that was stretched gets another pivot.
    SetHotData(kFrameMargin, kFrameMargin);
    return true;
}

QRect CInkRectangle::GetUpdateRect()
{
    const qint64 width = m_nWidth;
    const int count = m_graphData.size();
    QRect covered;
    if (m_bEditMode) {
        covered = GetRotateUpDateRect();
        m_rcName = m_bShowDrawerName ? nameRectCornerAsSize(m_rcHot.topLeft(), m_sizeName) : QRect();
        covered = covered | m_rcName;
    } else if (m_nPointCount == 2 && count >= 2) {
        const QPoint tip = truncated(m_graphData.at(count - 1));
        covered = grown(cornerBox(m_graphData.at(count - 2), m_graphData.at(count - 1)), width);
        m_rcName = m_bShowDrawerName ? sized(tip, m_sizeName) : QRect();
        m_rcIcon = m_bShowDrawerIcon ? iconRectCornerAsSize(tip) : QRect();
        covered = covered | m_rcName | m_rcIcon;
    } else if (m_nPointCount == 1 && count >= 2) {
        const QPoint pressed = truncated(m_graphData.at(count - 2));
        covered = sized(pressed.x() - width, pressed.y() - width, 2 * width, 2 * width);
    }
    // [ink-box-fresh-rect] Grown in every case, the null rectangle of a fresh box included.
    return grown(normalized(covered), 2 * width);
}

void CInkRectangle::AddPoint(int code, QPoint pt, QRect &update)
{
    if (m_bFinished)
        return;
    m_bSparePoint = 0;
    if (m_bEditMode)
        editEvent(*this, code, pt, update);
    else
        FormGraphData(code, pt, update);
}

QRect CInkRectangle::FormGraphData(int code, QPoint pt, QRect &update)
{
    m_bSparePoint = 0;
    const QRect before = GetUpdateRect();
    if (code == PT_DOWN) {
        if (m_graphData.size() < 2)
            m_graphData.resize(2);
        m_graphData[0] = m_graphData[1] = widened(pt);
        m_nPointCount = 1;
    } else if (m_nPointCount > 0 && m_graphData.size() >= 2) {
        m_graphData[1] = widened(pt);
        m_nPointCount = 2;
        m_bSparePoint = code != PT_UP;
        if (code == PT_UP) {
            if (isLargeEnough(*this)) {
                m_bEditMode = 1;
                SetHotData(kFrameMargin, kFrameMargin);
            } else {
                commit(*this);
            }
        }
    }
    update = update | (before | GetUpdateRect());
    return update;
}

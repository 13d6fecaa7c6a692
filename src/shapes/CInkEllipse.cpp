#include "CInkEllipse.h"

#include "core/geometry_p.h"
#include "core/painting_p.h"
#include "shapes/shape_p.h"

using namespace InkInternal;

CInkEllipse::CInkEllipse()
{
    // [ink-ellipse-width] The width stays 1, where the rectangle sets 4.
    m_graphData.resize(2);
}

CInkEllipse::CInkEllipse(Qt::PenStyle style)
    : m_penStyle(style)
{
}

CInkEllipse::~CInkEllipse() = default;

void CInkEllipse::Draw(QPainter &painter, QRect &rect)
{
    if (!isLargeEnough(*this))
        return;

    // [ink-clip-outlives-draw] Set before the state is saved: the host finds it afterwards.
    painter.setClipRect(clipUnlessFormed(*this, rect), Qt::ReplaceClip);
    paintOverHandles(*this, painter, solidPen(*this, Qt::SquareCap),
                     [&] { painter.drawEllipse(cornerBox(m_graphData.at(0), m_graphData.at(1))); });
}

void CInkEllipse::SetWidth(int width)
{
    m_nWidth = width;
}

int CInkEllipse::GetPointCount()
{
    return m_nPointCount;
}

bool CInkEllipse::FinishGraph()
{
    if (m_nPointCount <= 0)
        return false;
    commit(*this);
    // [ink-finish-lays-out] Unlike a press outside: a turned box that was stretched gets another pivot.
    SetHotData(kFrameMargin, kFrameMargin);
    return true;
}

QRect CInkEllipse::GetUpdateRect()
{
    const qint64 width = m_nWidth;
    if (m_bEditMode)
        return coveredInEdit(*this);
    if (m_graphData.size() < 2)
        return {};
    if (m_nPointCount == 2) {
        const QPoint tip = truncated(m_graphData.constLast());
        m_rcName = m_bShowDrawerName ? sized(tip, m_sizeName) : QRect();
        m_rcIcon = m_bShowDrawerIcon ? iconRectAround(tip) : QRect();
        return grown(cornerBox(m_graphData.at(0), m_graphData.at(1)), 3 * width) | (m_rcName | m_rcIcon);
    }
    if (m_nPointCount == 1) {
        const QPoint pressed = truncated(m_graphData.constFirst());
        // [ink-ellipse-press-rect] One width to the left and above, two to the right and below.
        return sized(pressed.x() - width, pressed.y() - width, 3 * width, 3 * width);
    }
    return {};
}

void CInkEllipse::AddPoint(int code, QPoint pt, QRect &update)
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
    case PT_UP:
        ModifyGraph(pt, ModifyType(m_modifyType));
        // [ink-ellipse-adjust-at-release] After every edit, where the rectangle waits for the next one.
        AdjustGraph(m_fRotateAngle);
        break;
    case PT_MOVE:
        ModifyGraph(pt, ModifyType(m_modifyType));
        m_bSparePoint = 1;
        break;
    }
    update = update | (before | GetUpdateRect());
}

QRect CInkEllipse::FormGraphData(int code, QPoint pt, QRect &update)
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

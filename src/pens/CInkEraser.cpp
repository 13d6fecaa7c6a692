#include "CInkEraser.h"

#include "core/geometry_p.h"
#include "core/life_p.h"
#include "core/painting_p.h"
#include "pens/culled_p.h"

#include <QtGui/QImage>
#include <QtGui/QPainterPath>

using namespace InkInternal;

namespace {

constexpr int kReservedPoints = 10;
constexpr int kFrameMargin = 2;  // in pen widths, between a finished stroke and its frame
constexpr int kUpdateMargin = 3; // in pen widths, around the newest segment

// [ink-eraser-disc-halved] A single point is a disc, half a pixel towards the top left for an odd width.
QPainterPath disc(const QPointF &point, int width)
{
    const QPoint middle = truncated(point);
    const int half = width / 2;
    QPainterPath path;
    path.addEllipse(QRectF(double(middle.x()) - half, double(middle.y()) - half, width, width));
    return path;
}

// The picture that a painter paints into, copied: the painter goes on painting.
QBrush textureOf(const QPainter &background)
{
    const QPaintDevice *device = background.device();
    if (!background.isActive() || device->devType() != QInternal::Image)
        return {};
    const QImage image = static_cast<const QImage *>(device)->copy();
    return image.isNull() ? QBrush() : QBrush(image);
}

// Fills the disc of a single point, or strokes the line of more.
void paintErased(QPainter &painter, const QVector<QPointF> &points, int width, const QPen &pen)
{
    if (pen.brush().style() == Qt::NoBrush)
        return;
    if (points.size() == 1) {
        painter.fillPath(disc(points.first(), width), pen.brush());
    } else {
        painter.setPen(pen);
        paintStroke(painter, points, StrokeSegment::Line);
    }
}

} // namespace

CInkEraser::CInkEraser()
{
    m_graphData.reserve(kReservedPoints);
}

CInkEraser::~CInkEraser()
{
    delete m_pErasePen;
    delete m_pEraseBrush;
}

void CInkEraser::Draw(QPainter &p1, QPainter &p2, QPainter &p3, QPainter &p4, QRect rc, int rebuildPen, int skip)
{
    if (skip || m_graphData.isEmpty())
        return;

    const QRect clip = grown(clipUnlessFormed(*this, rc), 1);
    // [ink-clip-outlives-draw] Set before the states are saved: the host finds it afterwards.
    for (QPainter *painter : {&p2, &p1, &p4})
        painter->setClipRect(clip, Qt::ReplaceClip);
    const PainterStateScope scope2(p2);
    const PainterStateScope scope4(p4);
    const PainterStateScope scope1(p1);
    p2.setRenderHint(QPainter::Antialiasing);
    if (rebuildPen || !m_pErasePen)
        FormErasePen(p3);

    const QPen pen = endingPen(*m_pErasePen, m_graphData);
    paintErased(p2, m_graphData, m_nWidth, pen);
    if (!m_bFinished) {
        if (m_bShowDrawerName && m_graphData.size() > 1)
            DrawStudentName(p2);
        if (m_bShowDrawerIcon && !m_bEditMode)
            DrawGraphIcon(p2);
        return;
    }

    // [ink-eraser-source-in] Only what is there already is replaced; empty pixels stay empty.
    for (QPainter *painter : {&p4, &p1}) {
        painter->setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter->setRenderHint(QPainter::Antialiasing);
    }
    const QPen clearing(QColor(0, 0, 0, 0), m_nWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    paintErased(p4, m_graphData, m_nWidth, clearing);
    paintErased(p1, m_graphData, m_nWidth, pen);
}

void CInkEraser::SetWidth(int width)
{
    m_nWidth = width;
    delete m_pWidthCache;
    m_pWidthCache = nullptr;
}

QRect CInkEraser::GetUpdateRect()
{
    if (m_bEditMode)
        return m_rcHot;
    const int count = m_graphData.size();
    if (count == 0)
        return {};

    const qint64 width = m_nWidth;
    const QPoint tip = truncated(m_graphData.constLast());
    const QRect newest = count == 1 ? edges(tip.x() - width, tip.y() - width, tip.x() + width, tip.y() + width)
                                    : QRect(tip, truncated(m_graphData.at(count - 2)));
    m_rcName = m_bShowDrawerName ? sized(tip, m_sizeName) : QRect();
    m_rcIcon = m_bShowDrawerIcon ? iconRectAround(tip) : QRect();
    return grown(normalized(newest), kUpdateMargin * width) | (m_rcName | m_rcIcon);
}

void CInkEraser::AddPoint(int code, QPoint pt, QRect &update)
{
    if (m_bFinished)
        return;
    const QRect before = GetUpdateRect();
    m_graphData.append(widened(pt));
    if (code == PT_UP) {
        m_bEditMode = 1;
        const int margin = saturated(qint64(kFrameMargin) * m_nWidth);
        SetHotData(margin, margin);
        commit(*this);
    }
    update = update | (before | GetUpdateRect());
}

void CInkEraser::FormErasePen(QPainter &background)
{
    delete m_pErasePen;
    delete m_pEraseBrush;
    m_pEraseBrush = new QBrush(textureOf(background));
    // [ink-eraser-bevel] The join is bevelled; the pencil's and that of the ink layer are round.
    m_pErasePen = new QPen(*m_pEraseBrush, m_nWidth, Qt::SolidLine, Qt::PenCapStyle(m_nCapStyle), Qt::BevelJoin);
}

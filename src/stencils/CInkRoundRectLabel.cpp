#include "CInkRoundRectLabel.h"

#include "core/geometry_p.h"
#include "core/painting_p.h"
#include "stencils/outline_p.h"
#include "stencils/stencil_p.h"

#include <QtGui/QPainterPath>

using namespace InkInternal;

namespace {

// 0 and 4 are opposite corners of the body; 3 to 1 the tail: where it leaves the edge, its tip, where it returns.
constexpr QPointF kPoints[] = {{0, 0}, {26, 148}, {46, 168}, {68, 148}, {168, 148}};
constexpr Outline kOutline = outline(kPoints, /*width between*/ {0, 4}, /*height between*/ {0, 2});

constexpr int kCornersPerSide = 5; // a side is as long as five corner ellipses

// [ink-label-loose-pieces] Arcs and edges are separate pieces: integer halves leave gaps of half a pixel between them.
QPainterPath bubble(const QVector<QPointF> &points)
{
    const QRect body = cornerBox(points.at(0), points.at(4));
    const int left = body.left(), top = body.top(), right = body.right(), bottom = body.bottom();
    const int rx = saturated((qint64(right) - left) / kCornersPerSide);
    const int ry = saturated((qint64(bottom) - top) / kCornersPerSide);
    const int halfX = rx / 2, halfY = ry / 2;

    QPainterPath path;
    const auto corner = [&](int x, int y, int startDegrees) {
        const QRectF ellipse(x, y, rx, ry);
        path.arcMoveTo(ellipse, startDegrees);
        path.arcTo(ellipse, startDegrees, 90);
    };
    const auto edge = [&path](const QPointF &from, const QPointF &to) {
        path.moveTo(from);
        path.lineTo(to);
    };
    corner(left, top, 90);
    edge(QPointF(left + halfX, top), QPointF(right - halfX, top));
    corner(right - rx, top, 0);
    edge(QPointF(right, top + halfY), QPointF(right, bottom - halfY));
    corner(right - rx, bottom - ry, 270);
    path.moveTo(right - halfX, bottom);
    for (const int i : {3, 2, 1})
        path.lineTo(points.at(i));
    path.lineTo(left + halfX, bottom);
    corner(left, bottom - ry, 180);
    edge(QPointF(left, bottom - halfY), QPointF(left, top + halfY));
    return path;
}

} // namespace

CInkRoundRectLabel::CInkRoundRectLabel()
{
    takeTemplate(*this, kOutline);
}

CInkRoundRectLabel::CInkRoundRectLabel(Qt::PenStyle style)
{
    m_penStyle = style;
}

CInkRoundRectLabel::~CInkRoundRectLabel() = default;

void CInkRoundRectLabel::Draw(QPainter &painter, QRect &rect)
{
    if (!isShown(*this))
        return;

    // [ink-clip-outlives-draw] Set before the state is saved: the host finds it afterwards.
    painter.setClipRect(clipUnlessFormed(*this, rect), Qt::ReplaceClip);
    // [ink-label-always-solid] m_penStyle is not applied.
    paintOverHandles(*this, painter, solidPen(*this, Qt::RoundCap), [&] {
        const QVector<QPointF> &points = shownPoints(*this);
        if (points.size() >= kOutline.count)
            painter.drawPath(bubble(points));
    });
}

void CInkRoundRectLabel::NormalizeGraphData(QVector<QPointF> &points)
{
    scaleIntoBox(points, kOutline, kOutline.count);
}

void CInkRoundRectLabel::InitGraphData()
{
    writeTemplate(m_graphData, kOutline);
}

#include "CInkEllipseLabel.h"

#include "core/geometry_p.h"
#include "core/painting_p.h"
#include "stencils/outline_p.h"
#include "stencils/stencil_p.h"

#include <QtGui/QPainterPath>

#include <cmath>

using namespace InkInternal;

namespace {

// 0 and 4 are opposite corners of the ellipse; 1 to 3 the tail: where it leaves, its tip, where it returns.
constexpr QPointF kPoints[] = {{0, 0}, {38, 143}, {40, 176}, {70, 156}, {177, 158}};
constexpr Outline kOutline = outline(kPoints, /*width between*/ {0, 4}, /*height between*/ {0, 2});

constexpr double kMouthLift = 5.0; // canvas pixels of the mouth above the point where the tail leaves the body
constexpr double kFarthest = 1e15; // canvas pixels; near the largest double Qt cannot subtract paths

QPainterPath tail(const QVector<QPointF> &points)
{
    QPainterPath path(points.at(1));
    path.lineTo(points.at(2));
    path.lineTo(points.at(3));
    return path;
}

QPainterPath mouth(const QVector<QPointF> &points)
{
    QPainterPath path(points.at(1));
    path.lineTo((points.at(1).x() + points.at(3).x()) / 2, points.at(1).y() - kMouthLift);
    path.lineTo(points.at(3));
    path.lineTo(points.at(2));
    path.lineTo(points.at(1));
    return path;
}

bool canSubtract(const QPainterPath &path)
{
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element point = path.elementAt(i);
        if (!(std::abs(point.x) <= kFarthest && std::abs(point.y) <= kFarthest))
            return false;
    }
    return true;
}

} // namespace

CInkEllipseLabel::CInkEllipseLabel()
{
    takeTemplate(*this, kOutline);
}

CInkEllipseLabel::CInkEllipseLabel(Qt::PenStyle style)
{
    m_penStyle = style;
}

CInkEllipseLabel::~CInkEllipseLabel() = default;

void CInkEllipseLabel::Draw(QPainter &painter, QRect &rect)
{
    if (!isShown(*this))
        return;

    const QRect clip = clipUnlessFormed(*this, rect);
    // [ink-clip-outlives-draw] Set before the state is saved: the host finds it afterwards.
    painter.setClipRect(clip, Qt::ReplaceClip);
    const auto paintFigure = [&] {
        const QVector<QPointF> &points = shownPoints(*this);
        if (points.size() < kOutline.count)
            return;
        if (isRasterizable(points.at(1)))
            painter.drawPath(tail(points));
        // The body's outline does not cross the opening of the tail. The clip turns with the object.
        QPainterPath outsideMouth;
        outsideMouth.addRect(real(clip));
        const QPainterPath opening = mouth(points);
        if (canSubtract(opening))
            outsideMouth = outsideMouth.subtracted(opening);
        painter.setClipPath(outsideMouth, Qt::ReplaceClip);
        const QPointF corners[] = {points.at(0), points.at(4)};
        const QPointF size = corners[1] - corners[0];
        if (areRasterizable(corners, 2))
            painter.drawEllipse(QRectF(corners[0], QSizeF(size.x(), size.y())).normalized());
    };
    paintOverHandles(*this, painter, styledPen(*this), paintFigure,
                     QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
}

void CInkEllipseLabel::NormalizeGraphData(QVector<QPointF> &points)
{
    scaleIntoBox(points, kOutline, kOutline.count);
}

void CInkEllipseLabel::InitGraphData()
{
    writeTemplate(m_graphData, kOutline);
}

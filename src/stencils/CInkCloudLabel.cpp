#include "CInkCloudLabel.h"

#include "core/geometry_p.h"
#include "core/painting_p.h"
#include "stencils/outline_p.h"
#include "stencils/stencil_p.h"

#include <algorithm>

using namespace InkInternal;

namespace {

// Four ellipses, each as its top left and bottom right corner: the cloud, then ever smaller bubbles.
constexpr QPointF kPoints[] = {{0, 0}, {100, 70}, {58, 68}, {90, 86}, {65, 86}, {85, 96}, {68, 96}, {83, 104}};
constexpr Outline kOutline = outline(kPoints, /*width between*/ {0, 1}, /*height between*/ {0, 7});

} // namespace

CInkCloudLabel::CInkCloudLabel()
{
    takeTemplate(*this, kOutline);
}

CInkCloudLabel::CInkCloudLabel(Qt::PenStyle style)
{
    m_penStyle = style;
}

CInkCloudLabel::~CInkCloudLabel() = default;

void CInkCloudLabel::Draw(QPainter &painter, QRect &rect)
{
    if (!isShown(*this))
        return;

    // [ink-clip-outlives-draw] Set before the state is saved: the host finds it afterwards.
    painter.setClipRect(clipUnlessFormed(*this, rect), Qt::ReplaceClip);
    paintOverHandles(*this, painter, styledPen(*this), [&] {
        const QVector<QPointF> &points = shownPoints(*this);
        for (int i = 0; i + 1 < std::min(kOutline.count, points.size()); i += 2) {
            const QPoint corner = truncated(points.at(i));
            const QPoint size = truncated(points.at(i + 1) - points.at(i));
            painter.drawEllipse(sized(corner.x(), corner.y(), size.x(), size.y()));
        }
    });
}

void CInkCloudLabel::NormalizeGraphData(QVector<QPointF> &points)
{
    scaleIntoBox(points, kOutline, kOutline.count);
}

void CInkCloudLabel::InitGraphData()
{
    writeTemplate(m_graphData, kOutline);
}

#include "core/cache_p.h"
#include "core/geometry_p.h"
#include "pens/textured_p.h"

#include <algorithm>

using namespace InkInternal;

namespace {

constexpr float kCollectFraction = 0.25f;
constexpr int kMaxPointsPerMove = 1 << 16; // so that a wild coordinate ends; the next move goes on from there

} // namespace

void InkInternal::resample(CInkPenGraph &pen, const QPointF &position, float step)
{
    if (pen.m_graphData.isEmpty())
        return;
    const QPointF last = pen.m_graphData.constLast();
    const float gap = pen.CalcGapOfpoints(last, position);
    if (step >= gap || step == 0.0f) {
        pen.m_graphData.append(position);
        return;
    }
    if (!(step > 0.0f))
        return; // as wide as nothing, or no number: there are no points to put between
    const float steps = gap / step;
    const float dx = float(position.x() - last.x()) / steps;
    const float dy = float(position.y() - last.y()) / steps;
    const int count = std::min(truncated(double(steps)), kMaxPointsPerMove);
    const int before = pen.m_graphData.size();
    pen.m_graphData.resize(before + count);
    QPointF *const points = pen.m_graphData.data() + before;
    for (int i = 1; i <= count; ++i)
        points[i - 1] = {last.x() + double(float(i) * dx), last.y() + double(float(i) * dy)};
}

float InkInternal::collectDistance(const CInkPenGraph &pen)
{
    return kCollectFraction * float(pen.m_nWidth);
}

void InkInternal::paintCache(const CInkPenGraph &pen, const QRect &canvas, QPainter &painter)
{
    layOver(painter, *pen.m_pImage, canvas, QRectF(0, 0, double(width(canvas)), double(height(canvas))));
}

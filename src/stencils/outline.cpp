#include "stencils/outline_p.h"

#include <algorithm>
#include <cmath>

using namespace InkInternal;

namespace {

struct Box
{
    QPointF press, pointer;

    double left() const { return double(float(std::min(pointer.x(), press.x()))); }
    double top() const { return double(float(std::min(pointer.y(), press.y()))); }
};

bool holdsDrag(const QVector<QPointF> &points, const Outline &outline)
{
    return points.size() >= outline.count + 2;
}

Box boxOf(const QVector<QPointF> &points, const Outline &outline)
{
    return {points.at(outline.count), points.at(outline.count + 1)};
}

} // namespace

void InkInternal::takeTemplate(CInkSignGraph &stencil, const Outline &outline)
{
    stencil.m_nOutlinePointCount = outline.count;
    stencil.m_graphData.resize(outline.count + 2);
    writeTemplate(stencil.m_graphData, outline);
}

void InkInternal::writeTemplate(QVector<QPointF> &points, const Outline &outline)
{
    if (points.size() < outline.count)
        return;
    for (int i = 0; i < outline.count; ++i)
        points[i] = outline.points[i] - outline.shift;
}

void InkInternal::scaleIntoBox(QVector<QPointF> &points, const Outline &outline, int count)
{
    if (!holdsDrag(points, outline))
        return;
    const float width = float(points.at(outline.width.to).x() - points.at(outline.width.from).x());
    const float height = float(points.at(outline.height.to).y() - points.at(outline.height.from).y());
    if (width == 0.0f || height == 0.0f)
        return;

    const Box box = boxOf(points, outline);
    const double sx = double(std::fabs(float(box.press.x() - box.pointer.x())) / width);
    const double sy = double(std::fabs(float(box.press.y() - box.pointer.y())) / height);
    // [ink-stencil-keeps-inset] The template's own origin is not taken off.
    const double left = box.left();
    const double top = box.top();
    for (int i = 0; i < std::min(count, points.size()); ++i)
        points[i] = {sx * points.at(i).x() + left, sy * points.at(i).y() + top};
}

bool InkInternal::moveToUnmovedDrag(QVector<QPointF> &points, const Outline &outline)
{
    if (!holdsDrag(points, outline))
        return false;
    const Box box = boxOf(points, outline);
    // By component: QPointF's own comparison is fuzzy.
    if (box.press.x() != box.pointer.x() || box.press.y() != box.pointer.y())
        return false;
    const QPointF origin(box.left(), box.top());
    for (int i = 0; i < outline.count; ++i)
        points[i] += origin;
    return true;
}

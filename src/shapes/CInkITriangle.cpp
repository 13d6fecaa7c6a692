#include "CInkITriangle.h"

#include "shapes/polygon_p.h"

using namespace InkInternal;

namespace {

constexpr int kVertices = 3;

} // namespace

CInkITriangle::CInkITriangle()
{
    m_graphData.resize(kVertices + 2);
}

CInkITriangle::CInkITriangle(Qt::PenStyle style)
{
    m_penStyle = style;
}

CInkITriangle::~CInkITriangle() = default;

void CInkITriangle::Draw(QPainter &painter, QRect &rect)
{
    paintVertices<kVertices>(*this, painter, rect, solidPen(*this, Qt::SquareCap));
}

QRect CInkITriangle::FormGraphData(int code, QPoint pt, QRect &update)
{
    return formVertices<kVertices>(*this, code, pt, update);
}

void CInkITriangle::NormalizeGraphData()
{
    if (m_graphData.size() < kVertices + 2)
        return;
    const QPointF press = m_graphData.at(kVertices);
    const QPointF pointer = m_graphData.at(kVertices + 1);
    const QRectF box = QRectF(press.x(), press.y(), pointer.x() - press.x(), pointer.y() - press.y()).normalized();
    const double bottom = box.top() + box.height();
    m_graphData[0] = narrowed({(box.width() + box.left() + box.left()) * 0.5, box.top()});
    m_graphData[1] = narrowed({box.left(), bottom});
    m_graphData[2] = narrowed({box.left() + box.width(), bottom});
}

#include "CInkLTriangle.h"

#include "shapes/polygon_p.h"

using namespace InkInternal;

namespace {

constexpr int kVertices = 3;

} // namespace

CInkLTriangle::CInkLTriangle()
{
    m_graphData.resize(kVertices + 2);
}

CInkLTriangle::CInkLTriangle(Qt::PenStyle style)
{
    m_penStyle = style;
}

CInkLTriangle::~CInkLTriangle() = default;

void CInkLTriangle::Draw(QPainter &painter, QRect &rect)
{
    paintVertices<kVertices>(*this, painter, rect, solidPen(*this, Qt::RoundCap));
}

QRect CInkLTriangle::FormGraphData(int code, QPoint pt, QRect &update)
{
    return formVertices<kVertices>(*this, code, pt, update);
}

void CInkLTriangle::NormalizeGraphData()
{
    if (m_graphData.size() < kVertices + 2)
        return;
    const QPointF press = m_graphData.at(kVertices);
    const QPointF pointer = m_graphData.at(kVertices + 1);
    m_graphData[0] = press;
    m_graphData[1] = pointer;
    m_graphData[2] = {press.x(), pointer.y()};
}

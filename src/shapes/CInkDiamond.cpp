#include "CInkDiamond.h"

#include "shapes/polygon_p.h"

#include <algorithm>

using namespace InkInternal;

namespace {

constexpr int kVertices = 4;

} // namespace

CInkDiamond::CInkDiamond()
{
    m_graphData.resize(kVertices + 2);
}

CInkDiamond::CInkDiamond(Qt::PenStyle style)
{
    m_penStyle = style;
}

CInkDiamond::~CInkDiamond() = default;

void CInkDiamond::Draw(QPainter &painter, QRect &rect)
{
    QPen pen = solidPen(*this, Qt::SquareCap);
    pen.setStyle(m_penStyle);
    paintVertices<kVertices>(*this, painter, rect, endingPen(pen, m_graphData));
}

QRect CInkDiamond::FormGraphData(int code, QPoint pt, QRect &update)
{
    return formVertices<kVertices>(*this, code, pt, update);
}

void CInkDiamond::NormalizeGraphData()
{
    if (m_graphData.size() < kVertices + 2)
        return;
    const QPointF press = m_graphData.at(kVertices);
    const QPointF pointer = m_graphData.at(kVertices + 1);
    const QPointF center((press.x() + pointer.x()) * 0.5, (press.y() + pointer.y()) * 0.5);
    const QPointF low = narrowed({std::min(press.x(), pointer.x()), std::min(press.y(), pointer.y())});
    const QPointF high = narrowed({std::max(press.x(), pointer.x()), std::max(press.y(), pointer.y())});
    // The edges pass through single precision, the centre does not.
    m_graphData[0] = {low.x(), center.y()};
    m_graphData[1] = {center.x(), low.y()};
    m_graphData[2] = {high.x(), center.y()};
    m_graphData[3] = {center.x(), high.y()};
}

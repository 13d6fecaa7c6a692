#include "board/gestures/Pinch.h"

#include "board/view/Navigator.h"

#include <QtCore/QLineF>

#include <algorithm>
#include <cmath>

namespace Board {

namespace {

constexpr double kMinDistance = 16.0; // pixels between two fingers: nearer ones would make leaps
constexpr double kSnapZoom = 0.04;    // around 1, where the page is sharpest

double distance(const QPointF &first, const QPointF &second)
{
    return std::max(QLineF(first, second).length(), kMinDistance);
}

} // namespace

Pinch::Pinch(Navigator &navigator)
    : m_navigator(navigator)
{
}

void Pinch::begin(const QPointF &first, const QPointF &second)
{
    m_pinched = m_navigator.lastView().toPage((first + second) / 2);
    m_distance = distance(first, second);
    m_zoom = m_navigator.lastView().zoom();
}

void Pinch::move(const QPointF &first, const QPointF &second)
{
    const double zoom = m_zoom * distance(first, second) / m_distance;
    m_navigator.place(m_pinched, (first + second) / 2, std::abs(zoom - 1) < kSnapZoom ? 1 : zoom);
}

} // namespace Board

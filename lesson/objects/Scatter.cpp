#include "lesson/objects/Scatter.h"

#include <cmath>

namespace InkLesson {

namespace {

constexpr int kFewestDots = 4;
constexpr int kRadiusPerWidth = 2;
constexpr double kFullTurn = 6.283185307179586;

} // namespace

Scatter::Scatter(quint32 seed)
    : m_random(seed)
{
}

std::vector<QPoint> Scatter::around(const QPoint &center, int width)
{
    std::vector<QPoint> dots;
    for (int i = 0; i < kFewestDots + width; ++i) {
        // The root, because a ring holds the more dots the wider it is.
        const double distance = kRadiusPerWidth * width * std::sqrt(m_random.generateDouble());
        const double angle = kFullTurn * m_random.generateDouble();
        const QPointF dot = QPointF(center) + distance * QPointF(std::cos(angle), std::sin(angle));
        dots.emplace_back(int(std::floor(dot.x())), int(std::floor(dot.y())));
    }
    return dots;
}

Gesture Scatter::along(const Gesture &path, int width)
{
    Gesture gesture{path.front()};
    for (const QPoint &point : path) {
        const std::vector<QPoint> dots = around(point, width);
        gesture.insert(gesture.end(), dots.begin(), dots.end());
    }
    gesture.push_back(path.back());
    return gesture;
}

} // namespace InkLesson

#pragma once

#include "lesson/Export.h"
#include "lesson/objects/Gesture.h"

#include <QtCore/QRandomGenerator>

namespace InkLesson {

// Dots at random, evenly over a disc around the pointer with twice the width of the pen as its radius.
class INKLESSON_EXPORT Scatter
{
public:
    // The same seed gives the same dots.
    explicit Scatter(quint32 seed);

    // The next few dots.
    std::vector<QPoint> around(const QPoint &center, int width);

    // A few dots around each point of the path, between its press and its release.
    Gesture along(const Gesture &path, int width);

private:
    QRandomGenerator m_random;
};

} // namespace InkLesson

#pragma once

#include <QtCore/QPoint>

#include <vector>

namespace InkLesson {

using Gesture = std::vector<QPoint>; // from the press to the release

} // namespace InkLesson

#pragma once

#include "lesson/Export.h"

#include <QtCore/QPoint>

class CInkGraph;

namespace InkLesson {

// Whether the object paints anything within `reach` pixels of the point to all sides.
INKLESSON_EXPORT bool paintsNear(CInkGraph &object, const QPoint &pt, int reach);

} // namespace InkLesson

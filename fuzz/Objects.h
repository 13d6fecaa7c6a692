#pragma once

// Objects of a lesson, mostly on a page of 64 x 64 pixels and mostly seen.

#include "Bytes.h"

#include "lesson/objects/Life.h"

namespace Fuzz {

QSize pageSize(Bytes &bytes);
QImage picture(Bytes &bytes); // never null
QPoint point(Bytes &bytes);
QColor color(Bytes &bytes);
int width(Bytes &bytes);
InkLesson::Act act(Bytes &bytes);
InkLesson::Life life(Bytes &bytes);

} // namespace Fuzz

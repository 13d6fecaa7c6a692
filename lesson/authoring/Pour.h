#pragma once

#include "lesson/Export.h"
#include "lesson/objects/Life.h"

#include <optional>

namespace InkLesson {

// The fill of the area of one colour around `seed` as an object of its own: its pixels are computed here once, by
// whoever fills, and are the same wherever they are shown. `page` is opaque. Nothing where there is nothing to fill.
INKLESSON_EXPORT std::optional<Life> poured(const QImage &page, const QPoint &seed, const QColor &color);

} // namespace InkLesson

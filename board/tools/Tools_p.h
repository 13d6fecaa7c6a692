#pragma once

#include "board/tools/Tools.h"

#include <QtCore/QtGlobal>

namespace Board {

// The tools of each group, in the order of the palette.
std::vector<Tool> pens();
std::vector<Tool> rasterTools();
std::vector<Tool> shapes();
std::vector<Tool> stencils();

} // namespace Board

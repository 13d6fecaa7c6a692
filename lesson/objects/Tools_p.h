#pragma once

#include "lesson/objects/Tools.h"

namespace InkLesson {

// The tools of each family.
std::vector<Tool> pens();
std::vector<Tool> rasterTools();
std::vector<Tool> shapes();
std::vector<Tool> stencils();

// Creates an object that does not ask for the size of its canvas.
template <typename Object>
std::unique_ptr<CInkGraph> plain(const QSize & /*canvas*/)
{
    return std::make_unique<Object>();
}

template <typename Object>
std::unique_ptr<CInkGraph> onCanvas(const QSize &canvas)
{
    return std::make_unique<Object>(canvas);
}

} // namespace InkLesson

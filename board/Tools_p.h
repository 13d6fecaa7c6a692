#pragma once

#include "Tools.h"

#include <QtCore/QtGlobal>

namespace Board {

// The tools of each group, in the order of the palette.
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

} // namespace Board

#pragma once

#include "Bytes.h"
#include "CInkGraph.h"

#include <QtGui/QPainter>

#include <memory>

namespace Fuzz {

// One way to make one concrete class.
struct Tool
{
    std::unique_ptr<CInkGraph> (*make)(Bytes &bytes);

    // Calls an operation, or sets a field, that the class has beyond the root's. `graph` was made by `make`.
    void (*meddle)(CInkGraph &graph, QPainter &painter, Bytes &bytes);
};

const Tool &chooseTool(Bytes &bytes);

} // namespace Fuzz

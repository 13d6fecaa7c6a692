#pragma once

#include "InkExport.h"

#include <string>

// Marker class of the library: no fields, no virtual functions.
class INK_EXPORT LibInkGraphics
{
public:
    LibInkGraphics();
};

// What the library tells of itself.
namespace Lectern {

// The version text, for example to be shown in an "About" box. The spelling of the name is the exported one.
INK_EXPORT std::string GetVerisonString();

} // namespace Lectern

#include "LibInkGraphics.h"

LibInkGraphics::LibInkGraphics() = default;

std::string Lectern::GetVerisonString()
{
    return "version: 2.7.3236 - master/2.7.3236 (2021-04-07 13:09:02)";
}

#include "lesson/objects/Tools_p.h"

#include "CInk4Stars.h"
#include "CInk5Side.h"
#include "CInk5Stars.h"
#include "CInk6Side.h"
#include "CInk6Stars.h"
#include "CInkBoom1.h"
#include "CInkBoom2.h"
#include "CInkCloudLabel.h"
#include "CInkDownArrow.h"
#include "CInkEllipseLabel.h"
#include "CInkErro.h"
#include "CInkLighting.h"
#include "CInkLove.h"
#include "CInkRight.h"
#include "CInkRightArrow.h"
#include "CInkRoundRectLabel.h"
#include "CInkUpArrow.h"
#include "_H.h"

namespace InkLesson {

namespace {

template <typename Stencil>
Tool stencil(const char *name)
{
    Tool tool{name, plain<Stencil>};
    tool.hasHandles = true;
    tool.takesDash = true;
    tool.paintsOnce = true;
    return tool;
}

template <typename Stencil>
Tool solidStencil(const char *name)
{
    Tool tool = stencil<Stencil>(name);
    tool.takesDash = false;
    return tool;
}

// Its outline is painted in parts that lie over each other.
template <typename Stencil>
Tool label(const char *name)
{
    Tool tool = stencil<Stencil>(name);
    tool.paintsOnce = false;
    return tool;
}

} // namespace

std::vector<Tool> stencils()
{
    return {
        stencil<CInkRight>("check-mark"),
        stencil<CInkErro>("cross-mark"),
        stencil<CInkRightArrow>("right-arrow"),
        stencil<_H>("left-arrow"),
        stencil<CInkUpArrow>("up-arrow"),
        stencil<CInkDownArrow>("down-arrow"),
        stencil<CInk4Stars>("star-4"),
        stencil<CInk5Stars>("star-5"),
        stencil<CInk6Stars>("star-6"),
        stencil<CInk5Side>("pentagon"),
        stencil<CInk6Side>("hexagon"),
        stencil<CInkLighting>("lightning"),
        stencil<CInkBoom1>("burst-12"),
        stencil<CInkBoom2>("burst-14"),
        label<CInkEllipseLabel>("ellipse-label"),
        solidStencil<CInkRoundRectLabel>("rounded-label"),
        label<CInkCloudLabel>("cloud-label"),
        solidStencil<CInkLove>("heart"),
    };
}

} // namespace InkLesson

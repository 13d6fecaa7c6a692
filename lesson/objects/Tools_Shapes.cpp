#include "lesson/objects/Tools_p.h"

#include "CInk1ArrowLine.h"
#include "CInkBeZier.h"
#include "CInkDiamond.h"
#include "CInkEllipse.h"
#include "CInkITriangle.h"
#include "CInkLTriangle.h"
#include "CInkLine.h"
#include "CInkPolygon.h"
#include "CInkRectangle.h"
#include "CInkRoundRect.h"

namespace InkLesson {

namespace {

std::unique_ptr<CInkGraph> curve(const QSize & /*canvas*/)
{
    return std::make_unique<CInkBeZier>(Qt::RoundCap, Qt::RoundCap, Qt::SolidLine);
}

Tool shape(const char *name, decltype(Tool::create) create)
{
    Tool tool{name, create};
    tool.hasHandles = true;
    tool.paintsOnce = true;
    return tool;
}

Tool dashed(const char *name, decltype(Tool::create) create)
{
    Tool tool = shape(name, create);
    tool.takesDash = true;
    return tool;
}

} // namespace

std::vector<Tool> shapes()
{
    return {
        dashed("line", plain<CInkLine>),
        dashed("arrow-line", plain<CInk1ArrowLine>),
        shape("rectangle", plain<CInkRectangle>),
        shape("rounded-rectangle", plain<CInkRoundRect>),
        shape("ellipse", plain<CInkEllipse>),
        shape("triangle", plain<CInkITriangle>),
        shape("right-triangle", plain<CInkLTriangle>),
        dashed("diamond", plain<CInkDiamond>),
        shape("polygon", plain<CInkPolygon>),
        shape("curve", curve),
    };
}

} // namespace InkLesson

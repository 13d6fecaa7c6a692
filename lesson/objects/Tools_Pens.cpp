#include "lesson/objects/Tools_p.h"

#include "CInkBrush.h"
#include "CInkColorBrush.h"
#include "CInkCrayon.h"
#include "CInkFlatBrush.h"
#include "CInkHighLightPen.h"
#include "CInkPencil.h"
#include "CInkSprayGun.h"
#include "CInkWaterColorPen.h"

namespace InkLesson {

namespace {

void setOpacity(CInkGraph &object, int percent)
{
    static_cast<CInkHighLightPen &>(object).m_nAlpha = percent * 255 / 100;
}

void setNibAngle(CInkGraph &object, int degrees)
{
    static_cast<CInkFlatBrush &>(object).m_fNibAngle = float(degrees);
}

Tool pen(const char *name, decltype(Tool::create) create)
{
    Tool tool{name, create};
    tool.paintsOnce = true;
    return tool;
}

Tool flatBrush()
{
    Tool tool = pen("flat-brush", plain<CInkFlatBrush>);
    tool.movesAsItGrows = true;
    tool.option = InkOption{0, 180, 45, setNibAngle}; // degrees
    return tool;
}

Tool highlighter()
{
    Tool tool = pen("highlighter", plain<CInkHighLightPen>);
    tool.option = InkOption{10, 90, 40, setOpacity}; // percent
    return tool;
}

template <typename Pen>
Tool texturedPen(const char *name)
{
    Tool tool = pen(name, onCanvas<Pen>);
    tool.rendersInto = [](const CInkGraph &object) { return static_cast<const Pen &>(object).m_rcCanvas.size(); };
    return tool;
}

Tool crayon()
{
    Tool tool = texturedPen<CInkCrayon>("crayon");
    tool.rendersAsPainted = true;
    return tool;
}

Tool sprayGun()
{
    Tool tool = texturedPen<CInkSprayGun>("spray-gun");
    tool.scatters = true;
    return tool;
}

} // namespace

std::vector<Tool> pens()
{
    return {
        pen("pencil", plain<CInkPencil>),
        pen("brush", plain<CInkBrush>),
        flatBrush(),
        highlighter(),
        texturedPen<CInkColorBrush>("color-brush"),
        crayon(),
        texturedPen<CInkWaterColorPen>("water-color-pen"),
        sprayGun(),
    };
}

} // namespace InkLesson

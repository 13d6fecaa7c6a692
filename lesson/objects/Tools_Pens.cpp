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

Tool flatBrush()
{
    Tool tool{"flat-brush", plain<CInkFlatBrush>};
    tool.movesAsItGrows = true;
    tool.option = InkOption{0, 180, 45, setNibAngle}; // degrees
    return tool;
}

Tool highlighter()
{
    Tool tool{"highlighter", plain<CInkHighLightPen>};
    tool.option = InkOption{10, 90, 40, setOpacity}; // percent
    return tool;
}

Tool crayon()
{
    Tool tool{"crayon", onCanvas<CInkCrayon>};
    tool.rendersAsPainted = true;
    return tool;
}

Tool sprayGun()
{
    Tool tool{"spray-gun", onCanvas<CInkSprayGun>};
    tool.scatters = true;
    return tool;
}

} // namespace

std::vector<Tool> pens()
{
    return {
        {"pencil", plain<CInkPencil>},
        {"brush", plain<CInkBrush>},
        flatBrush(),
        highlighter(),
        {"color-brush", onCanvas<CInkColorBrush>},
        crayon(),
        {"water-color-pen", onCanvas<CInkWaterColorPen>},
        sprayGun(),
    };
}

} // namespace InkLesson

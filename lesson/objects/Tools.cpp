#include "lesson/objects/Tools.h"

#include "lesson/objects/Tools_p.h"

#include "CInkDiamond.h"
#include "CInkGraph.h"
#include "CInkLine.h"
#include "CInkSignGraph.h"

#include <algorithm>
#include <iterator>

namespace InkLesson {

namespace {

constexpr unsigned int kLoopback = 0x7F000001; // 127.0.0.1

std::vector<Tool> makeTable()
{
    std::vector<Tool> table;
    for (const auto family : {pens, rasterTools, shapes, stencils}) {
        std::vector<Tool> members = family();
        std::move(members.begin(), members.end(), std::back_inserter(table));
    }
    return table;
}

} // namespace

const std::vector<Tool> &tools()
{
    static const std::vector<Tool> table = makeTable();
    return table;
}

const Tool *findTool(const QString &name)
{
    const auto found = std::find_if(tools().begin(), tools().end(),
                                    [&](const Tool &tool) { return name == QLatin1String(tool.name); });
    return found == tools().end() ? nullptr : &*found;
}

void setDash(CInkGraph &object, Qt::PenStyle dash)
{
    if (auto *line = dynamic_cast<CInkLine *>(&object))
        line->m_nPenStyle = dash;
    else if (auto *diamond = dynamic_cast<CInkDiamond *>(&object))
        diamond->m_penStyle = dash;
    else if (auto *stencil = dynamic_cast<CInkSignGraph *>(&object))
        stencil->m_penStyle = dash;
}

void setDrawnHere(CInkGraph &object)
{
    object.SetOwnerIP(kLoopback);
    object.SetDrawerIP(kLoopback);
}

void setDrawnElsewhere(CInkGraph &object, int author)
{
    object.SetOwnerIP(kLoopback);
    object.SetDrawerIP(unsigned(author));
}

std::unique_ptr<CInkGraph> createObject(const Tool &tool, const Ink &ink, const QSize &canvas)
{
    std::unique_ptr<CInkGraph> object = tool.create(canvas);
    object->SetCanvasSize(canvas);
    object->SetColor(ink.color);
    object->SetWidth(ink.width);
    if (const auto &option = tool.option) // a file may ask for any value
        option->apply(*object, qBound(option->min, ink.option.value_or(option->value), option->max));
    setDash(*object, ink.dash);
    setDrawnHere(*object);
    return object;
}

} // namespace InkLesson

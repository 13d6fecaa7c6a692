#include "board/tools/Tools.h"

#include "board/tools/Tools_p.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QStringList>

#include <algorithm>
#include <iterator>

namespace Board {

namespace {

std::vector<Tool> makeTable()
{
    std::vector<Tool> table;
    for (const auto group : {pens, rasterTools, shapes, stencils}) {
        std::vector<Tool> members = group();
        std::move(members.begin(), members.end(), std::back_inserter(table));
    }
    for (Tool &tool : table)
        tool.kind = InkLesson::findTool(QLatin1String(tool.name));
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

QString toolNames()
{
    QStringList names;
    for (const Tool &tool : tools())
        names.append(QLatin1String(tool.name));
    return names.join(QLatin1String(", "));
}

QString toolTitle(const Tool &tool)
{
    return QCoreApplication::translate("Board::Tool", tool.title);
}

QString toolUsage(const Tool &tool)
{
    return QCoreApplication::translate("Board::Tool", tool.usage);
}

QString groupTitle(const Tool &tool)
{
    return QCoreApplication::translate("Board::Tool", tool.group);
}

QString optionTitle(const OptionText &option)
{
    return QCoreApplication::translate("Board::Tool", option.title);
}

} // namespace Board

#include "board/tools/Tools_p.h"

namespace Board {

namespace {

constexpr const char *kStencils = QT_TRANSLATE_NOOP("Board::Tool", "Stencils");

Tool stencil(const char *name, const char *title, const char *shortcut)
{
    const Gesture box{{4, 4}, {28, 28}};
    return {name, title, shortcut, {box}, kStencils};
}

// It shows nothing but its frame, and that only until it is let go.
Tool heart()
{
    const Gesture box{{13, 13}, {19, 19}}; // the frame lies 10 pixels outside
    Tool tool = stencil("heart", QT_TRANSLATE_NOOP("Board::Tool", "Heart (frame only)"), "Ctrl+H");
    tool.sample = {box};
    tool.iconWhileEdited = true;
    tool.isFoundOnly = true;
    return tool;
}

} // namespace

std::vector<Tool> stencils()
{
    std::vector<Tool> table{
        stencil("check-mark", QT_TRANSLATE_NOOP("Board::Tool", "Check mark"), "Shift+R"),
        stencil("cross-mark", QT_TRANSLATE_NOOP("Board::Tool", "Cross mark"), "Shift+X"),
        stencil("right-arrow", QT_TRANSLATE_NOOP("Board::Tool", "Arrow right"), "Ctrl+Right"),
        stencil("left-arrow", QT_TRANSLATE_NOOP("Board::Tool", "Arrow left"), "Ctrl+Left"),
        stencil("up-arrow", QT_TRANSLATE_NOOP("Board::Tool", "Arrow up"), "Ctrl+Up"),
        stencil("down-arrow", QT_TRANSLATE_NOOP("Board::Tool", "Arrow down"), "Ctrl+Down"),
        stencil("star-4", QT_TRANSLATE_NOOP("Board::Tool", "Four-pointed star"), "Ctrl+4"),
        stencil("star-5", QT_TRANSLATE_NOOP("Board::Tool", "Five-pointed star"), "Ctrl+5"),
        stencil("star-6", QT_TRANSLATE_NOOP("Board::Tool", "Six-pointed star"), "Ctrl+6"),
        stencil("pentagon", QT_TRANSLATE_NOOP("Board::Tool", "Pentagon"), "Shift+P"),
        stencil("hexagon", QT_TRANSLATE_NOOP("Board::Tool", "Hexagon"), "Shift+H"),
        stencil("lightning", QT_TRANSLATE_NOOP("Board::Tool", "Lightning"), "Shift+L"),
        stencil("burst-12", QT_TRANSLATE_NOOP("Board::Tool", "Burst of twelve"), "Ctrl+1"),
        stencil("burst-14", QT_TRANSLATE_NOOP("Board::Tool", "Burst of fourteen"), "Ctrl+2"),
        stencil("ellipse-label", QT_TRANSLATE_NOOP("Board::Tool", "Speech bubble"), "Shift+E"),
        stencil("rounded-label", QT_TRANSLATE_NOOP("Board::Tool", "Speech box"), "Shift+U"),
        stencil("cloud-label", QT_TRANSLATE_NOOP("Board::Tool", "Thought cloud"), "Shift+C"),
        heart(),
    };
    for (Tool &tool : table)
        tool.snap = Snap::Square;
    return table;
}

} // namespace Board

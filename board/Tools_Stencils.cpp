#include "Tools_p.h"

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

namespace Board {

namespace {

constexpr const char *kStencils = QT_TRANSLATE_NOOP("Board::Tool", "Stencils");

template <typename Stencil>
Tool stencil(const char *name, const char *title, const char *shortcut)
{
    const Gesture box{{4, 4}, {28, 28}};
    return {name, title, shortcut, plain<Stencil>, {box}, kStencils};
}

// It shows nothing but its frame, and that only until it is let go.
Tool heart()
{
    const Gesture box{{13, 13}, {19, 19}}; // the frame lies 10 pixels outside
    Tool tool = stencil<CInkLove>("heart", QT_TRANSLATE_NOOP("Board::Tool", "Heart (frame only)"), "Ctrl+H");
    tool.sample = {box};
    tool.iconWhileEdited = true;
    return tool;
}

} // namespace

std::vector<Tool> stencils()
{
    std::vector<Tool> table{
        stencil<CInkRight>("check-mark", QT_TRANSLATE_NOOP("Board::Tool", "Check mark"), "Shift+R"),
        stencil<CInkErro>("cross-mark", QT_TRANSLATE_NOOP("Board::Tool", "Cross mark"), "Shift+X"),
        stencil<CInkRightArrow>("right-arrow", QT_TRANSLATE_NOOP("Board::Tool", "Arrow right"), "Ctrl+Right"),
        stencil<_H>("left-arrow", QT_TRANSLATE_NOOP("Board::Tool", "Arrow left"), "Ctrl+Left"),
        stencil<CInkUpArrow>("up-arrow", QT_TRANSLATE_NOOP("Board::Tool", "Arrow up"), "Ctrl+Up"),
        stencil<CInkDownArrow>("down-arrow", QT_TRANSLATE_NOOP("Board::Tool", "Arrow down"), "Ctrl+Down"),
        stencil<CInk4Stars>("star-4", QT_TRANSLATE_NOOP("Board::Tool", "Four-pointed star"), "Ctrl+4"),
        stencil<CInk5Stars>("star-5", QT_TRANSLATE_NOOP("Board::Tool", "Five-pointed star"), "Ctrl+5"),
        stencil<CInk6Stars>("star-6", QT_TRANSLATE_NOOP("Board::Tool", "Six-pointed star"), "Ctrl+6"),
        stencil<CInk5Side>("pentagon", QT_TRANSLATE_NOOP("Board::Tool", "Pentagon"), "Shift+P"),
        stencil<CInk6Side>("hexagon", QT_TRANSLATE_NOOP("Board::Tool", "Hexagon"), "Shift+H"),
        stencil<CInkLighting>("lightning", QT_TRANSLATE_NOOP("Board::Tool", "Lightning"), "Shift+L"),
        stencil<CInkBoom1>("burst-12", QT_TRANSLATE_NOOP("Board::Tool", "Burst of twelve"), "Ctrl+1"),
        stencil<CInkBoom2>("burst-14", QT_TRANSLATE_NOOP("Board::Tool", "Burst of fourteen"), "Ctrl+2"),
        stencil<CInkEllipseLabel>("ellipse-label", QT_TRANSLATE_NOOP("Board::Tool", "Speech bubble"), "Shift+E"),
        stencil<CInkRoundRectLabel>("rounded-label", QT_TRANSLATE_NOOP("Board::Tool", "Speech box"), "Shift+U"),
        stencil<CInkCloudLabel>("cloud-label", QT_TRANSLATE_NOOP("Board::Tool", "Thought cloud"), "Shift+C"),
        heart(),
    };
    for (Tool &tool : table) {
        tool.hasHandles = true;
        tool.snap = Snap::Square;
        tool.takesDash = true;
    }
    for (std::size_t solid : {15U, 17U}) // speech box and heart
        table[solid].takesDash = false;
    return table;
}

} // namespace Board

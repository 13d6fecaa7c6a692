#include "board/tools/Tools_p.h"

#include "lesson/objects/Scatter.h"

namespace Board {

namespace {

Tool pen(const char *name, const char *title, const char *shortcut, Gesture sample)
{
    return {name, title, shortcut, {std::move(sample)}, QT_TRANSLATE_NOOP("Board::Tool", "Pens")};
}

Gesture scribble()
{
    return {{4, 22}, {6, 15}, {9, 10}, {12, 9}, {14, 12}, {14, 18}, {15, 22}, {18, 23}, {22, 20}, {25, 14}, {28, 8}};
}

Gesture broadScribble()
{
    return {{7, 22}, {9, 15}, {12, 10}, {15, 12}, {16, 18}, {18, 21}, {21, 18}, {23, 13}, {25, 9}};
}

Tool brush()
{
    Tool tool = pen("brush", QT_TRANSLATE_NOOP("Board::Tool", "Brush"), "B", broadScribble());
    tool.sampleWidth = 6;
    return tool;
}

Tool flatBrush()
{
    // The nib turns what is drawn about its upper left corner, and squashes it.
    const Gesture sample{{14, 3}, {28, 3}, {12, 10}, {30, 10}, {16, 18}};
    Tool tool = pen("flat-brush", QT_TRANSLATE_NOOP("Board::Tool", "Flat brush"), "F", sample);
    tool.option = OptionText{QT_TRANSLATE_NOOP("Board::Tool", "Nib"), "°"};
    return tool;
}

Tool highlighter()
{
    const Gesture sample{{8, 16}, {24, 16}};
    Tool tool = pen("highlighter", QT_TRANSLATE_NOOP("Board::Tool", "Highlighter"), "H", sample);
    tool.sampleWidth = 12;
    tool.option = OptionText{QT_TRANSLATE_NOOP("Board::Tool", "Opacity"), "%"};
    return tool;
}

Tool colorBrush()
{
    Tool tool = pen("color-brush", QT_TRANSLATE_NOOP("Board::Tool", "Colour brush"), "Shift+B", broadScribble());
    tool.sampleWidth = 9;
    return tool;
}

Tool crayon()
{
    // A disc hangs at its point by its upper left corner.
    const Gesture sample{{4, 19}, {6, 12}, {9, 6}, {12, 7}, {13, 14}, {15, 18}, {18, 15}, {20, 9}, {21, 5}};
    Tool tool = pen("crayon", QT_TRANSLATE_NOOP("Board::Tool", "Crayon"), "K", sample);
    tool.sampleWidth = 8;
    return tool;
}

Tool waterColorPen()
{
    Tool tool =
        pen("water-color-pen", QT_TRANSLATE_NOOP("Board::Tool", "Water-colour pen (leaves no mark)"), "W", scribble());
    tool.isFoundOnly = true;
    return tool;
}

Tool sprayGun()
{
    constexpr quint32 kSeed = 1;
    constexpr int kWidth = 6;
    const Gesture centre(20, QPoint(16, 16));
    return pen("spray-gun", QT_TRANSLATE_NOOP("Board::Tool", "Spray gun"), "S",
               InkLesson::Scatter(kSeed).along(centre, kWidth));
}

} // namespace

std::vector<Tool> pens()
{
    return {
        pen("pencil", QT_TRANSLATE_NOOP("Board::Tool", "Pencil"), "P", scribble()),
        brush(),
        flatBrush(),
        highlighter(),
        colorBrush(),
        crayon(),
        waterColorPen(),
        sprayGun(),
    };
}

} // namespace Board

#include "board/tools/Tools_p.h"

namespace Board {

namespace {

constexpr const char *kShapes = QT_TRANSLATE_NOOP("Board::Tool", "Lines and shapes");

} // namespace

std::vector<Tool> shapes()
{
    std::vector<Tool> table{
        {"line", QT_TRANSLATE_NOOP("Board::Tool", "Line"), "L", {{{5, 26}, {27, 6}}}, kShapes},
        {"arrow-line", QT_TRANSLATE_NOOP("Board::Tool", "Arrow line"), "A", {{{5, 6}, {27, 26}}}, kShapes},
        {"rectangle", QT_TRANSLATE_NOOP("Board::Tool", "Rectangle"), "R", {{{4, 7}, {27, 24}}}, kShapes},
        {"rounded-rectangle", QT_TRANSLATE_NOOP("Board::Tool", "Rounded"), "U", {{{4, 4}, {27, 27}}}, kShapes},
        {"ellipse", QT_TRANSLATE_NOOP("Board::Tool", "Ellipse"), "E", {{{4, 6}, {27, 25}}}, kShapes},
        {"triangle", QT_TRANSLATE_NOOP("Board::Tool", "Triangle"), "T", {{{4, 5}, {27, 26}}}, kShapes},
        {"right-triangle",
         QT_TRANSLATE_NOOP("Board::Tool", "Right triangle"),
         "Shift+T",
         {{{5, 5}, {27, 26}}},
         kShapes},
        {"diamond", QT_TRANSLATE_NOOP("Board::Tool", "Diamond"), "D", {{{4, 4}, {28, 28}}}, kShapes},
        {"polygon",
         QT_TRANSLATE_NOOP("Board::Tool", "Polygon"),
         "G",
         {{{5, 13}, {18, 4}}, {{18, 4}, {28, 14}}, {{28, 14}, {22, 28}}, {{22, 28}, {8, 26}}, {{8, 26}, {5, 13}}},
         kShapes},
        {"curve",
         QT_TRANSLATE_NOOP("Board::Tool", "Curve"),
         "C",
         {{{4, 26}, {28, 6}}, {{4, 26}, {8, -14}}, {{28, 6}, {24, 46}}},
         kShapes},
    };
    for (Tool &tool : table)
        tool.snap = Snap::Square;
    for (std::size_t line : {0U, 1U})
        table[line].snap = Snap::Angle;
    for (std::size_t path : {8U, 9U}) // polygon and curve, of several gestures
        table[path].snap = Snap::None;
    return table;
}

} // namespace Board

#include "Tools_p.h"

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

namespace Board {

namespace {

constexpr const char *kShapes = QT_TRANSLATE_NOOP("Board::Tool", "Lines and shapes");

std::unique_ptr<CInkGraph> curve(const QSize & /*canvas*/)
{
    return std::make_unique<CInkBeZier>(Qt::RoundCap, Qt::RoundCap, Qt::SolidLine);
}

} // namespace

std::vector<Tool> shapes()
{
    std::vector<Tool> table{
        {"line", QT_TRANSLATE_NOOP("Board::Tool", "Line"), "L", plain<CInkLine>, {{{5, 26}, {27, 6}}}, kShapes},
        {"arrow-line",
         QT_TRANSLATE_NOOP("Board::Tool", "Arrow line"),
         "A",
         plain<CInk1ArrowLine>,
         {{{5, 6}, {27, 26}}},
         kShapes},
        {"rectangle",
         QT_TRANSLATE_NOOP("Board::Tool", "Rectangle"),
         "R",
         plain<CInkRectangle>,
         {{{4, 7}, {27, 24}}},
         kShapes},
        {"rounded-rectangle",
         QT_TRANSLATE_NOOP("Board::Tool", "Rounded"),
         "U",
         plain<CInkRoundRect>,
         {{{4, 4}, {27, 27}}},
         kShapes},
        {"ellipse",
         QT_TRANSLATE_NOOP("Board::Tool", "Ellipse"),
         "E",
         plain<CInkEllipse>,
         {{{4, 6}, {27, 25}}},
         kShapes},
        {"triangle",
         QT_TRANSLATE_NOOP("Board::Tool", "Triangle"),
         "T",
         plain<CInkITriangle>,
         {{{4, 5}, {27, 26}}},
         kShapes},
        {"right-triangle",
         QT_TRANSLATE_NOOP("Board::Tool", "Right triangle"),
         "Shift+T",
         plain<CInkLTriangle>,
         {{{5, 5}, {27, 26}}},
         kShapes},
        {"diamond",
         QT_TRANSLATE_NOOP("Board::Tool", "Diamond"),
         "D",
         plain<CInkDiamond>,
         {{{4, 4}, {28, 28}}},
         kShapes},
        {"polygon",
         QT_TRANSLATE_NOOP("Board::Tool", "Polygon"),
         "G",
         plain<CInkPolygon>,
         {{{5, 13}, {18, 4}}, {{18, 4}, {28, 14}}, {{28, 14}, {22, 28}}, {{22, 28}, {8, 26}}, {{8, 26}, {5, 13}}},
         kShapes},
        {"curve",
         QT_TRANSLATE_NOOP("Board::Tool", "Curve"),
         "C",
         curve,
         {{{4, 26}, {28, 6}}, {{4, 26}, {8, -14}}, {{28, 6}, {24, 46}}},
         kShapes},
    };
    for (Tool &tool : table) {
        tool.hasHandles = true;
        tool.snap = Snap::Square;
    }
    for (std::size_t line : {0U, 1U})
        table[line].snap = Snap::Angle;
    for (std::size_t dashed : {0U, 1U, 7U}) // lines and diamond; the others are always solid
        table[dashed].takesDash = true;
    for (std::size_t path : {8U, 9U}) // polygon and curve, of several gestures
        table[path].snap = Snap::None;
    return table;
}

} // namespace Board

#include "Tools_p.h"

#include "CInkPencil.h"

namespace Board {

namespace {

constexpr const char *kPens = QT_TRANSLATE_NOOP("Board::Tool", "Pens");

} // namespace

std::vector<Tool> pens()
{
    return {
        {"pencil",
         QT_TRANSLATE_NOOP("Board::Tool", "Pencil"),
         "P",
         plain<CInkPencil>,
         {{{4, 22}, {6, 15}, {9, 10}, {12, 9}, {14, 12}, {14, 18}, {15, 22}, {18, 23}, {22, 20}, {25, 14}, {28, 8}}},
         kPens},
    };
}

} // namespace Board

#include "Tools.h"

#include "CInk1ArrowLine.h"
#include "CInkBeZier.h"
#include "CInkDiamond.h"
#include "CInkEllipse.h"
#include "CInkITriangle.h"
#include "CInkLTriangle.h"
#include "CInkLine.h"
#include "CInkPencil.h"
#include "CInkPolygon.h"
#include "CInkRectangle.h"
#include "CInkRoundRect.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QStringList>

#include <algorithm>

namespace Board {

namespace {

constexpr unsigned int kLoopback = 0x7F000001; // 127.0.0.1

template <typename Object>
std::unique_ptr<CInkGraph> plain(const QSize & /*canvas*/)
{
    return std::make_unique<Object>();
}

std::unique_ptr<CInkGraph> curve(const QSize & /*canvas*/)
{
    return std::make_unique<CInkBeZier>(Qt::RoundCap, Qt::RoundCap, Qt::SolidLine);
}

std::vector<Tool> makeTable()
{
    return {
        {"pencil",
         QT_TRANSLATE_NOOP("Board::Tool", "Pencil"),
         "P",
         plain<CInkPencil>,
         {{{4, 22}, {6, 15}, {9, 10}, {12, 9}, {14, 12}, {14, 18}, {15, 22}, {18, 23}, {22, 20}, {25, 14}, {28, 8}}}},
        {"line", QT_TRANSLATE_NOOP("Board::Tool", "Line"), "L", plain<CInkLine>, {{{5, 26}, {27, 6}}}},
        {"arrow-line",
         QT_TRANSLATE_NOOP("Board::Tool", "Arrow line"),
         "A",
         plain<CInk1ArrowLine>,
         {{{5, 6}, {27, 26}}}},
        {"rectangle", QT_TRANSLATE_NOOP("Board::Tool", "Rectangle"), "R", plain<CInkRectangle>, {{{4, 7}, {27, 24}}}},
        {"rounded-rectangle",
         QT_TRANSLATE_NOOP("Board::Tool", "Rounded"),
         "U",
         plain<CInkRoundRect>,
         {{{4, 4}, {27, 27}}}},
        {"ellipse", QT_TRANSLATE_NOOP("Board::Tool", "Ellipse"), "E", plain<CInkEllipse>, {{{4, 6}, {27, 25}}}},
        {"triangle", QT_TRANSLATE_NOOP("Board::Tool", "Triangle"), "T", plain<CInkITriangle>, {{{4, 5}, {27, 26}}}},
        {"right-triangle",
         QT_TRANSLATE_NOOP("Board::Tool", "Right triangle"),
         "Shift+T",
         plain<CInkLTriangle>,
         {{{5, 5}, {27, 26}}}},
        {"diamond", QT_TRANSLATE_NOOP("Board::Tool", "Diamond"), "D", plain<CInkDiamond>, {{{4, 4}, {28, 28}}}},
        {"polygon",
         QT_TRANSLATE_NOOP("Board::Tool", "Polygon"),
         "G",
         plain<CInkPolygon>,
         {{{5, 13}, {18, 4}}, {{18, 4}, {28, 14}}, {{28, 14}, {22, 28}}, {{22, 28}, {8, 26}}, {{8, 26}, {5, 13}}}},
        {"curve",
         QT_TRANSLATE_NOOP("Board::Tool", "Curve"),
         "C",
         curve,
         {{{4, 26}, {28, 6}}, {{4, 26}, {8, -14}}, {{28, 6}, {24, 46}}}},
    };
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

std::unique_ptr<CInkGraph> createObject(const Tool &tool, const Ink &ink, const QSize &canvas)
{
    std::unique_ptr<CInkGraph> object = tool.create(canvas);
    object->SetCanvasSize(canvas);
    object->SetColor(ink.color);
    object->SetWidth(ink.width);
    // Equal addresses: the object shows its handles instead of the shade over somebody else's work.
    object->SetOwnerIP(kLoopback);
    object->SetDrawerIP(kLoopback);
    return object;
}

} // namespace Board

// The order of the virtual operations is part of the binary interface: each slot is read from the library itself.

#include "CInkGraph.h"

#include <cxxabi.h>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <link.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace {

std::string demangled(const char *symbol)
{
    const std::unique_ptr<char, decltype(&std::free)> text(abi::__cxa_demangle(symbol, nullptr, nullptr, nullptr),
                                                           &std::free);
    return text ? text.get() : symbol;
}

std::string symbolAt(const void *address)
{
    Dl_info info{};
    return address && dladdr(address, &info) && info.dli_sname ? demangled(info.dli_sname) : "?";
}

// The operations of a class in slot order. The destructor has two slots, complete and deleting.
std::vector<std::string> slotsOf(const std::string &className)
{
    constexpr size_t kHeader = 2; // offset to top, type info
    const std::string symbol = "_ZTV" + std::to_string(className.size()) + className;
    static void *const library = dlopen(INK_LIBRARY, RTLD_NOW);
    const auto table = static_cast<const void *const *>(library ? dlsym(library, symbol.c_str()) : nullptr);
    Dl_info info{};
    const void *entry = nullptr; // of the symbol table: tells the size
    if (!table || !dladdr1(table, &info, const_cast<void **>(&entry), RTLD_DL_SYMENT))
        return {};
    const size_t count = static_cast<const ElfW(Sym) *>(entry)->st_size / sizeof(void *);
    std::vector<std::string> slots;
    for (size_t i = kHeader; i < count; ++i)
        slots.push_back(symbolAt(table[i]));
    return slots;
}

// A slot a line, so that a difference is shown by lines.
std::string text(const std::vector<std::string> &slots)
{
    std::string lines;
    for (const std::string &slot : slots)
        lines += slot + '\n';
    return lines;
}

void expectSlots(const std::string &className, const std::vector<std::string> &approved)
{
    EXPECT_EQ(text(approved), text(slotsOf(className))) << className;
}

const std::vector<std::string> kGraphSlots = {
    "CInkGraph::~CInkGraph()",
    "CInkGraph::~CInkGraph()",
    "CInkGraph::Draw(QPainter&, QPainter&, QPainter&, QPainter&, QRect, int, int)",
    "CInkGraph::Draw(QPainter&, QRect&)",
    "CInkGraph::SetCanvasSize(QSize)",
    "CInkGraph::SetWidth(int)",
    "CInkGraph::SetColor(QColor)",
    "CInkGraph::GetPointCount()",
    "__cxa_pure_virtual", // FinishGraph
    "__cxa_pure_virtual", // GetUpdateRect
    "CInkGraph::GetModifyType()",
    "CInkGraph::AroundHotPts(QPoint)",
    "CInkGraph::ResetHotData(QRect)",
    "__cxa_pure_virtual", // AddPoint
    "CInkGraph::IsPtInModifyZone(QPoint)",
    "CInkGraph::DecideModiFyType(QPoint)",
    "CInkGraph::ModifyGraph(QPoint, ModifyType)",
    "CInkGraph::StretchGraph(QPoint)",
    "CInkGraph::MoveGraph(float, float)",
    "CInkGraph::MoveGraph(QPoint, QPoint)",
    "CInkGraph::SetHotData(int, int)",
    "CInkGraph::CalcRotateAngle(QPoint, QPointF)",
    "CInkGraph::DrawHotShape(QPainter&)",
    "CInkGraph::AdjustGraph(float)",
};

enum Slot : size_t {
    LayeredDraw = 2,
    Draw = 3,
    SetCanvasSize = 4,
    SetWidth = 5,
    GetPointCount = 7,
    FinishGraph = 8,
    GetUpdateRect = 9,
    GetModifyType = 10,
    AroundHotPts = 11,
    ResetHotData = 12,
    AddPoint = 13,
    IsPtInModifyZone = 14,
    DecideModiFyType = 15,
    ModifyGraph = 16,
    StretchGraph = 17,
    MoveGraph = 18,
    SetHotData = 20,
    DrawHotShape = 22,
};

// The base's list with the given slots, and both of the destructor, replaced by the class's own.
std::vector<std::string> derived(std::vector<std::string> slots, const std::string &name,
                                 const std::vector<std::pair<size_t, std::string>> &own)
{
    slots[0] = slots[1] = name + "::~" + name + "()";
    for (const auto &[slot, operation] : own)
        slots[slot] = name + "::" + operation;
    return slots;
}

std::vector<std::string> appended(std::vector<std::string> slots, const std::vector<std::string> &more)
{
    slots.insert(slots.end(), more.begin(), more.end());
    return slots;
}

const std::vector<std::string> kLineSlots = derived(kGraphSlots, "CInkLine",
                                                    {{Draw, "Draw(QPainter&, QRect&)"},
                                                     {SetWidth, "SetWidth(int)"},
                                                     {GetPointCount, "GetPointCount()"},
                                                     {FinishGraph, "FinishGraph()"},
                                                     {GetUpdateRect, "GetUpdateRect()"},
                                                     {GetModifyType, "GetModifyType()"},
                                                     {AroundHotPts, "AroundHotPts(QPoint)"},
                                                     {AddPoint, "AddPoint(int, QPoint, QRect&)"},
                                                     {IsPtInModifyZone, "IsPtInModifyZone(QPoint)"},
                                                     {DecideModiFyType, "DecideModiFyType(QPoint)"},
                                                     {ModifyGraph, "ModifyGraph(QPoint, ModifyType)"},
                                                     {StretchGraph, "StretchGraph(QPoint)"},
                                                     {DrawHotShape, "DrawHotShape(QPainter&)"}});

const std::vector<std::string> kRectangleSlots = appended(derived(kGraphSlots, "CInkRectangle",
                                                                  {{Draw, "Draw(QPainter&, QRect&)"},
                                                                   {SetWidth, "SetWidth(int)"},
                                                                   {GetPointCount, "GetPointCount()"},
                                                                   {FinishGraph, "FinishGraph()"},
                                                                   {GetUpdateRect, "GetUpdateRect()"},
                                                                   {AddPoint, "AddPoint(int, QPoint, QRect&)"}}),
                                                          {"CInkRectangle::FormGraphData(int, QPoint, QRect&)"});

const std::vector<std::string> kPenSlots = appended(derived(kGraphSlots, "CInkPenGraph",
                                                            {{FinishGraph, "FinishGraph()"},
                                                             {GetUpdateRect, "GetUpdateRect()"},
                                                             {AddPoint, "AddPoint(int, QPoint, QRect&)"}}),
                                                    {"__cxa_pure_virtual", // GetDisIconRect
                                                     "CInkPenGraph::FormGraphData(int, QPoint, QRect&)"});

const std::vector<std::string> kStencilSlots =
    appended(derived(kGraphSlots, "CInkSignGraph",
                     {{Draw, "Draw(QPainter&, QRect&)"},
                      {SetWidth, "SetWidth(int)"},
                      {GetPointCount, "GetPointCount()"},
                      {FinishGraph, "FinishGraph()"},
                      {GetUpdateRect, "GetUpdateRect()"},
                      {AddPoint, "AddPoint(int, QPoint, QRect&)"}}),
             {"CInkSignGraph::FormGraphData(int, QPoint, QRect&)", "__cxa_pure_virtual"}); // NormalizeGraphData

constexpr size_t kNormalizeGraphData = 25; // of the stencils
constexpr size_t kFormGraphData = 24;      // of the boxes
constexpr size_t kGetDisIconRect = 24;     // of the pens
constexpr size_t kFormStroke = 25;         // of the pens

// No object has an abstract class's own table at its destruction, so the compiler leaves these slots empty.
std::vector<std::string> abstract(std::vector<std::string> slots)
{
    slots[0] = slots[1] = "?";
    return slots;
}

} // namespace

TEST(SlotOrder, graph)
{
    expectSlots("CInkGraph", abstract(kGraphSlots));
}

TEST(SlotOrder, pens)
{
    expectSlots("CInkPenGraph", abstract(kPenSlots));
    expectSlots("CInkPencil", derived(kPenSlots, "CInkPencil",
                                      {{Draw, "Draw(QPainter&, QRect&)"}, {kGetDisIconRect, "GetDisIconRect()"}}));
}

TEST(SlotOrder, vectorPens)
{
    for (const char *name : {"CInkBrush", "CInkFlatBrush", "CInkHighLightPen"}) {
        expectSlots(
            name, derived(kPenSlots, name, {{Draw, "Draw(QPainter&, QRect&)"}, {kGetDisIconRect, "GetDisIconRect()"}}));
    }
}

TEST(SlotOrder, texturedPens)
{
    for (const char *name : {"CInkColorBrush", "CInkCrayon", "CInkWaterColorPen"}) {
        expectSlots(name, derived(kPenSlots, name,
                                  {{Draw, "Draw(QPainter&, QRect&)"},
                                   {SetCanvasSize, "SetCanvasSize(QSize)"},
                                   {kGetDisIconRect, "GetDisIconRect()"},
                                   {kFormStroke, "FormGraphData(int, QPoint, QRect&)"}}));
    }
}

TEST(SlotOrder, sprayGun)
{
    expectSlots("CInkSprayGun", derived(kGraphSlots, "CInkSprayGun",
                                        {{Draw, "Draw(QPainter&, QRect&)"},
                                         {SetCanvasSize, "SetCanvasSize(QSize)"},
                                         {GetPointCount, "GetPointCount()"},
                                         {FinishGraph, "FinishGraph()"},
                                         {GetUpdateRect, "GetUpdateRect()"},
                                         {AddPoint, "AddPoint(int, QPoint, QRect&)"}}));
}

TEST(SlotOrder, eraser)
{
    const std::vector<std::string> pencil =
        derived(kPenSlots, "CInkPencil", {{Draw, "Draw(QPainter&, QRect&)"}, {kGetDisIconRect, "GetDisIconRect()"}});
    expectSlots("CInkEraser",
                derived(pencil, "CInkEraser",
                        {{LayeredDraw, "Draw(QPainter&, QPainter&, QPainter&, QPainter&, QRect, int, int)"},
                         {SetWidth, "SetWidth(int)"},
                         {GetUpdateRect, "GetUpdateRect()"},
                         {AddPoint, "AddPoint(int, QPoint, QRect&)"}}));
}

TEST(SlotOrder, lines)
{
    expectSlots("CInkLine", kLineSlots);
    expectSlots("CInk1ArrowLine", derived(kLineSlots, "CInk1ArrowLine", {{Draw, "Draw(QPainter&, QRect&)"}}));
}

TEST(SlotOrder, boxes)
{
    expectSlots("CInkRectangle", kRectangleSlots);
    expectSlots("CInkRoundRect", derived(kRectangleSlots, "CInkRoundRect", {{Draw, "Draw(QPainter&, QRect&)"}}));
}

TEST(SlotOrder, ellipse)
{
    expectSlots("CInkEllipse", derived(kGraphSlots, "CInkEllipse",
                                       {{Draw, "Draw(QPainter&, QRect&)"},
                                        {SetWidth, "SetWidth(int)"},
                                        {GetPointCount, "GetPointCount()"},
                                        {FinishGraph, "FinishGraph()"},
                                        {GetUpdateRect, "GetUpdateRect()"},
                                        {AddPoint, "AddPoint(int, QPoint, QRect&)"}}));
}

TEST(SlotOrder, stencils)
{
    expectSlots("CInkSignGraph", abstract(kStencilSlots));
    for (const char *name :
         {"CInk4Stars", "CInk5Side", "CInk5Stars", "CInk6Side", "CInk6Stars", "CInkBoom1", "CInkBoom2", "CInkDownArrow",
          "CInkErro", "_H", "CInkLighting", "CInkRight", "CInkRightArrow", "CInkUpArrow"}) {
        expectSlots(name,
                    derived(kStencilSlots, name, {{kNormalizeGraphData, "NormalizeGraphData(QVector<QPointF>&)"}}));
    }
    for (const char *name : {"CInkCloudLabel", "CInkEllipseLabel", "CInkLove", "CInkRoundRectLabel"}) {
        expectSlots(name, derived(kStencilSlots, name,
                                  {{Draw, "Draw(QPainter&, QRect&)"},
                                   {kNormalizeGraphData, "NormalizeGraphData(QVector<QPointF>&)"}}));
    }
}

TEST(SlotOrder, fills)
{
    const std::string layered = "Draw(QPainter&, QPainter&, QPainter&, QPainter&, QRect, int, int)";
    const std::vector<std::string> fill = derived(kGraphSlots, "CInkFloodFill",
                                                  {{LayeredDraw, layered},
                                                   {SetCanvasSize, "SetCanvasSize(QSize)"},
                                                   {GetPointCount, "GetPointCount()"},
                                                   {FinishGraph, "FinishGraph()"},
                                                   {GetUpdateRect, "GetUpdateRect()"},
                                                   {AddPoint, "AddPoint(int, QPoint, QRect&)"}});
    expectSlots("CInkFloodFill", fill);
    expectSlots("CInkFloodFillEx", derived(fill, "CInkFloodFillEx",
                                           {{LayeredDraw, layered}, {AddPoint, "AddPoint(int, QPoint, QRect&)"}}));
}

TEST(SlotOrder, imagesOnTheBox)
{
    expectSlots("CInkRgnSelect",
                derived(kRectangleSlots, "CInkRgnSelect",
                        {{LayeredDraw, "Draw(QPainter&, QPainter&, QPainter&, QPainter&, QRect, int, int)"},
                         {AddPoint, "AddPoint(int, QPoint, QRect&)"}}));
    expectSlots("CInkPicTure", derived(kRectangleSlots, "CInkPicTure",
                                       {{Draw, "Draw(QPainter&, QRect&)"},
                                        {FinishGraph, "FinishGraph()"},
                                        {GetUpdateRect, "GetUpdateRect()"}}));
    expectSlots("CInkText", derived(kRectangleSlots, "CInkText",
                                    {{Draw, "Draw(QPainter&, QRect&)"},
                                     {GetUpdateRect, "GetUpdateRect()"},
                                     {ResetHotData, "ResetHotData(QRect)"},
                                     {AddPoint, "AddPoint(int, QPoint, QRect&)"},
                                     {IsPtInModifyZone, "IsPtInModifyZone(QPoint)"},
                                     {DecideModiFyType, "DecideModiFyType(QPoint)"},
                                     {StretchGraph, "StretchGraph(QPoint)"},
                                     {MoveGraph, "MoveGraph(float, float)"},
                                     {SetHotData, "SetHotData(int, int)"},
                                     {DrawHotShape, "DrawHotShape(QPainter&)"},
                                     {kFormGraphData, "FormGraphData(int, QPoint, QRect&)"}}));
}

TEST(SlotOrder, shapesOnTheBox)
{
    for (const char *name : {"CInkITriangle", "CInkLTriangle", "CInkDiamond"}) {
        expectSlots(
            name, derived(kRectangleSlots, name,
                          {{Draw, "Draw(QPainter&, QRect&)"}, {kFormGraphData, "FormGraphData(int, QPoint, QRect&)"}}));
    }
    for (const char *name : {"CInkPolygon", "CInkBeZier"}) {
        expectSlots(name, derived(kRectangleSlots, name,
                                  {{Draw, "Draw(QPainter&, QRect&)"},
                                   {GetUpdateRect, "GetUpdateRect()"},
                                   {kFormGraphData, "FormGraphData(int, QPoint, QRect&)"}}));
    }
}

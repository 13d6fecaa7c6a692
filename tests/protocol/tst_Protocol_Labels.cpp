// Where a host paints the drawer's name and icon: from the top left corner of what is laid out, whose size may be
// another.

#include "Protocol.h"

#include <map>

namespace {

constexpr QSize kNameSize(50, 20);

struct Corners
{
    QPoint name, icon;
};

// While it is dragged from (100,100) to (200,160). The icon is 30 pixels wide and high: around the pointer, or above
// it.
constexpr Corners kAtThePointer{{200, 160}, {185, 145}};
constexpr Corners kAboveThePointer{{200, 160}, {200, 130}};
constexpr Corners kAlongTheStroke{{100, 100}, {200, 130}}; // the name lies where the newest piece began

// Nothing for tools that lay out none while they are dragged.
const Corners *cornersOf(const Tool &tool)
{
    static const std::map<std::string, const Corners *> others{
        {"CInkPencil", &kAlongTheStroke},
        {"CInkBrush", &kAlongTheStroke},
        {"CInkFlatBrush", &kAlongTheStroke},
        {"CInkHighLightPen", &kAlongTheStroke},
        {"CInkSprayGun", &kAboveThePointer},
        {"CInkColorBrush", nullptr}, // these three go on from a point between: see the next case
        {"CInkCrayon", nullptr},
        {"CInkWaterColorPen", nullptr},
        {"CInkFloodFill", nullptr},
        {"CInkFloodFillEx", nullptr},
        {"CInkPicTure", nullptr},
        {"CInkText", nullptr},
    };
    const auto found = others.find(tool.name);
    return found == others.end() ? &kAtThePointer : found->second;
}

} // namespace

INK_OVER_ALL_TOOLS;

TEST_P(Protocol, labelBeginsAtItsTopLeftCornerWhileDragged)
{
    const Corners *corners = cornersOf(GetParam());
    if (!corners)
        return;
    graph->ShowDrawerName(1);
    graph->ShowDrawerIcon(1);
    graph->m_sizeName = kNameSize;
    feed(*graph, PT_DOWN, 100, 100);
    feed(*graph, PT_MOVE, 200, 160);
    graph->GetUpdateRect();
    EXPECT_EQ(graph->m_rcName.topLeft(), corners->name);
    EXPECT_EQ(graph->m_rcIcon.topLeft(), corners->icon);
    EXPECT_GE(graph->m_rcName.width(), 50); // a host that takes the size from here may paint too large a label
    EXPECT_GE(graph->m_rcIcon.width(), 30);
}

TEST_P(Protocol, labelBeginsAtTheCornerOfTheFrameOnceEdited)
{
    GetParam().form(*graph);
    if (is(NeverEdited) || graph->m_bFinished || GetParam().name == "CInkText" ||
        GetParam().name.find("Line") != std::string::npos)
        return;
    graph->ShowDrawerName(1);
    graph->m_sizeName = kNameSize;
    graph->GetUpdateRect();
    EXPECT_EQ(graph->m_rcName.topLeft(), graph->m_rcHot.topLeft());
    EXPECT_FALSE(graph->m_rcHot.isEmpty());
}

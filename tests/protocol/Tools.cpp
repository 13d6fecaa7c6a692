#include "Tools.h"

#include "CInk1ArrowLine.h"
#include "CInk4Stars.h"
#include "CInk5Side.h"
#include "CInk5Stars.h"
#include "CInk6Side.h"
#include "CInk6Stars.h"
#include "CInkBeZier.h"
#include "CInkBoom1.h"
#include "CInkBoom2.h"
#include "CInkBrush.h"
#include "CInkCloudLabel.h"
#include "CInkColorBrush.h"
#include "CInkCrayon.h"
#include "CInkDiamond.h"
#include "CInkDownArrow.h"
#include "CInkEllipse.h"
#include "CInkEllipseLabel.h"
#include "CInkEraser.h"
#include "CInkErro.h"
#include "CInkFlatBrush.h"
#include "CInkFloodFill.h"
#include "CInkFloodFillEx.h"
#include "CInkHighLightPen.h"
#include "CInkITriangle.h"
#include "CInkLTriangle.h"
#include "CInkLighting.h"
#include "CInkLine.h"
#include "CInkLove.h"
#include "CInkPencil.h"
#include "CInkPicTure.h"
#include "CInkPolygon.h"
#include "CInkRectangle.h"
#include "CInkRgnSelect.h"
#include "CInkRight.h"
#include "CInkRightArrow.h"
#include "CInkRoundRect.h"
#include "CInkRoundRectLabel.h"
#include "CInkSprayGun.h"
#include "CInkText.h"
#include "CInkUpArrow.h"
#include "CInkWaterColorPen.h"
#include "_H.h"

namespace {

constexpr QSize kCanvas(400, 300);

template <typename Class>
Tool tool(const char *name)
{
    return {name, []() -> CInkGraph * { return new Class; }};
}

template <typename Class>
Tool onCanvas(const char *name)
{
    return {name, []() -> CInkGraph * { return new Class(kCanvas); }};
}

template <typename Class>
Tool styled(const char *name)
{
    return {name, []() -> CInkGraph * { return new Class(Qt::DashLine); }};
}

// 150 x 100 opaque pixels, of which every picture holds one copy.
CInkGraph *makePicture()
{
    QImage image(150, 100, QImage::Format_ARGB32);
    image.fill(Qt::darkCyan);
    return new CInkPicTure(&image, QPoint(90, 90));
}

CInkGraph *makeCurve()
{
    return new CInkBeZier(Qt::FlatCap, Qt::FlatCap, Qt::SolidLine);
}

void handOverImage(CInkGraph &text)
{
    QImage image(40, 20, QImage::Format_ARGB32);
    image.fill(Qt::darkGreen);
    static_cast<CInkText &>(text).SetTextImage(&image);
}

std::vector<Tool> pens()
{
    std::vector<Tool> all{
        tool<CInkPencil>("CInkPencil").clips(Clip::OwnOnceFinished),
        tool<CInkBrush>("CInkBrush"),
        tool<CInkFlatBrush>("CInkFlatBrush").clips(Clip::None),
        tool<CInkHighLightPen>("CInkHighLightPen"),
        // Besides its pixels an image holds what rounds them to whole pages, and Qt's paint engine once it is painted
        // into. A resampled stroke has a point every few pixels.
        onCanvas<CInkColorBrush>("CInkColorBrush").but(OwnColor | ReportsNewestStep).holds(1),
        onCanvas<CInkCrayon>("CInkCrayon").but(OwnColor | ReportsNewestStep).clips(Clip::None).holds(1),
        onCanvas<CInkWaterColorPen>("CInkWaterColorPen")
            .but(ReportsNewestStep | OwnDrawIsEmpty)
            .clips(Clip::None)
            .paints("", "")
            .holds(1),
        onCanvas<CInkSprayGun>("CInkSprayGun")
            .but(NeverFinishes | AssignsUpdate | ReportsNewestStep)
            .clips(Clip::None)
            .holds(1),
        // The texture is a copy of the background, kept for the next Draw.
        tool<CInkEraser>("CInkEraser").but(NeedsItsLayers).clips(Clip::GrownOnceFormed, "124").holds(1),
    };
    for (Tool &pen : all)
        pen.but(NeverEdited);
    return all;
}

std::vector<Tool> shapes()
{
    return {
        tool<CInkLine>("CInkLine").clips(Clip::OwnOnceFormed),
        tool<CInk1ArrowLine>("CInk1ArrowLine").but(LeavesStates).clips(Clip::None),
        tool<CInkRectangle>("CInkRectangle"),
        tool<CInkRoundRect>("CInkRoundRect"),
        tool<CInkEllipse>("CInkEllipse").clips(Clip::OwnOnceFormed),
        tool<CInkITriangle>("CInkITriangle").clips(Clip::OwnOnceFormed),
        tool<CInkLTriangle>("CInkLTriangle").clips(Clip::OwnOnceFormed),
        tool<CInkDiamond>("CInkDiamond").clips(Clip::OwnOnceFormed),
        tool<CInkPolygon>("CInkPolygon")
            .but(IgnoresUnknownCodes | KnowsDoubleClick)
            .clips(Clip::OwnOnceFormed)
            .needs({{200, 220}, {100, 100}}),
        Tool{"CInkBeZier", makeCurve}.needs({{200, 220}, {120, 180}}),
        styled<CInkRectangle>("CInkRectangle_penStyle"),
        styled<CInkRoundRect>("CInkRoundRect_penStyle"),
        styled<CInkEllipse>("CInkEllipse_penStyle").clips(Clip::OwnOnceFormed),
        styled<CInkITriangle>("CInkITriangle_penStyle").clips(Clip::OwnOnceFormed),
        styled<CInkLTriangle>("CInkLTriangle_penStyle").clips(Clip::OwnOnceFormed),
        styled<CInkDiamond>("CInkDiamond_penStyle").clips(Clip::OwnOnceFormed),
    };
}

std::vector<Tool> stencils()
{
    return {
        tool<CInk4Stars>("CInk4Stars"),
        tool<CInk5Side>("CInk5Side"),
        tool<CInk5Stars>("CInk5Stars"),
        tool<CInk6Side>("CInk6Side"),
        tool<CInk6Stars>("CInk6Stars"),
        tool<CInkBoom1>("CInkBoom1"),
        tool<CInkBoom2>("CInkBoom2"),
        tool<CInkCloudLabel>("CInkCloudLabel").clips(Clip::OwnOnceFormed),
        tool<CInkDownArrow>("CInkDownArrow"),
        tool<CInkEllipseLabel>("CInkEllipseLabel").clips(Clip::OwnOnceFormed),
        tool<CInkErro>("CInkErro"),
        tool<_H>("_H"),
        tool<CInkLighting>("CInkLighting"),
        tool<CInkLove>("CInkLove").clips(Clip::None).paints("", ""),
        tool<CInkRight>("CInkRight"),
        tool<CInkRightArrow>("CInkRightArrow"),
        tool<CInkRoundRectLabel>("CInkRoundRectLabel").clips(Clip::OwnOnceFormed),
        tool<CInkUpArrow>("CInkUpArrow"),
    };
}

std::vector<Tool> rasterTools()
{
    return {
        onCanvas<CInkFloodFill>("CInkFloodFill")
            .but(CommitsAtPress | PressReachesCommitted | AssignsUpdate | NeedsItsLayers | OwnDrawIsEmpty | NeverEdited)
            .clips(Clip::None)
            .paints("214", "214")
            .holds(1),
        onCanvas<CInkFloodFillEx>("CInkFloodFillEx")
            .but(FillsPageEarly | PressReachesCommitted | AssignsUpdate | NeedsItsLayers | OwnDrawIsEmpty | NeverEdited)
            .clips(Clip::None)
            .paints("", "214")
            .holds(1),
        // The lifted pixels are those of the frame alone, here 121 x 81 of them.
        tool<CInkRgnSelect>("CInkRgnSelect")
            .but(HearsAfterRelease | ResetsComposition | IgnoresSkip | NeedsItsLayers)
            .clips(Clip::Area, "2", "134")
            .paints("2", "41")
            .holds(0, 4096 + 121 * 81 * 4),
        Tool{"CInkPicTure", makePicture}.but(BornSelected).clips(Clip::OwnOnceFormed).holds(0, 2048 + 150 * 100 * 4),
        // Without an image it would be empty. 40 x 20 pixels.
        tool<CInkText>("CInkText").needs(handOverImage).holds(0, 2048 + 40 * 20 * 4),
    };
}

} // namespace

Tool &Tool::but(unsigned more)
{
    exceptions |= more;
    return *this;
}

Tool &Tool::clips(Clip how, const std::string &inProgress, const std::string &committed)
{
    clip = how;
    clipsInProgress = how == Clip::None ? "" : inProgress;
    clipsCommitted = how == Clip::None ? "" : committed;
    return *this;
}

Tool &Tool::paints(const std::string &inProgress, const std::string &committed)
{
    paintsInProgress = inProgress;
    paintsCommitted = committed;
    return *this;
}

Tool &Tool::holds(int images, std::size_t bytes)
{
    heldImages = images;
    heldBytes = bytes;
    return *this;
}

Tool &Tool::needs(const std::vector<QPoint> &moreTaps)
{
    taps = moreTaps;
    return *this;
}

Tool &Tool::needs(void (*hostsPart)(CInkGraph &))
{
    handOver = hostsPart;
    return *this;
}

const std::vector<Tool> &allTools()
{
    static const std::vector<Tool> tools = [] {
        std::vector<Tool> all;
        for (const auto &family : {pens(), shapes(), stencils(), rasterTools()})
            all.insert(all.end(), family.begin(), family.end());
        return all;
    }();
    return tools;
}

void Tool::form(CInkGraph &graph) const
{
    drag(graph, {100, 100}, {200, 160});
    for (const QPoint &tap : taps)
        drag(graph, tap, tap);
}

void Tool::drawAndCommit(CInkGraph &graph) const
{
    drag(graph, {100, 100}, {200, 160});
    graph.FinishGraph();
    if (handOver)
        handOver(graph);
}

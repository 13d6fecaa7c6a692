#pragma once

// Every concrete tool as one row: how it is made, and where it differs from all others.

#include "CInkGraph.h"
#include "Canvas.h"

#include <memory>
#include <ostream>
#include <string>
#include <vector>

using Graph = std::unique_ptr<CInkGraph>;

// Where a tool leaves the common protocol. Each is required of the tools that carry it.
enum Exception : unsigned {
    OwnColor = 1u << 0,              // is not born opaque black
    BornSelected = 1u << 1,          // needs no event: counts two points and is edited from the start
    NeverFinishes = 1u << 2,         // but at its release
    CommitsAtPress = 1u << 3,        // so nothing is in progress
    PressReachesCommitted = 1u << 4, // moves the seed of a fill that is done
    HearsAfterRelease = 1u << 5,     // every event goes on moving the second corner
    IgnoresUnknownCodes = 1u << 6,   // which are moves for the others while they are drawn
    KnowsDoubleClick = 1u << 7,      // which is an unknown code for the others
    AssignsUpdate = 1u << 8,         // and so drops what the host has collected
    ReportsNewestStep = 1u << 9,     // alone, however long the move was
    LeavesStates = 1u << 10,         // two saved ones on every painter it paints on
    ResetsComposition = 1u << 11,    // of the ink layer, to source-over
    IgnoresSkip = 1u << 12,          // neither number of the layered Draw is read
    FillsPageEarly = 1u << 13,       // before its commit
    NeedsItsLayers = 1u << 14,       // paints nothing on blank ones, or not alike on each
    OwnDrawIsEmpty = 1u << 15,       // nothing is painted, or only the layered one paints
    NeverEdited = 1u << 16,
};

// Which clip stays on the painters after a Draw.
enum class Clip {
    None,            // the host's own
    Area,            // what is to be repainted
    United,          // that and what the tool covers
    OwnOnceFormed,   // united; what the tool covers alone, once it has been edited
    OwnOnceFinished, // united; what the tool covers alone, once it is committed
    GrownOnceFormed, // as OwnOnceFormed, and one pixel more on every side
};

// Tools as they come from their constructors: fluent, so that a row says only what is not common.
struct Tool
{
    Tool(const char *itsName, CInkGraph *(*maker)())
        : name(itsName)
        , make(maker)
    {
    }

    std::string name;
    CInkGraph *(*make)(); // the caller owns what it returns
    unsigned exceptions{0};

    // Layers by the numbers of their painters: p1 page, p2 surface, p3 background, p4 ink.
    std::string paintsInProgress{"2"};
    std::string paintsCommitted{"241"}; // in this order
    Clip clip{Clip::United};
    std::string clipsInProgress{"2"};
    std::string clipsCommitted{"124"};

    // Taps after the first drag that the tool needs to be formed, and what the host hands over once it is committed.
    std::vector<QPoint> taps{};
    void (*handOver)(CInkGraph &){nullptr};

    // What one committed and painted object of three events may hold, on a canvas of 1000 x 1000 pixels.
    int heldImages{0};           // of the canvas's size, four bytes to a pixel
    std::size_t heldBytes{2048}; // besides those

    Tool &but(unsigned more);
    Tool &clips(Clip how, const std::string &inProgress = "2", const std::string &committed = "124");
    Tool &paints(const std::string &inProgress, const std::string &committed);
    Tool &needs(const std::vector<QPoint> &moreTaps);
    Tool &needs(void (*hostsPart)(CInkGraph &));
    Tool &holds(int images, std::size_t bytes = 24576);

    bool is(Exception exception) const { return (exceptions & exception) != 0; }

    // From (100,100) to (200,160) and whatever else it takes: edited, or committed where the tool is never edited.
    void form(CInkGraph &graph) const;

    // From (100,100) to (200,160), committed.
    void drawAndCommit(CInkGraph &graph) const;
};

const std::vector<Tool> &allTools();

inline std::ostream &operator<<(std::ostream &out, const Tool &tool)
{
    return out << tool.name;
}

#pragma once

#include <QtCore/QPoint>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtCore/QtGlobal>
#include <QtGui/QColor>

#include <memory>
#include <optional>
#include <vector>

class CInkGraph;
class QImage;
class QPainter;
class QWidget;

namespace Board {

class ObjectEditor;
struct Life;

// What the next object is drawn with. The width is in page pixels.
struct Ink
{
    QColor color{Qt::black};
    int width{4};
    std::optional<int> option{};      // of a tool with an option of its own; by default that option's first value
    Qt::PenStyle dash{Qt::SolidLine}; // of a tool that takes one
};

// What can be set for one tool beside colour and width.
struct InkOption
{
    const char *title;
    const char *unit;
    int min;
    int max;
    int value; // the first
    void (*apply)(CInkGraph &object, int value);
};

// What the Shift key does to the drag that draws an object.
enum class Snap {
    None,
    Angle, // of the line from the press: a multiple of 15 degrees
    Square // the box from the press has equal sides
};

// What a press on the page does.
enum class Use {
    Draws,
    Picks,   // an object that is there, to be changed
    Removes, // objects that are there
    Points   // with ink that disappears
};

using Gesture = std::vector<QPoint>; // from the press to the release

// One row of the table of tools; nothing else in the board knows one tool from another.
struct Tool
{
    const char *name; // on the command line
    const char *title;
    const char *shortcut; // as QKeySequence reads it
    std::unique_ptr<CInkGraph> (*create)(const QSize &canvas);
    std::vector<Gesture> sample; // draws the icon, on a square of kSampleSide pixels
    const char *group{""};       // its heading in the palette; the tools of a group follow each other
    int sampleWidth{3};          // of the pen that draws the icon
    bool iconWhileEdited{};      // the icon shows the object before it is let go
    bool sampleOnInk{};          // the icon shows what the tool does to ink
    bool movesAsItGrows{};       // each point moves what has been painted already
    bool scatters{};             // its points are strewn around the pointer for as long as that is held
    bool cursorShowsWidth{};     // the pointer is a circle as wide as the pen
    bool erases{};               // takes ink away
    bool tapsWithOnePoint{};     // a tap is a single point, finished: a second one in the same place would spoil it
    std::optional<InkOption> option{};
    const char *usage{QT_TRANSLATE_NOOP("Board::Tool", "drag on the page to draw")};
    void (*paintIcon)(QPainter &painter, const QColor &color){}; // for a tool that no sample can show
    ObjectEditor *(*edit)(CInkGraph &object, QWidget *parent){}; // for an object of which handles change a part only
    std::optional<Life> (*lift)(CInkGraph &committed, const QSize &canvas){}; // what is then edited in its place
    bool hasHandles{};                                                        // also once it is reopened
    Snap snap{Snap::None};
    Use use{Use::Draws};
    bool takesDash{}; // its outline is painted in the dash style of the ink
    // Paints what a committed object that works on the layers' pixels shows on a page of this background.
    void (*paintFlat)(QPainter &painter, CInkGraph &object, const QImage &background){};
};

constexpr int kSampleSide = 32;

// In the order of the palette.
const std::vector<Tool> &tools();

// Null for a name that no tool has.
const Tool *findTool(const QString &name);

// The names of all tools, for messages: "pencil, line, ...".
QString toolNames();

// All translated.
QString toolTitle(const Tool &tool);
QString toolUsage(const Tool &tool);
QString groupTitle(const Tool &tool);
QString optionTitle(const InkOption &option);

// Does nothing to an object that is always painted with solid lines.
void setDash(CInkGraph &object, Qt::PenStyle dash);

// Makes the participant at this board the object's owner and drawer: equal addresses show handles, others a shade.
void setDrawnHere(CInkGraph &object);

// A fresh object of the tool, owned and drawn by the participant at this board.
std::unique_ptr<CInkGraph> createObject(const Tool &tool, const Ink &ink, const QSize &canvas);

} // namespace Board

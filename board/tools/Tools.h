#pragma once

#include "lesson/objects/Gesture.h"
#include "lesson/objects/Tools.h"

#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtCore/QtGlobal>
#include <QtGui/QColor>

#include <optional>
#include <vector>

class CInkGraph;
class QPainter;
class QWidget;

namespace Board {

class ObjectEditor;

using InkLesson::Gesture;
using InkLesson::Ink;

// How the option of a tool is called.
struct OptionText
{
    const char *title;
    const char *unit;
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
    Points,  // with ink that disappears
    Pours    // colour over the area of another one
};

// One row of the table of tools: what the window shows of it. Nothing else in the board knows one tool from another.
struct Tool
{
    const char *name; // on the command line, and in a lesson
    const char *title;
    const char *shortcut;        // as QKeySequence reads it
    std::vector<Gesture> sample; // draws the icon, on a square of kSampleSide pixels
    const char *group{""};       // its heading in the palette; the tools of a group follow each other
    int sampleWidth{3};          // of the pen that draws the icon
    bool iconWhileEdited{};      // the icon shows the object before it is let go
    bool sampleOnInk{};          // the icon shows what the tool does to ink
    bool cursorShowsWidth{};     // the pointer is a circle as wide as the pen
    bool erases{};               // takes ink away
    bool isFoundOnly{};          // in the palette while the search finds it or it is chosen
    std::optional<OptionText> option{};
    const char *usage{QT_TRANSLATE_NOOP("Board::Tool", "drag on the page to draw")};
    void (*paintIcon)(QPainter &painter, const QColor &color){}; // for a tool that no sample can show
    ObjectEditor *(*edit)(CInkGraph &object, QWidget *parent){}; // for an object of which handles change a part only
    QSize tapSize{}; // pixels of a plain screen; of the box that a tap draws, where a tap draws one
    Snap snap{Snap::None};
    Use use{Use::Draws};
    const InkLesson::Tool *kind{}; // of object that it draws, of the same name; null for a tool that draws none

    bool scatters() const { return kind && kind->scatters; }
    bool tapsWithOnePoint() const { return kind && kind->tapsWithOnePoint; }
    bool takesDash() const { return kind && kind->takesDash; }
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
QString optionTitle(const OptionText &option);

} // namespace Board

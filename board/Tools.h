#pragma once

#include <QtCore/QPoint>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtGui/QColor>

#include <memory>
#include <vector>

class CInkGraph;

namespace Board {

// What the next object is drawn with. The width is in page pixels.
struct Ink
{
    QColor color{Qt::black};
    int width{4};
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
    bool iconWhileEdited{};      // the icon shows the object before it is let go
};

constexpr int kSampleSide = 32;

// In the order of the palette.
const std::vector<Tool> &tools();

// Null for a name that no tool has.
const Tool *findTool(const QString &name);

// The names of all tools, for messages: "pencil, line, ...".
QString toolNames();

// Translated.
QString toolTitle(const Tool &tool);

// Translated.
QString groupTitle(const Tool &tool);

// A fresh object of the tool, owned and drawn by the participant at this board.
std::unique_ptr<CInkGraph> createObject(const Tool &tool, const Ink &ink, const QSize &canvas);

} // namespace Board

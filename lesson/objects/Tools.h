#pragma once

#include "lesson/Export.h"

#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtGui/QColor>

#include <memory>
#include <optional>
#include <vector>

class CInkGraph;
class QImage;
class QPainter;

namespace InkLesson {

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
    int min;
    int max;
    int value; // the first
    void (*apply)(CInkGraph &object, int value);
};

// One row of the table of tools: what its objects are. Nothing else in a lesson knows one tool from another.
struct Tool
{
    const char *name; // in files, so it stays
    std::unique_ptr<CInkGraph> (*create)(const QSize &canvas);
    bool movesAsItGrows{};   // each point moves what has been painted already
    bool scatters{};         // its points are strewn around the pointer for as long as that is held
    bool tapsWithOnePoint{}; // a tap is a single point, finished: a second one in the same place would spoil it
    bool hasHandles{};       // also once it is reopened
    bool takesDash{};        // its outline is painted in the dash style of the ink
    bool takesText{};        // its image is rendered from a text
    bool rendersAsPainted{}; // its pixels depend on when it was painted while it was drawn
    bool floods{};           // its pixels depend on those below it
    bool paintsOnce{};       // no pixel twice in one Draw, and the same on every layer
    QSize (*rendersInto)(const CInkGraph &pen){}; // pixels of that size, which it keeps
    std::optional<InkOption> option{};
    std::optional<Life> (*lift)(CInkGraph &committed, const QSize &canvas){}; // what is then edited in its place
    void (*takePicture)(CInkGraph &object, const Life &life){};               // that is part of its life
    void (*takeBackground)(CInkGraph &object, const QImage &background){};    // of the page, before it is painted
    // Paints what a committed object that works on the layers' pixels shows on a page of this background.
    void (*paintFlat)(QPainter &painter, CInkGraph &object, const QImage &background){};
};

// All that draw something.
INKLESSON_EXPORT const std::vector<Tool> &tools();

// Null for a name that no tool has.
INKLESSON_EXPORT const Tool *findTool(const QString &name);

// Does nothing to an object that is always painted with solid lines.
INKLESSON_EXPORT void setDash(CInkGraph &object, Qt::PenStyle dash);

// Makes the participant at this board the object's owner and drawer: equal addresses show handles, others a shade.
INKLESSON_EXPORT void setDrawnHere(CInkGraph &object);

// Makes another author its drawer, so that it shows a shade while it is held.
INKLESSON_EXPORT void setDrawnElsewhere(CInkGraph &object, int author);

// A fresh object of the tool, owned and drawn by the participant at this board.
INKLESSON_EXPORT std::unique_ptr<CInkGraph> createObject(const Tool &tool, const Ink &ink, const QSize &canvas);

} // namespace InkLesson

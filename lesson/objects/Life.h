#pragma once

#include "lesson/objects/Tools.h"

#include <QtCore/QPoint>
#include <QtCore/QRect>
#include <QtGui/QImage>

#include <memory>
#include <variant>
#include <vector>

namespace InkLesson {

// What can be done to an object, in the pixels of the page.
struct PointerAct
{
    int code; // a PointerEvent
    QPoint pt;
};
struct FinishAct
{
};
struct ReopenAct // a committed object has its handles again
{
};
struct PaintAct // it was painted meanwhile, by which the pixels of some pens are rendered
{
};
struct ColorAct
{
    QColor color;
};
struct WidthAct
{
    int width;
};
struct DashAct
{
    Qt::PenStyle dash;
};
struct TextAct
{
    QString text;
    QImage image; // of the text; exactImage()
};
using Act = std::variant<PointerAct, FinishAct, ReopenAct, PaintAct, ColorAct, WidthAct, DashAct, TextAct>;

// Does it, and returns the area that the object reports.
INKLESSON_EXPORT QRect perform(const Act &act, CInkGraph &object);

// All that has been done to one object. The same life gives the same pixels each time it is lived.
struct Life
{
    QString tool; // a name in the table of tools, or kPictureTool
    Ink ink{};
    QSize canvas{};    // when the object was begun
    QImage picture{};  // of a placed picture, or the pixels of a filled area; exactImage()
    QPoint position{}; // its top left corner
    std::vector<Act> acts{};
};

constexpr std::size_t kMostActs = 1 << 22; // in one life: five hours of a fast pen
constexpr int kMostText = 1 << 20;         // letters

constexpr const char *kPictureTool = "picture";
constexpr const char *kAreaTool = "area"; // a fill, whose pixels were computed once

// In the format that a PNG file gives back bit for bit.
INKLESSON_EXPORT QImage exactImage(const QImage &image);

// As they are when they are read again: colours of eight bits, exact images, lines of a style that has a name. A text
// without an image has one that is not seen.
INKLESSON_EXPORT Life exactLife(Life life);
INKLESSON_EXPORT Act exactAct(Act act);

// Whether the object can have its handles again once it is committed.
INKLESSON_EXPORT bool canReopen(const Life &life);

// The dash style that the object has in the end.
INKLESSON_EXPORT Qt::PenStyle dashOf(const Life &life);

// Moves everything that was done.
INKLESSON_EXPORT void shift(Life &life, const QPoint &by);

// The object before anything was done to it. Null for a tool that there is not.
INKLESSON_EXPORT std::unique_ptr<CInkGraph> createObject(const Life &life);

// An object and the area that its last act reports.
struct LivedObject
{
    std::unique_ptr<CInkGraph> object{};
    QRect reach{};
    const Tool *tool{}; // null for a placed picture
    bool isPainted{};   // on its page, on top of all others
};

// The object after all that was done to it.
INKLESSON_EXPORT LivedObject live(const Life &life);

} // namespace InkLesson

#pragma once

#include "lesson/Export.h"
#include "lesson/log/StepId.h"
#include "lesson/objects/Life.h"
#include "lesson/paper/Paper.h"

#include <optional>
#include <variant>
#include <vector>

namespace InkLesson {

// What can be done to a lesson. Positions and sizes are page pixels. What names an object or a page that is not there,
// or not any more, has no effect.

struct Draw // an object of the record's name, on top of all others
{
    Life life;
};
struct Change // an object, which stays at its place in the order: first its style, then its place, then what was done
              // to it
{
    ObjectId object;
    std::optional<QColor> color{};
    std::optional<int> width{};
    std::optional<Qt::PenStyle> dash{};
    std::optional<int> option{};
    QPoint by{};
    std::vector<Act> acts{};
};
struct Replace // an object by another life, at the same place in the order
{
    ObjectId object;
    Life life; // without a picture that of the life before
};
struct Delete
{
    std::vector<ObjectId> objects;
};
struct Order // an object, so that it lies directly above another one, or below all of them
{
    ObjectId object;
    ObjectId above; // kNothing for the bottom
};
struct Clear // every object that was drawn on the page before
{
};
struct SetPaper
{
    Paper paper;
};
struct Grow // the page, which never shrinks; there is no way back
{
    QSize size;
};
struct AddPage // of the record's name
{
    int place; // in the order of the pages, from 0
    QSize size;
};
struct RemovePage // but the last one
{
};
struct MovePage
{
    int place;
};
struct Undo // a step of the same author; that of an undo does the step again
{
    StepId step;
};
using Deed =
    std::variant<Draw, Change, Replace, Delete, Order, Clear, SetPaper, Grow, AddPage, RemovePage, MovePage, Undo>;

// One entry of the log.
struct Record
{
    StepId id;     // each author's numbers rise
    int step{};    // the number of the first record of what the hand did at once; usually its own
    qint64 time{}; // of the author's clock, milliseconds since 1970; no order depends on it
    PageId page{}; // that it is about; of no meaning to Undo
    Deed deed;

    StepId stepId() const { return {id.author, step}; }
};

// `life` with the style, the place and the acts of the change.
INKLESSON_EXPORT Life changed(Life life, const Change &change);

} // namespace InkLesson

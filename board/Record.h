#pragma once

#include "lesson/objects/Life.h"
#include "lesson/paper/Paper.h"

#include <variant>

namespace Board {

using InkLesson::Act;
using InkLesson::ColorAct;
using InkLesson::DashAct;
using InkLesson::exactImage;
using InkLesson::FinishAct;
using InkLesson::kPictureTool;
using InkLesson::Life;
using InkLesson::LivedObject;
using InkLesson::Paper;
using InkLesson::PointerAct;
using InkLesson::ReopenAct;
using InkLesson::TextAct;
using InkLesson::WidthAct;

// What can be done to a page. Objects are numbered in the order in which they came.
struct DrawRecord // on top of all others
{
    int id;
    Life life;
    bool succeeds; // comes in the place of the object before, and goes with it
};
struct ReplaceRecord // at the same place in the order, but with another life
{
    int id;
    Life life;
};
struct DeleteRecord
{
    int id;
};
struct OrderRecord // so that `place` objects lie below it
{
    int id;
    int place;
};
struct ClearRecord
{
};
struct PaperRecord
{
    Paper paper;
};
struct SizeRecord // of the page, which has grown
{
    QSize size;
};
using Record = std::variant<DrawRecord, ReplaceRecord, DeleteRecord, OrderRecord, ClearRecord, PaperRecord, SizeRecord>;

} // namespace Board

#pragma once

#include "lesson/log/StepId.h"
#include "lesson/objects/Life.h"

#include "CInkGraph.h"

#include <memory>

namespace InkLesson {

// An object that an author is drawing or changing.
struct Hand
{
    int author;
    Life life; // all of it so far
    std::unique_ptr<CInkGraph> object;
    QRect asked{};      // what its last act asked to repaint
    ObjectId held{};    // of a committed object; kNothing while it is new
    const Tool *tool{}; // null for a placed picture
    QRect touched{};    // where it has been painted on the surface
    int background{};   // as that of an Item

    // It is still being drawn.
    bool isForming() const { return object->m_bEditMode == 0; }
};

} // namespace InkLesson

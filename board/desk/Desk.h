#pragma once

#include "board/desk/InHand.h"
#include "board/desk/LaserPen.h"
#include "board/desk/OtherTags.h"
#include "board/desk/Selection.h"
#include "board/person/NameTag.h"
#include "board/view/Navigator.h"

#include "lesson/objects/Scatter.h"

#include <functional>

namespace Board {

// What lies ready for whoever works on a page: the tool, its ink, what is in the hand, what is picked.
struct Desk
{
    // Both outlive the desk.
    Desk(Document &lesson, QWidget &canvas);

    const InkLesson::Page &page() const { return document.page(); }

    // What is seen of the page now.
    const View &view() { return navigator.view(page()); }

    // That of the next object, in pixels of the page.
    Ink pageInk() const;

    // How far around the pointer an object is met, and the uppermost that is met there; kNothing for none.
    int reach();
    InkLesson::ObjectId topmostAt(const QPoint &pt);

    // Who else holds the object that is met there, which is not to be taken then; 0 for nobody.
    int holderAt(const QPoint &pt);

    Document &document;
    Navigator navigator;
    InHand inHand;
    Selection selection;
    LaserPen laser;
    NameTag nameTag;
    OtherTags otherTags;
    std::function<void(int author)> heldElsewhere; // somebody wants to take what this author holds
    InkLesson::Scatter scatter;
    const Tool *tool;
    Ink ink; // the width in pixels of a plain screen
};

} // namespace Board

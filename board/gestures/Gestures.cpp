#include "board/gestures/Gestures.h"

#include "board/desk/Desk.h"
#include "board/gestures/Drawing.h"
#include "board/gestures/Panning.h"
#include "board/gestures/Picking.h"
#include "board/gestures/Pointing.h"
#include "board/gestures/Pouring.h"
#include "board/gestures/Removing.h"
#include "board/tools/Tools.h"

namespace Board {

namespace {

// The compiler says so where a use has no gesture.
std::unique_ptr<PointerGesture> gestureOf(Use use, Desk &desk)
{
    switch (use) {
    case Use::Draws:
        return std::make_unique<Drawing>(desk);
    case Use::Picks:
        return std::make_unique<Picking>(desk);
    case Use::Removes:
        return std::make_unique<Removing>(desk);
    case Use::Points:
        return std::make_unique<Pointing>(desk);
    case Use::Pours:
        return std::make_unique<Pouring>(desk);
    }
    return nullptr;
}

} // namespace

// An object in the hand takes the presses, whatever the tool: it is drawn on, changed, or let go.
std::unique_ptr<PointerGesture> nextGesture(Desk &desk)
{
    if (desk.navigator.isKeyHeld())
        return std::make_unique<Panning>(desk);
    return gestureOf(desk.inHand.author().hand() ? Use::Draws : desk.tool->use, desk);
}

} // namespace Board

#pragma once

#include <QtCore/QPoint>
#include <QtCore/QPointF>
#include <QtCore/Qt>

#include <optional>

namespace Board {

// Where a pointer is.
struct PointerSpot
{
    QPointF pos;  // in the widget
    QPoint pt;    // on the page
    bool snaps{}; // the Shift key is held
};

// What a pointer does from its press to its release. Each use of a tool is a class of its own, listed in Gestures.cpp;
// an object lives for one press.
class PointerGesture
{
public:
    PointerGesture() = default;
    virtual ~PointerGesture() = default;
    PointerGesture(const PointerGesture &) = delete;
    PointerGesture &operator=(const PointerGesture &) = delete;

    virtual void press(const PointerSpot &at) = 0;
    virtual void move(const PointerSpot & /*at*/) {}
    virtual void release(const PointerSpot & /*at*/) {}

    // The press was the second of two fast ones.
    virtual void pressTwice(const PointerSpot & /*at*/) {}

    // The pointer was the palm of a hand; no release follows.
    virtual void cancel() {}

    // Lets go what is being drawn, where the pointer is; moves and the release still follow.
    virtual void letGo() {}

    // Of the pointer meanwhile, where the gesture has one of its own.
    virtual std::optional<Qt::CursorShape> cursor() const { return {}; }
};

} // namespace Board

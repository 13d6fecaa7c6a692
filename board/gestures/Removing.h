#pragma once

#include "board/gestures/PointerGesture.h"

namespace Board {

struct Desk;

// Removes the objects that the pointer comes to. What one gesture removes is one step.
class Removing : public PointerGesture
{
public:
    explicit Removing(Desk &desk);

    void press(const PointerSpot &at) override;
    void move(const PointerSpot &at) override;

private:
    void removeAlong(const QPoint &from, const QPoint &to);

    Desk &m_desk;
    QPoint m_last;
    int m_step{}; // 0 before anything was removed
};

} // namespace Board

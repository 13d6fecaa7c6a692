#pragma once

#include "board/gestures/PointerGesture.h"

namespace Board {

struct Desk;

// Picks the object under the pointer. A tap picks, a drag moves too. What has handles then shows them.
class Picking : public PointerGesture
{
public:
    explicit Picking(Desk &desk);

    void press(const PointerSpot &at) override;
    void move(const PointerSpot &at) override;
    void release(const PointerSpot &at) override;
    void cancel() override;

private:
    Desk &m_desk;
    QPoint m_press;
};

} // namespace Board

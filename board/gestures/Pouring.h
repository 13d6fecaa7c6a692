#pragma once

#include "board/gestures/PointerGesture.h"

namespace Board {

struct Desk;

// Pours colour over the area that is pressed.
class Pouring : public PointerGesture
{
public:
    explicit Pouring(Desk &desk);

    void press(const PointerSpot &at) override;

private:
    Desk &m_desk;
};

} // namespace Board

#pragma once

#include "board/gestures/PointerGesture.h"

namespace Board {

struct Desk;

// Points at something with ink that disappears.
class Pointing : public PointerGesture
{
public:
    explicit Pointing(Desk &desk);

    void press(const PointerSpot &at) override;
    void move(const PointerSpot &at) override;
    void release(const PointerSpot &at) override;
    void cancel() override;

private:
    Desk &m_desk;
};

} // namespace Board

#pragma once

#include "board/gestures/PointerGesture.h"

namespace Board {

struct Desk;

// Moves what is seen of the page.
class Panning : public PointerGesture
{
public:
    explicit Panning(Desk &desk);

    void press(const PointerSpot &at) override;
    void move(const PointerSpot &at) override;
    std::optional<Qt::CursorShape> cursor() const override { return Qt::ClosedHandCursor; }

private:
    Desk &m_desk;
    QPointF m_last;
};

} // namespace Board

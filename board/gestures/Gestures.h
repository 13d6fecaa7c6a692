#pragma once

#include "board/gestures/PointerGesture.h"

#include <memory>

namespace Board {

struct Desk;

// What a press on the page begins now.
std::unique_ptr<PointerGesture> nextGesture(Desk &desk);

} // namespace Board

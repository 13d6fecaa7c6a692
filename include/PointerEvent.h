#pragma once

// Codes of the pointer events that a host feeds to AddPoint.
enum PointerEvent : int {
    PT_DOWN = 1,   // pressed
    PT_UP = 2,     // released
    PT_DBLCLK = 4, // double click
    PT_MOVE = 5,   // moved while pressed
};

#pragma once

// What an editing drag does to an object, or what lies under a hovering pointer.
// Values are part of the interface; lines report either endpoint as MT_TOP.
enum ModifyType : int {
    MT_NONE = 1,
    MT_LEFT_TOP = 2,
    MT_TOP = 3,
    MT_RIGHT_TOP = 4,
    MT_LEFT = 5,
    MT_RIGHT = 6,
    MT_LEFT_BOTTOM = 7,
    MT_BOTTOM = 8,
    MT_RIGHT_BOTTOM = 9,
    MT_MOVE = 10,
    MT_ROTATE = 11,
};

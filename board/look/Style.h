#pragma once

#include <QtCore/QString>
#include <QtGui/QColor>

namespace Board {

constexpr QRgb kTextColor = 0xFF27313D;
constexpr QRgb kAccentColor = 0xFF2563C9;
constexpr QRgb kAccentTextColor = 0xFFFFFFFF;
constexpr QRgb kSurroundColor = 0xFFC6CDD7; // around a page that is smaller than the window

constexpr int kBarHeight = 64; // of the bar above the page; fixed, whatever the font

// The style sheet of the window.
QString windowStyle();

} // namespace Board

#pragma once

// Premultiplied pixels laid over each other, to the last bit as Qt does it.

#include <QtGui/QRgb>

namespace InkInternal {

constexpr uint kFullCoverage = 255; // of a pixel that is covered as a whole

// Two channels, each divided by 255 and rounded as Qt rounds it.
inline QRgb dividedBy255(QRgb channels)
{
    constexpr QRgb kEvenChannels = 0x00ff00ff;
    constexpr QRgb kHalf = 0x00800080;
    return (channels + (channels >> 8 & kEvenChannels) + kHalf) >> 8 & kEvenChannels;
}

// Each channel of `x` times `a` / 255 and of `y` times `b` / 255.
inline QRgb mixed(QRgb x, uint a, QRgb y, uint b)
{
    constexpr QRgb kEvenChannels = 0x00ff00ff;
    return dividedBy255((x & kEvenChannels) * a + (y & kEvenChannels) * b) |
           dividedBy255((x >> 8 & kEvenChannels) * a + (y >> 8 & kEvenChannels) * b) << 8;
}

inline QRgb scaled(QRgb pixel, uint a)
{
    return mixed(pixel, a, 0, 0);
}

// `ink` over `pixel`.
inline QRgb laidOver(QRgb ink, QRgb pixel)
{
    return ink + scaled(pixel, kFullCoverage - uint(qAlpha(ink)));
}

} // namespace InkInternal

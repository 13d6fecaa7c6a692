#pragma once

// Premultiplied pixels laid over each other, to the last bit as Qt does it.

#include <QtGui/QRgb>

#include <cstring>

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

// The channels of two pixels as one value, which processors multiply at once.
using TwoPixels = quint16 __attribute__((vector_size(16)));

inline TwoPixels twoPixels(const QRgb *pixels)
{
    using Bytes = uchar __attribute__((vector_size(8)));
    Bytes bytes;
    std::memcpy(&bytes, pixels, sizeof bytes);
    return __builtin_convertvector(bytes, TwoPixels);
}

inline void store(QRgb *to, TwoPixels pixels)
{
    using Bytes = uchar __attribute__((vector_size(8)));
    const Bytes bytes = __builtin_convertvector(pixels, Bytes);
    std::memcpy(to, &bytes, sizeof bytes);
}

inline TwoPixels scaled(TwoPixels pixels, TwoPixels parts)
{
    constexpr quint16 kHalf = 0x80;
    const TwoPixels product = pixels * parts;
    return (product + (product >> 8) + kHalf) >> 8;
}

// `ink` over each pixel of a row, as much as that is covered.
inline void layOver(QRgb *row, const uchar *coverage, int count, QRgb ink)
{
    const QRgb inks[] = {ink, ink};
    const TwoPixels whole = twoPixels(inks), wholeAlpha = TwoPixels{} + quint16(qAlpha(ink));
    int x = 0;
    for (; x + 1 < count; x += 2) {
        const quint16 a = coverage[x], b = coverage[x + 1];
        if ((a | b) == 0)
            continue;
        const bool areWhole = (a & b) == kFullCoverage;
        const TwoPixels parts{a, a, a, a, b, b, b, b};
        const TwoPixels above = areWhole ? whole : scaled(whole, parts);
        const TwoPixels alpha = areWhole ? wholeAlpha : scaled(wholeAlpha, parts);
        store(row + x, above + scaled(twoPixels(row + x), quint16(kFullCoverage) - alpha));
    }
    if (x < count)
        row[x] = laidOver(scaled(ink, coverage[x]), row[x]);
}

} // namespace InkInternal

#pragma once

#include <QtCore/QSize>

namespace InkInternal {

// Far above any canvas. Some kilobytes of a picture, or a host's slip, can ask for more.
constexpr qint64 kMaxImagePixels = 256'000'000;

inline bool fitsIntoMemory(const QSize &size)
{
    return qint64(size.width()) * size.height() <= kMaxImagePixels;
}

} // namespace InkInternal

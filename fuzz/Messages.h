#pragma once

#include <QtCore/QByteArray>

#include <cstdint>
#include <vector>

namespace Fuzz {

// A part of an input: a number from 0 to 255, and bytes.
struct Part
{
    int number;
    QByteArray bytes;
};

// An input as parts: each is a number, the length of its bytes as two bytes, the lower first, and these.
std::vector<Part> partsOf(const std::uint8_t *data, std::size_t size);

} // namespace Fuzz

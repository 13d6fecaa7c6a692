#include "Messages.h"

#include <algorithm>

namespace Fuzz {

std::vector<Part> partsOf(const std::uint8_t *data, std::size_t size)
{
    constexpr std::size_t kHead = 3;
    std::vector<Part> parts;
    while (size >= kHead) {
        const std::size_t length = std::min(size - kHead, std::size_t(data[1]) + 256U * data[2]);
        parts.push_back({data[0], QByteArray(reinterpret_cast<const char *>(data + kHead), int(length))});
        data += kHead + length;
        size -= kHead + length;
    }
    return parts;
}

} // namespace Fuzz

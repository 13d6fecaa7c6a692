#pragma once

#include <cstddef>
#include <cstdint>

namespace Fuzz {

// Runs one input. Whatever is wrong ends the program.
void run(const std::uint8_t *data, std::size_t size);

} // namespace Fuzz

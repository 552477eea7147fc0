#pragma once

#include <cstdint>
#include <functional>

namespace tuning {

// Value of `bytes` bytes (1 to 4, most significant first) at an address of the image held. What lies beyond a short
// image reads as erased, 255 in each byte.
using CellReader = std::function<std::uint32_t(int address, int bytes)>;

}  // namespace tuning

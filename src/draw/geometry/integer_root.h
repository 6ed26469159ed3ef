// Square roots of whole numbers, the same on every machine.
#pragma once

#include <cstdint>

namespace lacquer {

/// The square root, rounded down.
uint32_t FloorRoot(uint64_t square);

/// The square root, off by less than 1/40,000 of it, or 1.
uint32_t RoughRoot(uint64_t square);

}  // namespace lacquer

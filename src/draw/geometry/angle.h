// Angles in whole numbers, the same on every machine.
#pragma once

#include <cstdint>

namespace lacquer {

inline constexpr int kAngleBits = 30;                ///< angles are in 2^-30 radians
inline constexpr int64_t kQuarterTurn = 1686629713;  ///< pi / 2

/// The angle of the point (x, y) from the x axis. 0 <= x, y < 2^32, not both 0. Off by a few 2^-30.
int64_t AngleOf(int64_t x, int64_t y);

}  // namespace lacquer

// Angles in whole numbers, the same on every machine.
#pragma once

#include <cstdint>

namespace lacquer {

inline constexpr int kAngleBits = 30;                ///< angles are in 2^-30 radians
inline constexpr int64_t kQuarterTurn = 1686629713;  ///< pi / 2

/// The angle of the point (x, y) from the x axis. 0 <= x, y < 2^32, not both 0. Off by a few 2^-30.
inline int64_t AngleOf(int64_t x, int64_t y) {
    if (y > x) return kQuarterTurn - AngleOf(y, x);
    // Beyond an eighth of the quarter's tangent the angle is taken from the diagonal: the series converges faster.
    const bool isSteep = y * 5 > x * 2;
    const int64_t rise = isSteep ? x - y : y, run = isSteep ? x + y : x;
    const int64_t t = (rise << kAngleBits) / run;
    const int64_t t2 = t * t >> kAngleBits;
    int64_t sum = 0;
    for (int k = 19; k >= 3; k -= 2) {
        const int64_t term = (int64_t{1} << kAngleBits) / k;
        sum = (term - sum) * t2 >> kAngleBits;
    }
    const int64_t angle = t - (t * sum >> kAngleBits);
    return isSteep ? kQuarterTurn / 2 - angle : angle;
}

}  // namespace lacquer

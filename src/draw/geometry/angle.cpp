// Angles by the arc tangent's series.

#include "draw/geometry/angle.h"

namespace lacquer {

int64_t AngleOf(int64_t x, int64_t y) {
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

// Angles by the arc tangent's series.

#include "draw/geometry/angle.h"

namespace lacquer {
namespace {

constexpr int64_t Inverse(int k) { return (int64_t{1} << kAngleBits) / k; }
constexpr int64_t kTerms[] = {Inverse(19), Inverse(17), Inverse(15), Inverse(13), Inverse(11),
                              Inverse(9),  Inverse(7),  Inverse(5),  Inverse(3)};

}  // namespace

int64_t AngleOf(int64_t x, int64_t y) {
    if (y > x) return kQuarterTurn - AngleOf(y, x);
    // Beyond an eighth of the quarter's tangent the angle is taken from the diagonal: the series converges faster.
    const bool isSteep = y * 5 > x * 2;
    const int64_t rise = isSteep ? x - y : y, run = isSteep ? x + y : x;
    const int64_t t = (rise << kAngleBits) / run;
    const int64_t t2 = t * t >> kAngleBits;
    int64_t sum = 0;
    for (const int64_t term : kTerms) sum = (term - sum) * t2 >> kAngleBits;
    const int64_t angle = t - (t * sum >> kAngleBits);
    return isSteep ? kQuarterTurn / 2 - angle : angle;
}

}  // namespace lacquer

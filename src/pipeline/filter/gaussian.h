// The sums of the Gaussian blur, in single precision.
#pragma once

#include <lacquer/lacquer.h>

#include <cstddef>

namespace lacquer {

inline constexpr int kGaussianReach = 3, kGaussianTaps = 2 * kGaussianReach + 1;

/// By tap, from the first pixel before to the last one after.
inline constexpr float kGaussianWeights[kGaussianTaps] = {0.11535f, 0.14147f, 0.1599f, 0.16656f,
                                                          0.1599f,  0.14147f, 0.11535f};

/// The channels of whole pixels as floats. `count`: of the bytes.
void WidenBytes(float *floats, const BYTE *bytes, ptrdiff_t count);

/// Each byte is the sum of its seven weighted taps, added in their order and truncated. The weights add up to less than
/// 1, so no sum leaves the bytes' range. `count`: of the bytes, which belong to whole pixels.
void SumTaps(BYTE *out, const float *const taps[kGaussianTaps], ptrdiff_t count);

}  // namespace lacquer

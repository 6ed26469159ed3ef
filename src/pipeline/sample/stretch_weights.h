// The cubic weights of the bicubic sampler, and the process-wide setting that decides which cubic they come from.
#pragma once

#include <lacquer/lacquer.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace lacquer {

/// How a weight w is stored: Q8 as w × 256; Q14 as the 16-bit word of w × 16384 in both halves of the entry.
enum class WeightForm { Q8, Q14 };

/// Entry i is the weight at the distance i / 256 pixels, for distances below 2. Entry 512 is 0; the sampler reads it at
/// every whole position.
using StretchWeightTable = std::array<int32_t, 513>;

/// The table of a mode. 1: cubic B-spline; any other: cubic convolution with a = −1 (0 evaluates it in another order).
StretchWeightTable BuildStretchWeightTable(DWORD mode, WeightForm form);

/// The table that the bicubic sampler reads now. The table of mode 1 from load on.
const StretchWeightTable &CurrentStretchWeights(WeightForm form);

/// Makes `mode` the current one and rebuilds both forms in place; no draw may be running. Result: false, and nothing
/// done, when it is the current mode already.
bool RebuildStretchWeights(DWORD mode);

/// The current mode; 1 at load.
DWORD StretchWeightsMode();

/// Entry v + 256 is v clamped to 0..255, for v from −256 to 511.
using ByteClampTable = std::array<BYTE, 768>;
const ByteClampTable &ByteClamps();

}  // namespace lacquer

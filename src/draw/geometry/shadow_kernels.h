// The sums that make up a blurred shape. The base forms are the definition; a faster tier gives the same bits.
#pragma once

#include <lacquer/lacquer.h>

#include <cstdint>

#include "pipeline/table/cpu_features.h"

namespace lacquer {

/// A share of a pixel that lies in shadow is a sum of products; kFullShadow is all of it.
inline constexpr int32_t kFullShadow = 1 << 28;

/// Lines of transitions are so many pixels long.
inline constexpr int kLinePixels = 64;

/// A share as a cover of 0..255, of which only `part` of 255 counts.
constexpr BYTE CoverOfShare(int32_t share, int part) {
    const int32_t rounded = (share + (1 << 11)) >> 12;
    const int32_t bounded = rounded < 0 ? 0 : rounded > 65536 ? 65536 : rounded;
    return static_cast<BYTE>((bounded * part + 32768) >> 16);
}

struct ShadowKernels {
    /// Adds weight × line for each of `count` lines, which follow each other in memory, to the sums `from`..`to`. Other
    /// sums of the row, kLinePixels of them, may change as well.
    void (*addLines)(int32_t *sums, const int16_t *lines, const int16_t *weights, int count, int from, int to);

    /// The covers of some sums.
    void (*cover)(const int32_t *sums, int count, BYTE *out);
};

/// The kernels for a processor. Depends on nothing else.
ShadowKernels BuildShadowKernels(const CpuFeatures &features);

/// The kernels for this processor.
const ShadowKernels &ShadowKernelsInUse();

}  // namespace lacquer

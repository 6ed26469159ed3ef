// The sums that make up a blurred shape, and the covers that they stand for.
#pragma once

#include <lacquer/lacquer.h>

#include <cstdint>

namespace lacquer {

/// A share of a pixel that lies in shadow is a sum of products; kFullShadow is all of it.
inline constexpr int32_t kFullShadow = 1 << 28;

/// Lines of transitions are so many pixels long.
inline constexpr int kLinePixels = 128;

/// A share as a cover of 0..255, of which only `part` of 255 counts.
constexpr BYTE CoverOfShare(int32_t share, int part) {
    const int32_t rounded = (share + (1 << 11)) >> 12;
    const int32_t bounded = rounded < 0 ? 0 : rounded > 65536 ? 65536 : rounded;
    return static_cast<BYTE>((bounded * part + 32768) >> 16);
}

/// Adds weight × line for each of `count` lines, which follow each other in memory, to the sums `from`..`to`. Other
/// sums of the row, kLinePixels of them, may change as well.
void AddLines(int32_t *sums, const int16_t *lines, const int16_t *weights, int count, int from, int to);

/// The covers of some shares, or of what they leave.
void CoverShares(const int32_t *shares, int count, bool ofRest, BYTE *out);

}  // namespace lacquer

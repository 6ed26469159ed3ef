// The shadows' sums in the SSE2 tier.
#pragma once

#include <lacquer/lacquer.h>

#include <cstdint>

namespace lacquer::sse2 {

/// As the base tier's.
void AddLines(int32_t *sums, const int16_t *lines, const int16_t *weights, int count, int from, int to);
void CoverShares(const int32_t *shares, int count, bool ofRest, BYTE *out);

}  // namespace lacquer::sse2

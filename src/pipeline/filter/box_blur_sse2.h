// The box blur of the SSE2 tier.
#pragma once

#include <lacquer/lacquer.h>

namespace lacquer::sse2 {

/// As the base tier's.
void BlurBoxes(const SurfaceView &dest, const SurfaceView &source);

}  // namespace lacquer::sse2

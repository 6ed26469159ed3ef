// The turns of the SSE2 tier.
#pragma once

#include "pipeline/transform/turn.h"

namespace lacquer::sse2 {

/// As the base tier's.
void TurnBytes(const SurfaceView &dest, const PixelWalk &walk);
void TurnWords(const SurfaceView &dest, const PixelWalk &walk);

}  // namespace lacquer::sse2

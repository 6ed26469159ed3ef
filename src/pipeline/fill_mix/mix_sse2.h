// The cross-fades and mixes of the faster tiers; the contracts are those of mix.h.
#pragma once

#include <lacquer/lacquer.h>

namespace lacquer {

int VectorBlendSame(const SurfaceView *dest, const SurfaceView *source, BYTE alpha);
int VectorBlendStretch(const SurfaceView *dest, const SurfaceView *source, BYTE alpha);
int VectorMixSame(const SurfaceView *dest, const SurfaceView *source, BYTE weight);
int VectorMixStretch(const SurfaceView *dest, const SurfaceView *source, BYTE weight);

}  // namespace lacquer

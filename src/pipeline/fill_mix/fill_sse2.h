// The fills of the faster tiers; the contracts are those of fill.h. Sums stop at 255 per channel.
#pragma once

#include <lacquer/lacquer.h>

namespace lacquer {

int VectorFillCopy(const SurfaceView *dest, DWORD colour);
int VectorFillOver(const SurfaceView *dest, DWORD colour);
int VectorFillBehind(const SurfaceView *dest, DWORD colour);
int VectorFillModulate(const SurfaceView *dest, DWORD colour);
int VectorFillOr(const SurfaceView *dest, DWORD colour);
int VectorMixColor(const SurfaceView *dest, DWORD colour, BYTE weight);

/// VectorFillCopy, with the processor's string store for long runs.
int StringFillCopy(const SurfaceView *dest, DWORD colour);

}  // namespace lacquer

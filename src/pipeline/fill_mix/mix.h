// The single-slot kernels that convert, cross-fade or mix two 32-bit views, base tier. The contracts are
// ConvertKernel's and MixKernel's in kernel_table.h; stretching takes nearest samples.
#pragma once

#include <lacquer/lacquer.h>

namespace lacquer {

/// Copies with alpha 255. Both arguments may be the same view.
int ForceOpaque(const SurfaceView *dest, const SurfaceView *source);
int StretchOpaque(const SurfaceView *dest, const SurfaceView *source);

/// Cross-fades as if the source were opaque. `alpha`: 0 keeps the destination's colours, 255 is all source.
int BlendSame(const SurfaceView *dest, const SurfaceView *source, BYTE alpha);
int BlendStretch(const SurfaceView *dest, const SurfaceView *source, BYTE alpha);

/// Mixes all four channels. `weight`: 0 does nothing, 255 copies the source.
int MixSame(const SurfaceView *dest, const SurfaceView *source, BYTE weight);
int MixStretch(const SurfaceView *dest, const SurfaceView *source, BYTE weight);

}  // namespace lacquer

// A soft white halo in the shape of a surface's alpha.
#pragma once

#include <lacquer/lacquer.h>

namespace lacquer {

/// Replaces the pixels of `object` by the halo of their alpha, opaque white blurred three times over. `scratch`: 32
/// bits per pixel and of the same size. Nothing happens when the object has another depth.
void Glow(const SurfaceView &object, const SurfaceView &scratch);

}  // namespace lacquer

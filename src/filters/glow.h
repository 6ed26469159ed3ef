// A soft white halo in the shape of a surface's alpha.
#pragma once

#include "core/pixel_surface.h"

namespace lacquer {

/// Replaces the pixels of a rectangle of `object` (null: everything) by the halo of their alpha, opaque white blurred
/// three times over. `scratch`: 32 bits per pixel and of the rectangle's size. Nothing happens when the object has
/// another depth, or one of the two can't be locked.
void Glow(PixelSurface &object, const RECT *rect, PixelSurface &scratch);

}  // namespace lacquer

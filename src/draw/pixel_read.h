// One pixel of a surface as a colour word.
#pragma once

#include "core/pixel_surface.h"

namespace lacquer {

/// Reads the pixel at (x, y): 32-bit as stored, 24-bit opaque, 8-bit through the palette (0 beyond its end). `colour`
/// is left as it was for other depths. Result: false outside the surface.
bool ReadPixel(PixelSurface &surface, LONG x, LONG y, DWORD *colour);

}  // namespace lacquer

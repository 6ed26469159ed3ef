// One pixel of a surface as a colour word.
#pragma once

#include "core/pixel_surface.h"

namespace lacquer {

/// Reads the pixel at (x, y): 32-bit as stored, 24-bit opaque, 8-bit through the palette (0 beyond its end). Result:
/// false, with nothing written, outside the surface and for other depths.
bool ReadPixel(PixelSurface &surface, LONG x, LONG y, DWORD *colour);

}  // namespace lacquer

// The mean of each pixel's neighbourhood of 3 x 3 pixels.
#pragma once

#include "core/pixel_surface.h"

namespace lacquer {

/// Writes the blurred source into the common part of the two views; neighbours outside the source are its nearest edge
/// pixels. Each of the four channels is floor(sum / 9). Nothing happens unless both views have 32 bits per pixel. The
/// views must not overlap: what they hold afterwards is then not determined.
void BoxBlur(const SurfaceView &dest, const SurfaceView &source);

/// The same with rectangles of surfaces (null: everything). Nothing happens when one can't be locked.
void BoxBlur(PixelSurface &dest, const RECT *destRect, PixelSurface &source, const RECT *sourceRect);

}  // namespace lacquer

// The mean of each pixel's neighbourhood of 3 x 3 pixels.
#pragma once

#include <lacquer/lacquer.h>

namespace lacquer {

/// Writes the blurred source into the common part of the two views; neighbours outside the source are its nearest edge
/// pixels. Each of the four channels is floor(sum / 9). Nothing happens unless both views have 32 bits per pixel. The
/// views must not overlap: what they hold afterwards is then not determined.
void BoxBlur(const SurfaceView &dest, const SurfaceView &source);

}  // namespace lacquer

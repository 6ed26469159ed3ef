// Reading, writing and filling locked pixels, one at a time and without the library's kernels.
#pragma once

#include <lacquer/lacquer.h>

#include <cstdint>
#include <vector>

namespace lacquer {

/// A well-mixed number for each (seed, index).
uint32_t Noise(uint32_t seed, uint32_t index);

/// A premultiplied word for each (seed, index); transparent and opaque ones come up often.
uint32_t PremultipliedNoise(uint32_t seed, uint32_t index);

/// A pixel as stored: an index, 0xRRGGBB or 0xAARRGGBB. Any depth of 8 to 64 bits that is whole bytes; more than 32 are
/// cut off or zero.
uint32_t PixelAt(const SurfaceView &view, LONG x, LONG y);
void PutPixel(const SurfaceView &view, LONG x, LONG y, uint32_t value);

/// The word that a pixel of 8, 24 or 32 bits stands for when it is drawn.
uint32_t ColourAt(const SurfaceView &view, LONG x, LONG y);

/// All pixels as stored, row by row, and all as drawn.
std::vector<uint32_t> PixelsOf(const SurfaceView &view);
std::vector<uint32_t> ColoursOf(const SurfaceView &view);

/// The view's pixels become PremultipliedNoise (32 bits) or Noise (other depths).
void FillWithNoise(const SurfaceView &view, uint32_t seed);

/// Every pixel becomes `value`.
void FillWith(const SurfaceView &view, uint32_t value);

/// The view's palette becomes PremultipliedNoise.
void FillPaletteWithNoise(const SurfaceView &view, uint32_t seed);

}  // namespace lacquer

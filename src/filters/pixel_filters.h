// Filters of single pixels, in place: of all pixels of a surface, or of a rectangle (null: everything). Each leaves the
// depths that it does not name as they are. Result: false when the pixels can't be locked.
#pragma once

#include "core/pixel_surface.h"

namespace lacquer {

/// Blue, green and red become (B + 2 G + R) / 4, truncated; alpha stays. 32 and 24 bits; 8 bits: each palette entry.
bool MakeGrey(PixelSurface &surface);

/// Premultiplies: colour channels become c * (A + 1) / 256, truncated. 32 bits; 8 bits: each palette entry.
bool Premultiply(PixelSurface &surface);

/// Replaces the colour `find` by `put`: whole words with 32 bits and in the palettes of 8 bits, the low three bytes
/// with 24 bits.
bool ReplaceColour(PixelSurface &surface, DWORD find, DWORD put);

/// Colour channels become A - c modulo 256. Walks four-byte pixels whatever the depth, up to the last whole one of a
/// row. Result: true also without pixels.
bool InvertAgainstAlpha(PixelSurface &surface);

/// Code 6: alpha becomes the largest colour channel; code 1: the colour channels become alpha; others do nothing. 32
/// bits.
bool Shuffle(PixelSurface &surface, const RECT *rect, DWORD code);

}  // namespace lacquer

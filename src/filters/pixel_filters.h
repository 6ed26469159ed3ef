// Filters of single pixels, in place.
#pragma once

#include <lacquer/lacquer.h>

namespace lacquer {

/// Blue, green and red become (B + 2 G + R) / 4, truncated; alpha stays. 8-bit views: of each palette entry.
void MakeGrey(const SurfaceView &view);

/// Premultiplies: colour channels become c * (A + 1) / 256, truncated. 32-bit views, and the palettes of 8-bit ones.
void Premultiply(const SurfaceView &view);

/// Replaces the colour `find` by `put`: whole words of 32-bit views and of the palettes of 8-bit ones, the low three
/// bytes in 24-bit views.
void ReplaceColour(const SurfaceView &view, DWORD find, DWORD put);

/// Colour channels become A - c modulo 256. Walks four-byte pixels whatever the depth, up to the last whole one of a
/// row.
void InvertAgainstAlpha(const SurfaceView &view);

/// Code 6: alpha becomes the largest colour channel; code 1: the colour channels become alpha; others do nothing.
/// 32-bit views only.
void Shuffle(const SurfaceView &view, DWORD code);

}  // namespace lacquer

// The exported functions that bitmaps and textures have in common, on the surface that a handle named; null for a
// refused one.
#pragma once

#include <lacquer/lacquer.h>

#include "core/pixel_surface.h"

namespace lacquer {

int LockBits(PixelSurface *surface, SurfaceView *out, const RECT *rect);
int LockBitsEx(PixelSurface *surface, SurfaceView *out, const RECT *rect);
int UnlockBits(PixelSurface *surface);
int GetFilter(const PixelSurface *surface, DWORD *out);
int SetFilter(PixelSurface *surface, DWORD filter);
int GetBitsPixel(const PixelSurface *surface, BYTE *out);

/// The transform codes of the Rotate... and Flip... functions.
constexpr bool IsRotation(int code) { return code >= LACQUER_ROTATE_90 && code <= LACQUER_ROTATE_270; }
constexpr bool IsFlip(DWORD code) { return code == LACQUER_FLIP_VERTICAL || code == LACQUER_FLIP_HORIZONTAL; }

}  // namespace lacquer

// Copying, resampling and transforming whole surfaces: what bitmaps and textures have in common.
#pragma once

#include <memory>

#include "core/pixel_surface.h"

namespace lacquer {

/// Copies the source rectangle's pixels, filter word and palette to the destination rectangle (null: everything). Equal
/// depths and palette counts are copied row by row; otherwise a 32-bit destination receives converted pixels and
/// another nothing. What does not fit into the destination rectangle is left out. Nothing happens when a rectangle
/// can't be locked.
void CopySurface(PixelSurface &dest, const RECT *destRect, PixelSurface &source, const RECT *sourceRect);

/// A new 32-bit surface with the source resampled (`kernelMode`: LACQUER_NEAREST ... LACQUER_AREA) and its
/// filter word, or null. Without pixels to read it stays unfilled.
std::unique_ptr<PixelSurface> ResizedSurface(PixelSurface &source, DWORD width, DWORD height, DWORD kernelMode,
                                             SurfaceKind kind);

/// A new surface of the source's depth, palette and filter word, its pixels moved by `code`, LACQUER_ROTATE_90 ...
/// LACQUER_TRANSVERSE. Result: null for other codes and on failure.
std::unique_ptr<PixelSurface> TransformedSurface(PixelSurface &source, DWORD code, SurfaceKind kind);

}  // namespace lacquer

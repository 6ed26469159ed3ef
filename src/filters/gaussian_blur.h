// A blur with seven bell-shaped weights in each direction, applied twice.
#pragma once

#include "core/canvas.h"
#include "core/pixel_surface.h"

namespace lacquer {

/// Blurs the target in place; the scratch ends as an intermediate of no further use. Neighbours outside the view are
/// its nearest edge pixels; the four channels are independent. Nothing happens unless both views have 32 bits per pixel
/// and the same size. The views must not overlap: what they hold afterwards is then not determined.
void GaussianBlur(const SurfaceView &target, const SurfaceView &scratch);

/// The same with surfaces, and with logical rectangles of canvases (null: everything). Nothing happens when one can't
/// be locked.
void GaussianBlur(PixelSurface &target, PixelSurface &scratch);
void GaussianBlur(Canvas &target, const RECT *targetRect, Canvas &scratch, const RECT *scratchRect);

}  // namespace lacquer

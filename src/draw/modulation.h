// A colour painted through a coverage mask.
#pragma once

#include "core/canvas.h"
#include "core/pixel_surface.h"

namespace lacquer {

/// Paints `colour` (0xAARRGGBB) through a rectangle of the mask (null: all of it) with its top-left corner at the
/// logical place (x, y), inside the canvas's clip. With an opaque colour the mask's blue, green and red are the
/// coverages of their channels, which suits sub-pixel text; with a translucent one, premultiplied, the mask's four
/// bytes scale the colour's four channels and the result is drawn over the canvas.
void DrawThroughMask(Canvas &canvas, int x, int y, PixelSurface &mask, const RECT *source, DWORD colour);

}  // namespace lacquer

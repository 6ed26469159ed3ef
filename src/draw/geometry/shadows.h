// Drawing the shadows of a rectangle.
#pragma once

#include "core/canvas.h"
#include "draw/geometry/rounded_rect.h"
#include "draw/geometry/shadow_painter.h"

namespace lacquer {

/// Lengths in units.
struct Shadow {
    DWORD colour;  ///< straight
    int64_t offsetX, offsetY;
    int64_t blur, spread;
    ShadowPlace place;
};

/// Draws one shadow of a rectangle, whose radii fit, in logical coordinates.
void DrawShadow(Canvas &canvas, const RoundedRect &rect, const Shadow &shadow);

}  // namespace lacquer

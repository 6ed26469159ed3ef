// The dashed border that shows where the keyboard's input goes.
#pragma once

#include <cstdint>

#include "core/canvas.h"
#include "draw/geometry/rounded_rect.h"

namespace lacquer {

/// Lengths in units.
struct RingStyle {
    DWORD colour;  ///< straight
    int64_t width, dash, gap;
};

/// Draws the ring inside a shape's edge. The shape's radii are equal and fit; its coordinates are logical.
void DrawFocusRing(Canvas &canvas, const RoundedRect &shape, RingStyle style);

}  // namespace lacquer

// Drawing rounded rectangles with a border.
#pragma once

#include "core/canvas.h"
#include "draw/geometry/painted_parts.h"
#include "draw/geometry/rounded_rect.h"

namespace lacquer {

/// Draws a shape, whose radii fit, in logical coordinates. The border lies inside its edge, `borderWidth` units wide.
void DrawRoundedRect(Canvas &canvas, RoundedRect shape, int64_t borderWidth, const Paint &paint);

}  // namespace lacquer

// The pixels that a shape may change.
#pragma once

#include "core/canvas.h"
#include "core/geometry.h"
#include "draw/geometry/units.h"

namespace lacquer {

/// The part of a rectangle of logical pixels that lies inside a canvas's clip box. Result: false when there is none.
inline bool FindVisiblePart(const Canvas &canvas, int64_t left, int64_t top, int64_t right, int64_t bottom, RECT *out) {
    const RECT bounds{ClampToLong(left), ClampToLong(top), ClampToLong(right), ClampToLong(bottom)};
    const RECT clipBox = canvas.ClipBox();
    return IntersectRect(out, &bounds, &clipBox) != 0;
}

}  // namespace lacquer

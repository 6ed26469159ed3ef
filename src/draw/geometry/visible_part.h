// The pixels that a shape may change.
#pragma once

#include <optional>

#include "core/canvas.h"
#include "core/geometry.h"
#include "core/locked.h"
#include "draw/geometry/units.h"

namespace lacquer {

/// The part of a rectangle of logical pixels that lies inside a canvas's clip box, locked.
class VisiblePart {
public:
    VisiblePart(Canvas &canvas, int64_t left, int64_t top, int64_t right, int64_t bottom) {
        const RECT bounds{ClampToLong(left), ClampToLong(top), ClampToLong(right), ClampToLong(bottom)};
        if (canvas.FindVisible(bounds, &rect_)) locked_.emplace(canvas, &rect_);
    }

    /// Null when there is no such part, when it can't be locked, and for pixels of other depths than 32 bits.
    const SurfaceView *View() const {
        const SurfaceView *view = locked_ ? locked_->View() : nullptr;
        return view && view->bitsPerPixel == 32 ? view : nullptr;
    }

    const RECT &Rect() const { return rect_; }

private:
    RECT rect_{};
    std::optional<LockedCanvas> locked_;
};

}  // namespace lacquer

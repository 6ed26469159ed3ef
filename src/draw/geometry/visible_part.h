// The pixels that a shape may change.
#pragma once

#include "core/canvas.h"
#include "core/geometry.h"
#include "draw/geometry/units.h"

namespace lacquer {

/// The part of a rectangle of logical pixels that lies inside a canvas's clip box, locked.
class VisiblePart {
public:
    VisiblePart(Canvas &canvas, int64_t left, int64_t top, int64_t right, int64_t bottom) : canvas_(canvas) {
        const RECT bounds{ClampToLong(left), ClampToLong(top), ClampToLong(right), ClampToLong(bottom)};
        isLocked_ = canvas.FindVisible(bounds, &rect_) && canvas.Lock(&view_, &rect_);
    }
    ~VisiblePart() {
        if (isLocked_) canvas_.Unlock();
    }
    VisiblePart(const VisiblePart &) = delete;
    VisiblePart &operator=(const VisiblePart &) = delete;

    /// Null when there is no such part, when it can't be locked, and for pixels of other depths than 32 bits.
    const SurfaceView *View() const { return isLocked_ && view_.bitsPerPixel == 32 ? &view_ : nullptr; }

    const RECT &Rect() const { return rect_; }

private:
    Canvas &canvas_;
    RECT rect_{};
    SurfaceView view_{};
    bool isLocked_;
};

}  // namespace lacquer

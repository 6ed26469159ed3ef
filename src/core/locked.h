// Locks that end with the scope they are taken in.
#pragma once

#include "core/canvas.h"
#include "core/pixel_surface.h"

namespace lacquer {

/// A locked logical rectangle of a canvas (null: the whole surface), for reading or writing.
class LockedCanvas {
public:
    LockedCanvas(Canvas &canvas, const RECT *rect) : canvas_(canvas), locked_(canvas.Lock(&view_, rect)) {}
    ~LockedCanvas() {
        if (locked_) canvas_.Unlock();
    }
    LockedCanvas(const LockedCanvas &) = delete;
    LockedCanvas &operator=(const LockedCanvas &) = delete;

    /// Null when the lock failed.
    const SurfaceView *View() const { return locked_ ? &view_ : nullptr; }

private:
    Canvas &canvas_;
    SurfaceView view_{};
    bool locked_;
};

/// A locked rectangle of a surface (null: everything), with its palette.
class LockedSurface {
public:
    LockedSurface(PixelSurface &surface, const RECT *rect) : surface_(surface), locked_(surface.LockEx(&view_, rect)) {}
    ~LockedSurface() {
        if (locked_) surface_.Unlock();
    }
    LockedSurface(const LockedSurface &) = delete;
    LockedSurface &operator=(const LockedSurface &) = delete;

    /// Null when the lock failed.
    const SurfaceView *View() const { return locked_ ? &view_ : nullptr; }

private:
    PixelSurface &surface_;
    SurfaceView view_{};
    bool locked_;
};

}  // namespace lacquer

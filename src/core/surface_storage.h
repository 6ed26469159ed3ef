// Where a surface's pixels live. Storages are shared by reference: a texture that borrows a canvas's storage keeps it
// alive.
#pragma once

#include <lacquer/lacquer.h>

#include <cstdint>

#include "core/reference.h"
#include "core/surface_view.h"

namespace lacquer {

/// Pixels in one kind of memory, empty until `Create` succeeds.
class SurfaceStorage : public Shared {
public:
    virtual ~SurfaceStorage() = default;

    /// Releases what is held, then makes pixels for the view's width, height and bits per pixel and completes the view.
    virtual bool Create(SurfaceView *view, uint16_t paletteCount) = 0;
    virtual void Release() = 0;

    bool IsEmpty() const { return !whole_.bits; }
    int Width() const { return whole_.width; }
    int Height() const { return whole_.height; }
    int BitsPixel() const { return whole_.bitsPerPixel; }

    /// The entries of a palette of its own.
    int PaletteCount() const { return paletteCount_; }

    /// Describes a rectangle (null: everything) in the fields up to `bits`; the palette fields become 0. Result: false
    /// when empty, below 8 bits per pixel, or unless the rectangle is inside and not empty.
    bool Lock(SurfaceView *out, const RECT *rect) {
        if (!LockEx(out, rect)) return false;
        out->paletteCount = 0;
        out->palette = nullptr;
        return true;
    }

    /// `Lock`, then the palette.
    bool LockEx(SurfaceView *out, const RECT *rect) {
        if (IsEmpty() || whole_.bitsPerPixel < 8) return false;
        PrepareLock();
        *out = whole_;
        return NarrowView(*out, rect);
    }

protected:
    virtual void PrepareLock() {}

    SurfaceView whole_{};
    uint16_t paletteCount_ = 0;
};

using StorageRef = Ref<SurfaceStorage>;

}  // namespace lacquer

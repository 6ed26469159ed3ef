// Where a surface's pixels live. Storages are shared by reference: a texture that borrows a canvas's storage keeps it
// alive.
#pragma once

#include <lacquer/lacquer.h>

#include <cstdint>

#include "core/reference.h"

namespace lacquer {

/// Pixels in one kind of memory, empty until `Create` succeeds.
class SurfaceStorage : public Shared {
public:
    virtual ~SurfaceStorage() = default;

    /// Releases what is held, then makes pixels for the view's width, height and bits per pixel and completes the view.
    virtual bool Create(SurfaceView *view, uint16_t paletteCount) = 0;
    virtual void Release() = 0;
    virtual bool IsEmpty() const = 0;
    virtual int GetWidth() const = 0;
    virtual int GetHeight() const = 0;
    virtual int GetBitsPixel() const = 0;
    virtual int GetPaletteCount() const = 0;

    /// Describes a rectangle (null: everything) in the fields up to `bits`; the palette fields become 0. Result: false
    /// when empty, below 8 bits per pixel, or unless the rectangle is inside and not empty.
    virtual bool Lock(SurfaceView *out, const RECT *rect) = 0;

    /// `Lock`, then the palette.
    virtual bool LockEx(SurfaceView *out, const RECT *rect) = 0;
    virtual void Unlock() {}
};

using StorageRef = Ref<SurfaceStorage>;

}  // namespace lacquer

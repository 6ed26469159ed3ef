// Pixel access to a device context that belongs to someone else.
#pragma once

#include <lacquer/lacquer.h>

#include "core/dib_storage.h"
#include "platform/platform.h"

namespace lacquer {

/// One lock at a time: directly into the DIB section that is selected in the context, or of a copy that `Unlock` writes
/// back.
class DcLock {
public:
    /// Describes a rectangle in the context's logical coordinates. Result: false for an empty or inverted rectangle,
    /// one outside the selected DIB section, without memory, and while a copy is locked.
    bool Lock(HDC dc, const RECT &rect, SurfaceView *out);

    /// Writes a copy back; after a direct lock there is nothing to do.
    void Unlock();

private:
    bool LockSelectedDib(SurfaceView *out) const;
    bool LockCopy(SurfaceView *out);

    RECT rect_{};
    HDC targetDC_ = nullptr;
    DibStorage temp_;
    SurfaceView view_{};
};

}  // namespace lacquer

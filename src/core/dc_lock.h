// Pixel access to a device context that belongs to someone else.
#pragma once

#include <lacquer/lacquer.h>

#include <span>

#include "core/dib_storage.h"
#include "core/geometry.h"
#include "core/surface_view.h"
#include "platform/platform.h"

namespace lacquer {

/// Pixels that the views of any number of logical rectangles are cut from.
struct LockedArea {
    SurfaceView view;
    int64_t dx, dy;  ///< from logical coordinates to the view's
    bool copied;     ///< the view shows a copy, of no more than was locked

    /// Result: false for an empty rectangle and one that is not inside.
    bool Cut(const RECT &rect, SurfaceView *out) const {
        const RECT place = Moved(rect, dx, dy);
        *out = view;
        return NarrowView(*out, &place);
    }
};

/// A lock shows the DIB section that is selected in the context where it can, else a copy of the context's pixels,
/// transparent black where they can't be read. There is one copy at a time; locks of the DIB section go beside it.
/// Locks end in the reverse order.
class DcLock {
public:
    /// Describes a rectangle in the context's logical coordinates. Result: false for an empty or inverted rectangle,
    /// one outside the selected DIB section, and when a copy is needed while there is one or without memory.
    bool Lock(HDC dc, const RECT &rect, SurfaceView *out);

    /// Writes a copy back; after a lock of the DIB section, and without a lock, there is nothing to do.
    void Unlock();

    /// Describes all of the DIB section where `area`, a visible part of the context, could be locked in it, else a copy
    /// of the area. Result: false also for a copy of an empty area, or from a context that scales or turns: there the
    /// pixels of a rectangle depend on its place.
    bool LockArea(HDC dc, const RECT &area, LockedArea *out);

    /// Ends a lock of an area; of a copy only `written` goes back.
    void UnlockArea(std::span<const RECT> written);

private:
    bool LockSelectedDib(HDC dc, const RECT &rect, LockedArea *out) const;
    bool LockCopy(HDC dc, const RECT &rect, SurfaceView *out);
    void WriteBack(const RECT &part);

    unsigned locksInside_ = 0;  ///< locks of the DIB section that were taken since the copy was
    RECT rect_{};               ///< what the copy shows
    HDC targetDC_ = nullptr;
    DibStorage copy_;
    SurfaceView view_{};
};

}  // namespace lacquer

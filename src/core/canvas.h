// The drawing target: a surface of its own, with a device context on demand, or a device context of the caller's.
#pragma once

#include <lacquer/lacquer.h>

#include <memory>
#include <span>
#include <utility>

#include "core/dc_lock.h"
#include "core/pixel_surface.h"
#include "core/reference.h"
#include "platform/platform.h"

namespace lacquer {

class Canvas;

/// Stands for a canvas beyond its life: the canvas and its children share it, and it names null once the canvas is
/// gone. The lock of the handle table guards it.
struct CanvasAnchor : Shared {
    Canvas *canvas = nullptr;
};

/// A new anchor, or null.
Ref<CanvasAnchor> NewAnchor();

/// The vector companion's canvas and what destroys it, so that nothing here has to know the companion.
using OwnedCompanion = std::unique_ptr<velCanvas, int (*)(velCanvas *)>;

/// Rectangles that enter are logical: device = logical + viewport origin - window origin. The clip is kept in device
/// coordinates, inside the surface.
class Canvas {
public:
    Canvas() = default;
    ~Canvas();
    Canvas(const Canvas &) = delete;
    Canvas &operator=(const Canvas &) = delete;

    /// Makes a canvas with transparent black pixels; a system one has its device context at once. For use on a new
    /// object only.
    bool CreateSurface(DWORD width, DWORD height, SurfaceKind kind);

    /// Makes a canvas around the caller's device context, which it never deletes. For use on a new object only.
    void AttachDeviceContext(HDC dc);

    /// Null for a device-context canvas.
    PixelSurface *Surface() { return surface_.get(); }

    bool HasPixels() const { return surface_ && surface_->HasPixels(); }

    /// Takes the surface out of a surface canvas, which is then good for nothing but deletion: its device context is
    /// deleted, and every alpha becomes 255 unless the filter word says per-pixel alpha.
    std::unique_ptr<PixelSurface> DetachSurface();

    /// Describe a rectangle; null is the whole surface. Result: false outside the surface or the selected DIB section.
    bool Lock(SurfaceView *out, const RECT *rect);
    bool LockEx(SurfaceView *out, const RECT *rect);
    void Unlock();

    /// Describes the pixels that every rectangle inside `area`, a visible part, can be cut from: all of a surface, or
    /// as of DcLock. `UnlockArea` ends it.
    bool LockArea(const RECT &area, LockedArea *out);
    void UnlockArea(std::span<const RECT> written);

    /// The device context, made at the first call: that moves the pixels into a DIB section. Result: null on failure.
    HDC GetDeviceContext();

    bool GetSize(SIZE *out) const;

    const POINT &ViewportOrg() const { return viewportOrg_; }
    const POINT &WindowOrg() const { return windowOrg_; }
    bool SetViewportOrg(int x, int y, POINT *previous);
    bool SetWindowOrg(int x, int y, POINT *previous);

    /// Logical rectangles; empty and inverted ones make the clip empty. A device context that does not take them
    /// changes nothing else. `ClipBox` is the bounding box of the device context's clip where there is one.
    void SetClip(const RECT &rect);
    void IntersectClip(const RECT &rect);
    RECT ClipBox() const;

    /// The part of a logical rectangle that lies in the clip box. Result: false, with an empty part, when there is
    /// none.
    bool FindVisible(const RECT &rect, RECT *part) const {
        const RECT clipBox = ClipBox();
        return IntersectRect(part, &rect, &clipBox) != 0;
    }

    HWND Window() const { return window_; }
    void SetWindow(HWND window) { window_ = window; }

    /// For use under the lock of the handle table, so that no parent dies meanwhile. `spare` becomes the anchor of a
    /// parent that has none yet. Result of `SetParent`: the old parent's anchor, which the caller drops. `Parent` is
    /// null without a parent and when it is gone.
    Ref<CanvasAnchor> SetParent(Canvas &parent, const Ref<CanvasAnchor> &spare);
    Canvas *Parent() const { return parent_ ? parent_->canvas : nullptr; }

    /// Lets the children forget this canvas, which is about to be destroyed; under the same lock.
    void LeaveChildren() {
        if (anchor_) anchor_->canvas = nullptr;
    }

    /// A device-context canvas refuses a filter word.
    DWORD Filter() const { return filter_; }
    bool SetFilter(DWORD filter);

    DWORD BkColor() const { return bkColor_; }
    void SetBkColor(DWORD colour) { bkColor_ = colour; }

    /// The vector companion's canvas, null until there is one. Who draws with it sees to it that it has the present
    /// pixels; here they move without telling it.
    velCanvas *Companion() const { return companion_.get(); }
    void SetCompanion(OwnedCompanion companion) { companion_ = std::move(companion); }

private:
    RECT ToDevice(const RECT &rect) const;
    bool ApplyClip(const RECT &device) const;
    void DeleteDeviceContext();

    DcLock dcLock_;
    bool foreignDC_ = false;
    HWND window_ = nullptr;
    Ref<CanvasAnchor> anchor_;  ///< made when the canvas first becomes a parent
    Ref<CanvasAnchor> parent_;
    HDC dc_ = nullptr;
    HGDIOBJ previousBitmap_ = nullptr;
    StorageRef selected_;  ///< keeps the bitmap in `dc_` alive, whatever happens to the surface through its aliases
    POINT viewportOrg_{}, windowOrg_{};
    DWORD filter_ = 0;
    std::unique_ptr<PixelSurface> surface_;
    DWORD bkColor_ = 0;
    RECT clip_{};
    OwnedCompanion companion_{nullptr, nullptr};
};

std::unique_ptr<Canvas> MakeCanvas(DWORD width, DWORD height, SurfaceKind kind);
std::unique_ptr<Canvas> MakeCanvasFromDC(HDC dc);

}  // namespace lacquer

// Canvases: creation, device contexts, origins, clip, locks.

#include "core/canvas.h"

#include <cstring>
#include <utility>

#include "core/geometry.h"
#include "core/registration.h"
#include "core/surface_view.h"
#include "pipeline/table/blit_dispatch.h"

namespace lacquer {
namespace {

/// The coordinates that a region can hold: 27 bits and a sign.
constexpr LONG kRegionLimit = 1 << 27;
constexpr RECT kRegionRange{-kRegionLimit, -kRegionLimit, kRegionLimit - 1, kRegionLimit - 1};

void ClearPixels(const SurfaceView &view) {
    for (LONG y = 0; y < view.height; ++y) std::memset(RowOf(view, y), 0, static_cast<size_t>(view.stride));
}

/// Cuts the rectangle to what a region can hold, as far coordinates would overflow inside GDI; not to what is visible
/// at present, which may grow. An inverted rectangle becomes empty; GDI would turn it the right way round.
void NarrowContextClip(HDC dc, const RECT &rect) {
    POINT viewport{}, window{};
    GetViewportOrgEx(dc, &viewport);
    GetWindowOrgEx(dc, &window);
    const RECT range =
        Moved(kRegionRange, static_cast<int64_t>(window.x) - viewport.x, static_cast<int64_t>(window.y) - viewport.y);
    RECT bounded{};
    IntersectRect(&bounded, &rect, &range);
    IntersectClipRect(dc, bounded.left, bounded.top, bounded.right, bounded.bottom);
}

POINT Exchanged(POINT &stored, int x, int y) { return std::exchange(stored, POINT{x, y}); }

}  // namespace

Canvas::~Canvas() {
    if (!foreignDC_) DeleteDeviceContext();
}

bool Canvas::CreateSurface(DWORD width, DWORD height, SurfaceKind kind) {
    surface_ = MakeSurface(width, height, 32, 0, kind);
    if (!surface_) return false;
    surface_->SetOwner(SurfaceOwner::Canvas);
    clip_ = {0, 0, surface_->Width(), surface_->Height()};
    if (kind == SurfaceKind::System && !GetDeviceContext()) return false;
    SurfaceView view{};
    if (!surface_->Lock(&view)) return false;
    ClearPixels(view);
    surface_->Unlock();
    return true;
}

void Canvas::AttachDeviceContext(HDC dc) {
    foreignDC_ = true;
    dc_ = dc;
    window_ = WindowFromDC(dc);
    GetViewportOrgEx(dc, &viewportOrg_);
    GetWindowOrgEx(dc, &windowOrg_);
}

std::unique_ptr<PixelSurface> Canvas::DetachSurface() {
    DeleteDeviceContext();
    surface_->SetFilter(filter_);
    SurfaceView view{};
    if (DrawModeOf(filter_) != LACQUER_DRAW_OVER && surface_->Lock(&view)) {
        ForceOpaqueView(view);
        surface_->Unlock();
    }
    return std::move(surface_);
}

HDC Canvas::GetDeviceContext() {
    if (dc_ || !surface_) return dc_;
    HDC dc = CreateCompatibleDC(nullptr);
    if (!dc) return nullptr;
    HBITMAP bitmap = surface_->GetHandle();
    previousBitmap_ = bitmap ? SelectObject(dc, bitmap) : nullptr;
    if (!previousBitmap_) {
        DeleteDC(dc);
        return nullptr;
    }
    dc_ = dc;
    selected_ = surface_->Storage();
    if (!ApplyClip(clip_)) {
        DeleteDeviceContext();
        return nullptr;
    }
    SetViewportOrgEx(dc, viewportOrg_.x, viewportOrg_.y, nullptr);
    SetWindowOrgEx(dc, windowOrg_.x, windowOrg_.y, nullptr);
    return dc_;
}

void Canvas::DeleteDeviceContext() {
    if (!dc_) return;
    SelectObject(dc_, previousBitmap_);
    DeleteDC(dc_);
    dc_ = nullptr;
    previousBitmap_ = nullptr;
    selected_ = StorageRef();
}

bool Canvas::GetSize(SIZE *out) const {
    if (!surface_) return false;
    *out = {surface_->Width(), surface_->Height()};
    return true;
}

bool Canvas::Lock(SurfaceView *out, const RECT *rect) {
    if (foreignDC_) return dc_ && rect && dcLock_.Lock(dc_, *rect, out);
    if (!surface_) return false;
    if (!rect) return surface_->Lock(out);
    const RECT device = ToDevice(*rect);
    return surface_->Lock(out, &device);
}

bool Canvas::LockEx(SurfaceView *out, const RECT *rect) {
    if (!surface_) return false;
    if (!rect) return surface_->LockEx(out);
    const RECT device = ToDevice(*rect);
    return surface_->LockEx(out, &device);
}

void Canvas::Unlock() {
    if (foreignDC_) {
        dcLock_.Unlock();
    } else if (surface_) {
        surface_->Unlock();
    }
}

bool Canvas::LockArea(const RECT &area, LockedArea *out) {
    if (foreignDC_) return dc_ && dcLock_.LockArea(dc_, area, out);
    *out = {{},
            static_cast<int64_t>(viewportOrg_.x) - windowOrg_.x,
            static_cast<int64_t>(viewportOrg_.y) - windowOrg_.y,
            false};
    return surface_ && surface_->Lock(&out->view);
}

void Canvas::UnlockArea(std::span<const RECT> written) {
    if (foreignDC_) {
        dcLock_.UnlockArea(written);
    } else {
        surface_->Unlock();
    }
}

bool Canvas::SetViewportOrg(int x, int y, POINT *previous) {
    const POINT stored = Exchanged(viewportOrg_, x, y);
    if (dc_) return SetViewportOrgEx(dc_, x, y, previous) != 0;
    if (previous) *previous = stored;
    return true;
}

bool Canvas::SetWindowOrg(int x, int y, POINT *previous) {
    const POINT stored = Exchanged(windowOrg_, x, y);
    if (dc_) return SetWindowOrgEx(dc_, x, y, previous) != 0;
    if (previous) *previous = stored;
    return true;
}

RECT Canvas::ToDevice(const RECT &rect) const {
    return Moved(rect, static_cast<int64_t>(viewportOrg_.x) - windowOrg_.x,
                 static_cast<int64_t>(viewportOrg_.y) - windowOrg_.y);
}

bool Canvas::ApplyClip(const RECT &device) const {
    // This makes an inverted rectangle empty, too; GDI would turn it the right way round.
    RECT bounded{};
    IntersectRect(&bounded, &device, &kRegionRange);
    HRGN region = CreateRectRgnIndirect(&bounded);
    // To select null would remove the clip.
    if (!region) return false;
    const bool applied = ExtSelectClipRgn(dc_, region, RGN_COPY) != ERROR;
    DeleteObject(region);
    return applied;
}

void Canvas::SetClip(const RECT &rect) {
    RECT device = ToDevice(rect);
    if (surface_) {
        const RECT wanted = device, whole{0, 0, surface_->Width(), surface_->Height()};
        IntersectRect(&device, &wanted, &whole);
        clip_ = device;
    }
    if (dc_) ApplyClip(device);
}

void Canvas::IntersectClip(const RECT &rect) {
    if (dc_) NarrowContextClip(dc_, rect);
    // An inverted rectangle stays empty, wherever clamping moves its edges.
    const RECT device = ToDevice(IsRectEmpty(&rect) ? RECT{} : rect), before = clip_;
    IntersectRect(&clip_, &device, &before);
}

RECT Canvas::ClipBox() const {
    if (!dc_) {
        return Moved(clip_, static_cast<int64_t>(windowOrg_.x) - viewportOrg_.x,
                     static_cast<int64_t>(windowOrg_.y) - viewportOrg_.y);
    }
    RECT box{};
    GetClipBox(dc_, &box);
    return box;
}

Ref<CanvasAnchor> Canvas::SetParent(Canvas &parent, const Ref<CanvasAnchor> &spare) {
    if (!parent.anchor_) {
        parent.anchor_ = spare;
        spare->canvas = &parent;
    }
    return std::exchange(parent_, parent.anchor_);
}

Ref<CanvasAnchor> NewAnchor() { return Ref<CanvasAnchor>(NewObject<CanvasAnchor>()); }

bool Canvas::SetFilter(DWORD filter) {
    if (foreignDC_) return false;
    filter_ = filter;
    if (surface_) surface_->SetFilter(filter);
    return true;
}

std::unique_ptr<Canvas> MakeCanvas(DWORD width, DWORD height, SurfaceKind kind) {
    std::unique_ptr<Canvas> canvas(NewObject<Canvas>());
    if (canvas && !canvas->CreateSurface(width, height, kind)) canvas.reset();
    return canvas;
}

std::unique_ptr<Canvas> MakeCanvasFromDC(HDC dc) {
    std::unique_ptr<Canvas> canvas(NewObject<Canvas>());
    if (canvas) canvas->AttachDeviceContext(dc);
    return canvas;
}

}  // namespace lacquer

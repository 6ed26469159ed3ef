// Canvases: creation, device contexts, origins, clip, locks.

#include "core/canvas.h"

#include <cstring>
#include <new>
#include <utility>

#include "core/geometry.h"
#include "core/handle_table.h"
#include "core/surface_view.h"
#include "pipeline/table/blit_dispatch.h"

namespace lacquer {

namespace {

constexpr DWORD kOverMode = 1;

/// The coordinates that a region can hold: 27 bits and a sign.
constexpr LONG kRegionLimit = 1 << 27;
constexpr RECT kRegionRange{-kRegionLimit, -kRegionLimit, kRegionLimit - 1, kRegionLimit - 1};

void ClearPixels(const SurfaceView &view) {
    for (LONG y = 0; y < view.height; ++y) std::memset(RowOf(view, y), 0, static_cast<size_t>(view.stride));
}

POINT Exchanged(POINT &stored, int x, int y) { return std::exchange(stored, POINT{x, y}); }

}  // namespace

Canvas::~Canvas() {
    if (anchor_) anchor_->canvas.store(nullptr, std::memory_order_release);
    if (!foreignDC_) DeleteDeviceContext();
    if (aliased_) ProcessHandleTable().Revoke(this);
}

bool Canvas::CreateSurface(DWORD width, DWORD height, SurfaceKind kind) {
    surface_ = MakeSurface(width, height, 32, 0, kind);
    if (!surface_) return false;
    surface_->SetBelongsToCanvas(true);
    clip_ = {0, 0, surface_->GetWidth(), surface_->GetHeight()};
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
    SurfaceView view{};
    if (!surface_ || !surface_->Lock(&view)) return nullptr;
    DeleteDeviceContext();
    surface_->SetFilter(filter_);
    if (filter_ >> 24 != kOverMode) ForceOpaqueView(view);
    surface_->Unlock();
    surface_->SetBelongsToCanvas(false);
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
    *out = {surface_->GetWidth(), surface_->GetHeight()};
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

bool Canvas::SetClip(const RECT &rect) {
    RECT device = ToDevice(rect);
    if (surface_) {
        const RECT wanted = device, whole{0, 0, surface_->GetWidth(), surface_->GetHeight()};
        IntersectRect(&device, &wanted, &whole);
    }
    if (dc_ && !ApplyClip(device)) return false;
    if (surface_) clip_ = device;
    return true;
}

bool Canvas::IntersectClip(const RECT &rect) {
    const RECT ordered = IsRectEmpty(&rect) ? RECT{} : rect;
    if (dc_) {
        // Far coordinates would overflow inside GDI; nothing beyond the clip box counts anyway.
        const RECT box = ClipBox();
        RECT inside{};
        IntersectRect(&inside, &ordered, &box);
        if (IntersectClipRect(dc_, inside.left, inside.top, inside.right, inside.bottom) == ERROR) return false;
    }
    const RECT device = ToDevice(ordered), before = clip_;
    IntersectRect(&clip_, &device, &before);
    return true;
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

bool Canvas::SetParent(Canvas &parent) {
    if (!parent.anchor_) parent.anchor_ = Ref<CanvasAnchor>(new (std::nothrow) CanvasAnchor);
    if (!parent.anchor_) return false;
    parent.anchor_->canvas.store(&parent, std::memory_order_release);
    parent_ = parent.anchor_;
    return true;
}

bool Canvas::SetFilter(DWORD filter) {
    if (foreignDC_) return false;
    filter_ = filter;
    if (surface_) surface_->SetFilter(filter);
    return true;
}

std::unique_ptr<Canvas> MakeCanvas(DWORD width, DWORD height, SurfaceKind kind) {
    std::unique_ptr<Canvas> canvas(new (std::nothrow) Canvas);
    if (canvas && !canvas->CreateSurface(width, height, kind)) canvas.reset();
    return canvas;
}

std::unique_ptr<Canvas> MakeCanvasFromDC(HDC dc) {
    std::unique_ptr<Canvas> canvas(new (std::nothrow) Canvas);
    if (canvas) canvas->AttachDeviceContext(dc);
    return canvas;
}

}  // namespace lacquer

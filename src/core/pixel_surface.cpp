// Pixel surfaces: creation, sharing, locking, and the move from process memory into a DIB section.

#include "core/pixel_surface.h"

#include <new>
#include <utility>

#include "core/dib_storage.h"
#include "core/memory_storage.h"
#include "core/registration.h"
#include "core/surface_view.h"
#include "pipeline/table/blit_dispatch.h"

namespace lacquer {

namespace {

constexpr int kDibBitsPixel = 32;

bool IsSide(int length) { return length >= 1 && length <= PixelSurface::kLargestSide; }

bool HasKernel(int bitsPerPixel) { return bitsPerPixel == 8 || bitsPerPixel == 24 || bitsPerPixel == 32; }

StorageRef MakeStorage(SurfaceKind kind) {
    if (kind == SurfaceKind::System) return StorageRef(new (std::nothrow) DibStorage);
    return StorageRef(new (std::nothrow) MemoryStorage);
}

}  // namespace

bool PixelSurface::Create(int width, int height, int bitsPerPixel, uint16_t paletteCount, SurfaceKind kind) {
    Destroy();
    if (!IsSide(width) || !IsSide(height)) return false;
    SurfaceView view{};
    view.width = width;
    view.height = height;
    view.bitsPerPixel = static_cast<WORD>(bitsPerPixel);
    StorageRef storage = MakeStorage(kind);
    if (!storage || !storage->Create(&view, paletteCount)) return false;
    storage_ = std::move(storage);
    kind_ = kind;
    view_ = view;
    return true;
}

StorageRef PixelSurface::TakeStorage() {
    ownsStorage_ = true;
    view_ = {};
    filter_ = 0;
    return std::exchange(storage_, StorageRef());
}

bool PixelSurface::ShareFrom(const PixelSurface *source, bool borrow) {
    Destroy();
    if (!source || !source->storage_ || source->storage_->IsEmpty()) return false;
    filter_ = source->filter_;
    kind_ = source->kind_;
    storage_ = source->storage_;
    ownsStorage_ = !borrow;
    return true;
}

void PixelSurface::AttachPixels(const SurfaceView &description) {
    Destroy();
    ownsStorage_ = false;
    view_.width = description.width;
    view_.height = description.height;
    view_.stride = description.stride;
    view_.planes = 1;
    view_.bitsPerPixel = 32;
    view_.bits = description.bits;
}

int PixelSurface::GetBitsPixel() const { return storage_ ? storage_->GetBitsPixel() : view_.bitsPerPixel; }
int PixelSurface::GetPaletteCount() const {
    return storage_ ? storage_->GetPaletteCount() : static_cast<int>(view_.paletteCount);
}

bool PixelSurface::LockForeign(SurfaceView *out, const RECT *rect) const {
    if (!view_.bits) return false;
    *out = view_;
    return NarrowView(*out, rect);
}

HBITMAP PixelSurface::GetHandle() {
    if (!storage_) return nullptr;
    if (kind_ == SurfaceKind::System) return static_cast<DibStorage *>(storage_.get())->GetBitmap();
    if (!ownsStorage_ || !HasKernel(GetBitsPixel())) return nullptr;
    return ConvertToSystem();
}

HBITMAP PixelSurface::ConvertToSystem() {
    SurfaceView made{}, target{}, source{};
    made.width = GetWidth();
    made.height = GetHeight();
    made.bitsPerPixel = kDibBitsPixel;
    StorageRef dib = MakeStorage(SurfaceKind::System);
    if (!dib || !dib->Create(&made, 0) || !dib->LockEx(&target, nullptr)) return nullptr;
    if (!storage_->LockEx(&source, nullptr)) return nullptr;
    ConvertCopy(target, source);
    storage_ = std::move(dib);
    kind_ = SurfaceKind::System;
    view_ = made;
    return static_cast<DibStorage *>(storage_.get())->GetBitmap();
}

std::unique_ptr<PixelSurface> MakeSurface(DWORD width, DWORD height, DWORD bitsPerPixel, DWORD paletteCount,
                                          SurfaceKind kind) {
    std::unique_ptr<PixelSurface> surface(NewObject<PixelSurface>());
    const bool made =
        surface && surface->Create(static_cast<int>(width), static_cast<int>(height),
                                   static_cast<int>(bitsPerPixel & 0xFFFF), static_cast<uint16_t>(paletteCount), kind);
    if (!made) surface.reset();
    return surface;
}

}  // namespace lacquer

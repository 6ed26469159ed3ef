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

/// The one place where a surface comes by pixels and loses them. What it showed before is dropped.
void PixelSurface::Show(PixelsOf pixels, StorageRef storage, const SurfaceView &foreign) {
    pixels_ = pixels;
    storage_ = std::move(storage);
    foreign_ = foreign;
}

bool PixelSurface::Create(int width, int height, int bitsPerPixel, uint16_t paletteCount, SurfaceKind kind) {
    Destroy();
    if (!IsSide(width) || !IsSide(height)) return false;
    StorageRef storage = MakeStorage(kind);
    SurfaceView wanted{};
    wanted.width = width;
    wanted.height = height;
    wanted.bitsPerPixel = static_cast<WORD>(bitsPerPixel);
    if (!storage || !storage->Create(&wanted, paletteCount)) return false;
    Show(PixelsOf::Itself, std::move(storage));
    kind_ = kind;
    return true;
}

StorageRef PixelSurface::TakeStorage() {
    StorageRef taken = std::move(storage_);
    Show(PixelsOf::Nobody, {});
    filter_ = 0;
    return taken;
}

bool PixelSurface::ShareFrom(const PixelSurface *source, bool borrow) {
    Destroy();
    if (!source || !source->HasPixels()) return false;
    Show(borrow ? PixelsOf::Another : PixelsOf::Itself, source->storage_);
    kind_ = source->kind_;
    filter_ = source->filter_;
    return true;
}

void PixelSurface::AttachPixels(const SurfaceView &description) {
    Destroy();
    SurfaceView foreign{};
    foreign.width = description.width;
    foreign.height = description.height;
    foreign.stride = description.stride;
    foreign.planes = 1;
    foreign.bitsPerPixel = kDibBitsPixel;
    foreign.bits = description.bits;
    Show(PixelsOf::Caller, {}, foreign);
}

bool PixelSurface::LockForeign(SurfaceView *out, const RECT *rect) const {
    if (!foreign_.bits) return false;
    *out = foreign_;
    return NarrowView(*out, rect);
}

HBITMAP PixelSurface::GetHandle() {
    if (!storage_) return nullptr;
    if (kind_ == SurfaceKind::System) return static_cast<DibStorage *>(storage_.get())->Bitmap();
    if (pixels_ != PixelsOf::Itself || !HasKernel(BitsPixel())) return nullptr;
    return ConvertToSystem();
}

HBITMAP PixelSurface::ConvertToSystem() {
    SurfaceView wanted{}, target{}, source{};
    wanted.width = Width();
    wanted.height = Height();
    StorageRef dib = MakeStorage(SurfaceKind::System);
    if (!dib || !dib->Create(&wanted, 0) || !dib->LockEx(&target, nullptr)) return nullptr;
    if (!storage_->LockEx(&source, nullptr)) return nullptr;
    ConvertCopy(target, source);
    Show(PixelsOf::Itself, std::move(dib));
    kind_ = SurfaceKind::System;
    return static_cast<DibStorage *>(storage_.get())->Bitmap();
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

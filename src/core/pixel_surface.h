// The pixel buffer behind every bitmap, texture and surface canvas.
#pragma once

#include <cstdint>
#include <memory>

#include "core/surface_storage.h"
#include "platform/platform.h"

namespace lacquer {

enum class SurfaceKind : uint8_t { Memory = 0, System = 1 };

/// Size, depth, filter word and a storage that it owns, borrows from another surface or, for foreign pixels, does
/// without.
class PixelSurface {
public:
    static constexpr int kLargestSide = 32767;

    PixelSurface() = default;
    PixelSurface(const PixelSurface &) = delete;
    PixelSurface &operator=(const PixelSurface &) = delete;

    /// Drops what the surface held, then makes pixels; a system surface always has 32 bits per pixel. Result: false,
    /// with the surface empty, for a side outside 1..32767 or without memory.
    bool Create(int width, int height, int bitsPerPixel, uint16_t paletteCount, SurfaceKind kind);

    /// Leaves the surface empty and its filter word 0. A storage that others refer to lives on.
    void Destroy() { TakeStorage(); }

    /// `Destroy`, but for the storage, which the caller drops.
    StorageRef TakeStorage();

    /// Drops what the surface held, then takes the source's filter word, kind and storage; borrowing does not make it
    /// an owner. Result: false, with the surface empty, when the source has no pixels in a storage.
    bool ShareFrom(const PixelSurface *source, bool borrow);

    /// Describes 32-bit pixels that belong to someone else and outlive this surface's use.
    void AttachPixels(const SurfaceView &description);

    int GetWidth() const { return storage_ ? storage_->GetWidth() : view_.width; }
    int GetHeight() const { return storage_ ? storage_->GetHeight() : view_.height; }
    int GetBitsPixel() const;
    int GetPaletteCount() const;
    SurfaceKind GetKind() const { return kind_; }
    DWORD GetFilter() const { return filter_; }
    void SetFilter(DWORD filter) { filter_ = filter; }

    /// Describe a rectangle, or everything when null. Result: false when empty, below 8 bits per pixel, or unless the
    /// rectangle is inside and not empty.
    bool Lock(SurfaceView *out, const RECT *rect = nullptr) {
        return storage_ ? storage_->Lock(out, rect) : LockForeign(out, rect);
    }
    bool LockEx(SurfaceView *out, const RECT *rect = nullptr) {
        return storage_ ? storage_->LockEx(out, rect) : LockForeign(out, rect);
    }

    /// Ends a lock, which holds nothing at present.
    void Unlock() {}

    /// The GDI bitmap of the pixels. A memory surface that owns its storage moves into a DIB section, for good, at 32
    /// bits per pixel. Result: null when it can't (borrowed, foreign or empty; a depth that can't be converted; no
    /// memory).
    HBITMAP GetHandle();

    /// The storage, so that a device context can keep the bitmap that it has selected.
    const StorageRef &Storage() const { return storage_; }

    bool HasPixels() const { return storage_ && !storage_->IsEmpty(); }

    /// Whether a canvas owns this object, so that deleting it through a handle may only empty it. The lock of the
    /// handle table guards this once the surface can be found.
    bool BelongsToCanvas() const { return belongsToCanvas_; }
    void SetBelongsToCanvas(bool belongs) { belongsToCanvas_ = belongs; }

private:
    bool LockForeign(SurfaceView *out, const RECT *rect) const;
    HBITMAP ConvertToSystem();

    DWORD filter_ = 0;
    StorageRef storage_;
    SurfaceKind kind_ = SurfaceKind::Memory;
    bool ownsStorage_ = true;
    bool belongsToCanvas_ = false;
    SurfaceView view_{};
};

/// A new surface, or null.
std::unique_ptr<PixelSurface> MakeSurface(DWORD width, DWORD height, DWORD bitsPerPixel, DWORD paletteCount,
                                          SurfaceKind kind);

}  // namespace lacquer

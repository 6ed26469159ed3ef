// The pixel buffer behind every bitmap, texture and surface canvas.
#pragma once

#include <cstdint>
#include <memory>

#include "core/surface_storage.h"
#include "platform/platform.h"

namespace lacquer {

enum class SurfaceKind : uint8_t { Memory = 0, System = 1 };

/// Whose pixels a surface shows. Storages are shared by reference: one is destroyed with the last surface that shows
/// it, the own and the borrowed ones alike. Foreign pixels are never destroyed here.
enum class PixelsOf : uint8_t {
    Nobody,   ///< the surface is empty
    Itself,   ///< a storage of its own, which it may exchange for a DIB section
    Another,  ///< another surface's storage, borrowed: it stays as it is
    Caller,   ///< foreign pixels, which a view describes
};

/// Who destroys a surface: the last of its handles to be deleted, or the canvas that made it. While a canvas does, who
/// deletes a handle of the surface only empties it.
enum class SurfaceOwner : uint8_t { Handles, Canvas };

/// Size, depth, filter word and pixels.
class PixelSurface {
public:
    static constexpr int kLargestSide = 32767;

    PixelSurface() = default;
    PixelSurface(const PixelSurface &) = delete;
    PixelSurface &operator=(const PixelSurface &) = delete;

    /// Drops what the surface held, then makes pixels; a system surface always has 32 bits per pixel. Result: false,
    /// with the surface empty, for a side outside 1..kLargestSide or without memory.
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

    int Width() const { return storage_ ? storage_->Width() : foreign_.width; }
    int Height() const { return storage_ ? storage_->Height() : foreign_.height; }
    int BitsPixel() const { return storage_ ? storage_->BitsPixel() : foreign_.bitsPerPixel; }
    int PaletteCount() const { return storage_ ? storage_->PaletteCount() : 0; }
    SurfaceKind Kind() const { return kind_; }
    DWORD Filter() const { return filter_; }
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

    /// The GDI bitmap of the pixels. A memory surface with a storage of its own moves into a DIB section, for good, at
    /// 32 bits per pixel. Result: null when it can't (borrowed, foreign or empty; a depth that can't be converted; no
    /// memory).
    HBITMAP GetHandle();

    /// The storage, so that a device context can keep the bitmap that it has selected.
    const StorageRef &Storage() const { return storage_; }

    bool HasPixels() const { return storage_ && !storage_->IsEmpty(); }

    /// The lock of the handle table guards the owner once the surface can be found.
    SurfaceOwner Owner() const { return owner_; }
    void SetOwner(SurfaceOwner owner) { owner_ = owner; }

private:
    void Show(PixelsOf pixels, StorageRef storage, const SurfaceView &foreign = {});
    bool LockForeign(SurfaceView *out, const RECT *rect) const;
    HBITMAP ConvertToSystem();

    DWORD filter_ = 0;
    PixelsOf pixels_ = PixelsOf::Nobody;
    SurfaceKind kind_ = SurfaceKind::Memory;  ///< of the storage; an empty surface keeps that of the last one
    SurfaceOwner owner_ = SurfaceOwner::Handles;
    StorageRef storage_;     ///< of PixelsOf::Itself and PixelsOf::Another, else null
    SurfaceView foreign_{};  ///< of PixelsOf::Caller, else zero
};

/// A new surface, or null.
std::unique_ptr<PixelSurface> MakeSurface(DWORD width, DWORD height, DWORD bitsPerPixel, DWORD paletteCount,
                                          SurfaceKind kind);

}  // namespace lacquer

// Owners of Lacquer handles: each deletes its object at the end of its scope. Pixel locks of the same kind, and a check
// of results, so that the examples read without clean-up code.
#pragma once

#include <lacquer/lacquer.h>

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>

namespace lacquer::examples {

/// Throws std::runtime_error when a call did not give 1.
inline void Check(int result, const char *call) {
    if (result != 1) throw std::runtime_error(std::string(call) + " failed");
}

/// The only owner of an object; can be moved, not copied.
template <typename Handle, void (*Delete)(Handle)>
class Owner {
public:
    Owner() = default;

    /// Takes a handle over. Throws std::runtime_error, naming `call`, when the handle is 0.
    Owner(Handle handle, const char *call) : handle_(handle) {
        if (!handle) throw std::runtime_error(std::string(call) + " failed");
    }
    Owner(Owner &&other) noexcept : handle_(std::exchange(other.handle_, Handle{})) {}
    Owner &operator=(Owner &&other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~Owner() {
        if (handle_) Delete(handle_);
    }

    Handle get() const { return handle_; }

    /// Gives the handle away, to a function that consumes its object.
    Handle release() { return std::exchange(handle_, Handle{}); }

private:
    Handle handle_{};
};

using Bitmap = Owner<HGBITMAP, DeleteBitmap>;
using Texture = Owner<HGTEXTURE, DeleteTexture>;
using Canvas = Owner<HGCANVAS, DeleteCanvas>;

/// The pixels of an object while it is locked. Throws std::runtime_error when the object can't be locked.
template <typename Handle, int (*Lock)(Handle, SurfaceView *, const RECT *), int (*Unlock)(Handle)>
class PixelLock {
public:
    /// `rect`: the part to lock, null for everything.
    explicit PixelLock(Handle handle, const RECT *rect = nullptr) : handle_(handle) {
        Check(Lock(handle, &view_, rect), "locking pixels");
    }
    PixelLock(const PixelLock &) = delete;
    PixelLock &operator=(const PixelLock &) = delete;
    ~PixelLock() { Unlock(handle_); }

    int width() const { return view_.width; }
    int height() const { return view_.height; }
    DWORD *palette() const { return view_.palette; }

    /// The bytes of a row.
    BYTE *row(int y) const { return static_cast<BYTE *>(view_.bits) + static_cast<std::ptrdiff_t>(y) * view_.stride; }

    /// The pixels of a row of a 32-bit object.
    DWORD *words(int y) const { return reinterpret_cast<DWORD *>(row(y)); }

private:
    Handle handle_;
    SurfaceView view_{};
};

using BitmapPixels = PixelLock<HGBITMAP, LockBitmapBits, UnlockBitmapBits>;
using TexturePixels = PixelLock<HGTEXTURE, LockTextureBitsEx, UnlockTextureBits>;
using CanvasPixels = PixelLock<HGCANVAS, LockCanvasBits, UnlockCanvasBits>;

}  // namespace lacquer::examples

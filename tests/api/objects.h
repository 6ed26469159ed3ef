// Bitmaps, textures and canvases of the tests: deleted at the end of their scope, locked in one call.
#pragma once

#include <gtest/gtest.h>
#include <lacquer/lacquer.h>
#ifndef _WIN32
#include <lacquer/headless_gdi.h>
#endif

#include <utility>

#include "support/pixels.h"

namespace lacquer {

/// An object that is deleted with its owner, through the handle it has then.
template <class Handle, void (*Delete)(Handle)>
class Owned {
public:
    explicit Owned(Handle handle) : handle_(handle) { EXPECT_TRUE(handle) << "no handle"; }
    Owned(Owned &&other) noexcept : handle_(std::exchange(other.handle_, Handle{})) {}
    ~Owned() { Delete(handle_); }

    operator Handle() const { return handle_; }

private:
    Handle handle_;
};

using OwnedBitmap = Owned<HGBITMAP, DeleteBitmap>;
using OwnedTexture = Owned<HGTEXTURE, DeleteTexture>;
using OwnedCanvas = Owned<HGCANVAS, DeleteCanvas>;

inline int LockAny(HGBITMAP handle, SurfaceView *out, const RECT *rect) { return LockBitmapBitsEx(handle, out, rect); }
inline int LockAny(HGTEXTURE handle, SurfaceView *out, const RECT *rect) {
    return LockTextureBitsEx(handle, out, rect);
}
inline int LockAny(HGCANVAS handle, SurfaceView *out, const RECT *rect) { return LockCanvasBitsEx(handle, out, rect); }

/// The whole surface of an object; an empty view, and a failure of the test, when it can't be locked.
template <class Object>
SurfaceView ViewOf(const Object &object) {
    SurfaceView view{};
    EXPECT_EQ(1, LockAny(object, &view, nullptr));
    return view;
}

template <class Object>
std::vector<uint32_t> PixelsIn(const Object &object) {
    return PixelsOf(ViewOf(object));
}

/// Whether a handle is current.
inline bool IsLive(HGBITMAP bitmap) {
    DWORD filter = 0;
    return GetBitmapFilter(bitmap, &filter) == 1;
}
inline bool IsLive(HGTEXTURE texture) {
    DWORD filter = 0;
    return GetTextureFilter(texture, &filter) == 1;
}
inline bool IsLive(HGCANVAS canvas) {
    DWORD filter = 0;
    return GetCanvasFilter(canvas, &filter) == 1;
}

/// Objects of 32 bits per pixel full of noise.
inline OwnedBitmap NoisyBitmap(DWORD width, DWORD height, uint32_t seed) {
    OwnedBitmap bitmap(CreateMemBitmap(width, height));
    FillWithNoise(ViewOf(bitmap), seed);
    return bitmap;
}
inline OwnedTexture NoisyTexture(DWORD width, DWORD height, uint32_t seed) {
    OwnedTexture texture(CreateTexture(width, height));
    FillWithNoise(ViewOf(texture), seed);
    return texture;
}
inline OwnedCanvas NoisyCanvas(DWORD width, DWORD height, uint32_t seed) {
    OwnedCanvas canvas(CreateCanvas(width, height, HGCANVAS{}));
    FillWithNoise(ViewOf(canvas), seed);
    return canvas;
}

/// Makes rectangles comparable and printable.
struct Rect {
    LONG left, top, right, bottom;
    Rect(LONG l, LONG t, LONG r, LONG b) : left(l), top(t), right(r), bottom(b) {}
    Rect(const RECT &rect) : Rect(rect.left, rect.top, rect.right, rect.bottom) {}
    bool operator==(const Rect &) const = default;
    bool IsEmpty() const { return right <= left || bottom <= top; }
    friend void PrintTo(const Rect &rect, std::ostream *out) {
        *out << '(' << rect.left << ", " << rect.top << ", " << rect.right << ", " << rect.bottom << ')';
    }
};

inline Rect ClipOf(HGCANVAS canvas) {
    RECT clip{};
    EXPECT_EQ(1, GetCanvasClipRect(canvas, &clip));
    return clip;
}

}  // namespace lacquer

// Bitmaps, textures and canvases of the tests: deleted at the end of their scope, locked in one call.
#pragma once

#include <gtest/gtest.h>
#include <lacquer/lacquer.h>
#ifndef _WIN32
#include <lacquer/headless_gdi.h>
#endif

#include <velgraphic/owner.hpp>

#include "support/pixels.h"

namespace lacquer {

using OwnedBitmap = lq::Owner<HGBITMAP, DeleteBitmap>;
using OwnedTexture = lq::Owner<HGTEXTURE, DeleteTexture>;
using OwnedCanvas = lq::Owner<HGCANVAS, DeleteCanvas>;

inline int LockAny(HGBITMAP handle, SurfaceView *out) { return LockBitmapBitsEx(handle, out, nullptr); }
inline int LockAny(HGTEXTURE handle, SurfaceView *out) { return LockTextureBitsEx(handle, out, nullptr); }
inline int LockAny(HGCANVAS handle, SurfaceView *out) { return LockCanvasBitsEx(handle, out, nullptr); }

/// The whole surface of an object; an empty view, and a failure of the test, when it can't be locked.
template <class Object>
SurfaceView ViewOf(const Object &object) {
    SurfaceView view{};
    EXPECT_EQ(1, LockAny(object, &view));
    return view;
}

template <class Object>
std::vector<uint32_t> PixelsIn(const Object &object) {
    return PixelsOf(ViewOf(object));
}

/// Fills a new object with noise, and its palette where `palette` says that it has one of its own.
template <class Object>
Object Noisy(Object object, uint32_t seed, bool palette = false) {
    FillWithNoise(ViewOf(object), seed);
    if (palette) FillPaletteWithNoise(ViewOf(object), seed + 1);
    return object;
}

/// Objects of 32 bits per pixel full of noise.
inline OwnedBitmap NoisyBitmap(DWORD width, DWORD height, uint32_t seed) {
    return Noisy(OwnedBitmap(CreateMemBitmap(width, height)), seed);
}
inline OwnedTexture NoisyTexture(DWORD width, DWORD height, uint32_t seed) {
    return Noisy(OwnedTexture(CreateTexture(width, height)), seed);
}
inline OwnedCanvas NoisyCanvas(DWORD width, DWORD height, uint32_t seed) {
    return Noisy(OwnedCanvas(CreateCanvas(width, height, {})), seed);
}

}  // namespace lacquer

// The exported functions that bitmaps and textures have in common, on the surface that a handle named, and the locks,
// which canvases have too. Null stands for a refused handle.
#pragma once

#include <lacquer/lacquer.h>

#include <cstring>

#include "core/pixel_surface.h"
#include "core/surface_view.h"

namespace lacquer {

/// The plain lock writes no more than a BITMAP. A lock that fails leaves zeros, also between the fields, so that nobody
/// draws by a view that was refused.
template <class Object>
int LockBits(Object *object, SurfaceView *out, const RECT *rect) {
    if (!object || !out) return 0;
    SurfaceView view{};
    const bool locked = object->Lock(&view, rect);
    if (locked) {
        WriteBitmapPart(out, view);
    } else {
        std::memset(out, 0, sizeof(BITMAP));
    }
    return locked;
}

template <class Object>
int LockBitsEx(Object *object, SurfaceView *out, const RECT *rect) {
    if (!object || !out) return 0;
    const bool locked = object->LockEx(out, rect);
    if (!locked) std::memset(out, 0, sizeof *out);
    return locked;
}

template <class Object>
int UnlockBits(Object *object) {
    if (!object) return 0;
    object->Unlock();
    return 1;
}

int GetFilter(const PixelSurface *surface, DWORD *out);
int SetFilter(PixelSurface *surface, DWORD filter);
int GetBitsPixel(const PixelSurface *surface, BYTE *out);

/// The transform codes of the Rotate... and Flip... functions.
constexpr bool IsRotation(int code) { return code >= LACQUER_ROTATE_90 && code <= LACQUER_ROTATE_270; }
constexpr bool IsFlip(DWORD code) { return code == LACQUER_FLIP_VERTICAL || code == LACQUER_FLIP_HORIZONTAL; }

}  // namespace lacquer

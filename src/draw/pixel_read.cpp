// One pixel of a surface as a colour word.

#include "draw/pixel_read.h"

#include "core/geometry.h"
#include "core/locked.h"
#include "pipeline/pixel/source_pixels.h"

namespace lacquer {

bool ReadPixel(PixelSurface &surface, LONG x, LONG y, DWORD *colour) {
    const RECT place{x, y, ClampToLong(static_cast<int64_t>(x) + 1), ClampToLong(static_cast<int64_t>(y) + 1)};
    const LockedSurface locked(surface, &place);
    const SurfaceView *view = locked.View();
    if (!view) return false;
    const auto *pixel = static_cast<const BYTE *>(view->bits);
    switch (view->bitsPerPixel) {
        case 8: *colour = IndexedPixels(*view).GetReader()(pixel, 0); break;
        case 24: *colour = LoadPacked(pixel); break;
        case 32: *colour = LoadPixel(pixel); break;
        default: return false;
    }
    return true;
}

}  // namespace lacquer

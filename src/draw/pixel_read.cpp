// One pixel of a surface as a colour word.

#include "draw/pixel_read.h"

#include <cstring>

#include "core/geometry.h"
#include "core/locked.h"

namespace lacquer {

bool ReadPixel(PixelSurface &surface, LONG x, LONG y, DWORD *colour) {
    const RECT place{x, y, ClampToLong(static_cast<int64_t>(x) + 1), ClampToLong(static_cast<int64_t>(y) + 1)};
    const LockedSurface locked(surface, &place);
    const SurfaceView *view = locked.View();
    if (!view) return false;
    const auto *bytes = static_cast<const BYTE *>(view->bits);
    switch (view->bitsPerPixel) {
        case 8: *colour = bytes[0] < view->paletteCount ? view->palette[bytes[0]] : 0; break;
        case 24:
            *colour = 0xFF000000 | static_cast<DWORD>(bytes[2]) << 16 | static_cast<DWORD>(bytes[1]) << 8 | bytes[0];
            break;
        case 32: std::memcpy(colour, bytes, sizeof *colour); break;
        default: return false;
    }
    return true;
}

}  // namespace lacquer

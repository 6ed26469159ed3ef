// What bitmaps and textures export alike.

#include "api/surface_exports.h"

namespace lacquer {

int GetFilter(const PixelSurface *surface, DWORD *out) {
    if (!surface || !out) return 0;
    *out = surface->Filter();
    return 1;
}

int SetFilter(PixelSurface *surface, DWORD filter) {
    if (!surface) return 0;
    surface->SetFilter(filter);
    return 1;
}

int GetBitsPixel(const PixelSurface *surface, BYTE *out) {
    if (!surface || !out) return 0;
    *out = static_cast<BYTE>(surface->BitsPixel());
    return 1;
}

}  // namespace lacquer

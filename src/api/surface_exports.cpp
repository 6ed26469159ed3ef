// What bitmaps and textures export alike.

#include "api/surface_exports.h"

#include "core/surface_view.h"

namespace lacquer {

int LockBits(PixelSurface *surface, SurfaceView *out, const RECT *rect) {
    SurfaceView view{};
    if (!surface || !out || !surface->Lock(&view, rect)) return 0;
    WriteBitmapPart(out, view);
    return 1;
}

int LockBitsEx(PixelSurface *surface, SurfaceView *out, const RECT *rect) {
    return surface && out && surface->LockEx(out, rect);
}

int UnlockBits(PixelSurface *surface) {
    if (!surface) return 0;
    surface->Unlock();
    return 1;
}

int GetFilter(const PixelSurface *surface, DWORD *out) {
    if (!surface || !out) return 0;
    *out = surface->GetFilter();
    return 1;
}

int SetFilter(PixelSurface *surface, DWORD filter) {
    if (!surface) return 0;
    surface->SetFilter(filter);
    return 1;
}

int GetBitsPixel(const PixelSurface *surface, BYTE *out) {
    if (!surface || !out) return 0;
    *out = static_cast<BYTE>(surface->GetBitsPixel());
    return 1;
}

}  // namespace lacquer

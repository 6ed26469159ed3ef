// SurfaceView records from a BITMAP; palettes.

#include "core/surface_view.h"

#include <cstring>

#include "pipeline/pixel/grey_ramp.h"

namespace lacquer {

SurfaceView ViewOf(const BITMAP &description) {
    SurfaceView view{};
    view.type = description.bmType;
    view.width = description.bmWidth;
    view.height = description.bmHeight;
    view.stride = description.bmWidthBytes;
    view.planes = description.bmPlanes;
    view.bitsPerPixel = description.bmBitsPixel;
    view.bits = description.bmBits;
    return view;
}

void CopyPalette(const SurfaceView &dest, const SurfaceView &source) {
    if (source.paletteCount == 0 || dest.palette == GreyRamp()) return;
    std::memmove(dest.palette, source.palette, source.paletteCount * sizeof(DWORD));
}

}  // namespace lacquer

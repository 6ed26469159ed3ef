// SurfaceView records: from a BITMAP, and narrowed to a rectangle; palettes.

#include "core/surface_view.h"

#include <cstring>

#include "pipeline/grey_ramp.h"

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

bool NarrowView(SurfaceView &view, const RECT *rect) {
    if (!rect) return true;
    if (rect->left < 0 || rect->top < 0 || rect->right > view.width || rect->bottom > view.height ||
        IsRectEmpty(rect)) {
        return false;
    }
    view.bits = RowOf(view, rect->top) + static_cast<std::ptrdiff_t>(view.bitsPerPixel / 8) * rect->left;
    view.width = rect->right - rect->left;
    view.height = rect->bottom - rect->top;
    return true;
}

void CopyPalette(const SurfaceView &dest, const SurfaceView &source) {
    if (source.paletteCount == 0 || dest.palette == GreyRamp()) return;
    std::memmove(dest.palette, source.palette, source.paletteCount * sizeof(DWORD));
}

}  // namespace lacquer

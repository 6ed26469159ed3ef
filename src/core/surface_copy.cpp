// Copying and resampling whole surfaces.

#include "core/surface_copy.h"

#include <algorithm>

#include "core/surface_view.h"
#include "pipeline/table/blit_dispatch.h"
#include "pipeline/table/image_table.h"

namespace lacquer {
namespace {

/// Views of one depth; they may overlap, as parts of one surface.
void CopyCommonPart(const SurfaceView &dest, const SurfaceView &source) {
    const ptrdiff_t columns = std::min(dest.width, source.width), rows = std::min(dest.height, source.height);
    ImageKernels().copyRows(dest, source, columns * (source.bitsPerPixel / 8), rows);
}

}  // namespace

void CopySurface(PixelSurface &dest, const RECT *destRect, PixelSurface &source, const RECT *sourceRect) {
    SurfaceView from{}, to{};
    if (!source.LockEx(&from, sourceRect)) return;
    if (dest.LockEx(&to, destRect)) {
        if (from.bitsPerPixel == to.bitsPerPixel && from.paletteCount == to.paletteCount) {
            dest.SetFilter(source.Filter());
            CopyCommonPart(to, from);
            CopyPalette(to, from);
        } else if (to.bitsPerPixel == 32) {
            dest.SetFilter(source.Filter());
            ConvertCopy(to, from);
        }
        dest.Unlock();
    }
    source.Unlock();
}

std::unique_ptr<PixelSurface> ResizedSurface(PixelSurface &source, DWORD width, DWORD height, DWORD kernelMode,
                                             SurfaceKind kind) {
    std::unique_ptr<PixelSurface> resized = MakeSurface(width, height, 32, 0, kind);
    if (!resized) return nullptr;
    resized->SetFilter(source.Filter());
    SurfaceView from{}, to{};
    if (source.LockEx(&from) && resized->Lock(&to)) ResampleCopy(to, from, kernelMode);
    return resized;
}

}  // namespace lacquer

// Walking over the pixels of one view, for kernels that need no source.
#pragma once

#include "pipeline/draw_area.h"
#include "pipeline/lookahead.h"

namespace lacquer {

/// Calls apply(pixels, count) for runs of pixels of a 32-bit view; a run joins rows where nothing lies between them.
/// Result: 1, the kernels' own.
template <class Apply>
int ForEachRun(const SurfaceView &dest, const Apply &apply) {
    if (dest.bitsPerPixel != 32 || dest.width < 1 || dest.height < 1) return 1;
    const bool joined = IsContiguous(dest);
    const ptrdiff_t width = dest.width, run = joined ? width * dest.height : width;
    const int64_t runs = joined ? 1 : dest.height;
    for (int64_t y = 0; y < runs; ++y) apply(RowOf(dest, y), run);
    return 1;
}

/// The same for kernels that read the pixels: the runs of a large view are pieces, brought into the cache beforehand.
template <class Apply>
int ForEachRunRead(const SurfaceView &dest, const Apply &apply) {
    if (dest.bitsPerPixel != 32 || !Lookahead::Pays(dest)) return ForEachRun(dest, apply);
    Lookahead ahead(dest);
    for (int64_t y = 0; y < dest.height; ++y) {
        BYTE *const row = RowOf(dest, y);
        for (ptrdiff_t x = 0; x < dest.width; x += Lookahead::kPiecePixels) {
            ahead.Advance();
            apply(row + x * kPixelBytes, std::min<ptrdiff_t>(Lookahead::kPiecePixels, dest.width - x));
        }
    }
    return 1;
}

}  // namespace lacquer

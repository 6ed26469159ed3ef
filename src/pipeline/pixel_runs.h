// Walking over the pixels of one view, for kernels that need no source.
#pragma once

#include "pipeline/draw_area.h"

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

}  // namespace lacquer

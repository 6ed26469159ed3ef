// Walking over the pixels of one view, for kernels that need no source.
#pragma once

#include <algorithm>

#include "pipeline/memory/draw_area.h"
#include "pipeline/memory/lookahead.h"

namespace lacquer {

/// Calls apply(pixels, count) for runs of pixels of a 32-bit view; a run joins rows where nothing lies between them.
/// Result: 1, the kernels' own.
template <class Apply>
int ForEachRun(const SurfaceView &dest, const Apply &apply) {
    if (dest.bitsPerPixel != 32 || dest.width < 1 || dest.height < 1) return 1;
    const Runs runs = RunsOf(dest, IsContiguous(dest));
    for (ptrdiff_t y = 0; y < runs.count; ++y) apply(RowOf(dest, y), runs.length);
    return 1;
}

/// The same for kernels that read the pixels: the runs of a large view are pieces, brought into the cache beforehand.
template <class Apply>
int ForEachRunRead(const SurfaceView &dest, const Apply &apply) {
    const Runs runs = RunsOf(dest, IsContiguous(dest));
    Lookahead ahead(dest, runs.length, runs.count);
    const ptrdiff_t piece = Lookahead::Pays(dest) ? Lookahead::kPiecePixels : PTRDIFF_MAX;
    return ForEachRun(dest, [&](BYTE *pixels, ptrdiff_t count) {
        for (ptrdiff_t done = 0; done < count;) {
            const ptrdiff_t now = std::min(piece, count - done);
            ahead.Advance();
            apply(pixels + done * kPixelBytes, now);
            done += now;
        }
    });
}

}  // namespace lacquer

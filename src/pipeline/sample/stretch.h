// Draws that stretch: the walk goes down blocks of columns, so that a fetch finds what belongs to a block's columns
// once for all rows.
#pragma once

#include "pipeline/pixel/source_pixels.h"
#include "pipeline/sample/draw.h"
#include "pipeline/sample/steps.h"

namespace lacquer {

/// Draws with the first of several fetches that suits: `Fetch::Suits(source, fullSize)` tells, of all but the last. A
/// fetch is made from the same two.
template <class Fetch, class... Others>
struct Stretched {
    using Pixels = typename Fetch::Pixels;

    template <class Combine>
    static void Draw(const SurfaceView &dest, const SurfaceView &source, const DrawArea &area, const Combine &combine) {
        if constexpr (sizeof...(Others) > 0) {
            if (!Fetch::Suits(source, area.fullSize)) return Stretched<Others...>::Draw(dest, source, area, combine);
        }
        DrawBlocks(dest, source, area, RunRef(combine));
    }

private:
    static void DrawBlocks(const SurfaceView &dest, const SurfaceView &source, const DrawArea &area, RunRef combine) {
        const Runs rows = RunsOf(dest, false);
        DrawTiles<Fetch>(dest, area.visibleOffset, rows, {kBlockColumns, rows.count}, combine, source, area.fullSize);
    }
};

}  // namespace lacquer

// Draws that stretch.
#pragma once

#include "pipeline/pixel/source_pixels.h"
#include "pipeline/sample/draw.h"
#include "pipeline/sample/steps.h"

namespace lacquer {

/// The walk goes down blocks of columns, so that a fetch finds what belongs to a block's columns once for all rows. A
/// fetch that keeps little for a column may take more of them in a copy in place: memory is fastest in the order of
/// rows.
template <int kCopiedColumns = kBlockColumns>
struct StretchFetch {
    static constexpr bool kInOrder = false;

    static DrawPlan PlanOf(const SurfaceView &dest, const SurfaceView & /*source*/, bool copies) {
        const Runs rows = RunsOf(dest, false);
        return {rows, {copies ? kCopiedColumns : kBlockColumns, rows.count}};
    }
};

/// Draws with the first of several fetches that suits: `Fetch::Suits(source, fullSize)` tells, of all but the last.
template <class Fetch, class... Others>
void DrawWithFirst(const SurfaceView &dest, const SurfaceView &source, const DrawArea &area, RunRef combine) {
    if constexpr (sizeof...(Others) > 0) {
        if (!Fetch::Suits(source, area.fullSize)) return DrawWithFirst<Others...>(dest, source, area, combine);
    }
    DrawTiles<Fetch>(dest, source, area, combine);
}

template <class Fetch, class... Others>
struct Stretched {
    using Pixels = typename Fetch::Pixels;

    template <class Combine>
    static void Draw(const SurfaceView &dest, const SurfaceView &source, const DrawArea &area, const Combine &combine) {
        DrawWithFirst<Fetch, Others...>(dest, source, area, RunRef(combine));
    }
};

}  // namespace lacquer

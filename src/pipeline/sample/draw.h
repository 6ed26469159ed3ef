// The one walk of all draws: a fetch finds source words, a combine rule puts them into the destination.
#pragma once

#include <algorithm>

#include "pipeline/combine/run_ref.h"
#include "pipeline/memory/lookahead.h"
#include "pipeline/sample/draw_area.h"

namespace lacquer {

/// Pixels that a fetch is asked for at a time, unless it fetches nothing; a run of them stays in the first-level cache.
inline constexpr int kBlockColumns = 512;

/// Draws tile by tile with a fetch that has
///   SetColumns(first, count), SetRow(row), Read(buffer, count)
/// where columns and rows count from the full rectangle's top-left pixel. Read gives the words of the columns in the
/// row. It may write them into the buffer, or tell where they stand already: in the source, or where the Read before
/// has written them, which are untouched since.
/// It is made from `parts`, here, so that the compiler sees that nobody else knows it.
template <class Fetch, class Combine, class... Part>
void DrawTiles(const SurfaceView &dest, POINT offset, const Runs &runs, const Tiles &tiles, const Combine &combine,
               const Part &...parts) {
    Fetch fetch(parts...);
    BYTE buffer[kBlockColumns * kPixelBytes];
    const bool copies = combine.Copies();
    Lookahead ahead(dest, runs, tiles, !copies && Lookahead::Pays(dest));
    for (ptrdiff_t top = 0; top < runs.count; top += tiles.runs) {
        const ptrdiff_t bottom = std::min(top + tiles.runs, runs.count);
        for (ptrdiff_t left = 0; left < runs.length; left += tiles.columns) {
            const ptrdiff_t columns = std::min(tiles.columns, runs.length - left);
            fetch.SetColumns(offset.x + left, columns);
            for (ptrdiff_t run = top; run < bottom; ++run) {
                ahead.Advance();
                fetch.SetRow(offset.y + run);
                BYTE *const out = RowOf(dest, run) + left * kPixelBytes;
                const BYTE *const words = fetch.Read(copies ? out : buffer, columns);
                if (!copies) {
                    combine.Run(out, words, columns);
                } else if (words != out) {
                    std::memmove(out, words, static_cast<size_t>(columns) * kPixelBytes);
                }
            }
        }
    }
}

}  // namespace lacquer

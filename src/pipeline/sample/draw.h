// The one walk of all draws: a fetch finds source words, a combine rule puts them into the destination.
#pragma once

#include <algorithm>

#include "pipeline/combine/run_ref.h"
#include "pipeline/memory/lookahead.h"
#include "pipeline/sample/draw_area.h"

namespace lacquer {

/// Pixels that a fetch is asked for at a time, unless it copies in place; a run of them stays in the first-level cache.
inline constexpr int kBlockColumns = 512;

/// How a draw goes over the destination.
struct DrawPlan {
    Runs runs;
    Tiles tiles;
};

/// Draws tile by tile. A fetch is made from the source and the full destination rectangle's size, and has
///   PlanOf(dest, source, copies)  the draw's plan
///   kInOrder                      whether the source is read along the same runs
///   SetColumns(first, count), Read(row, buffer, count)
/// where columns and rows count from the full rectangle's top-left pixel. Read gives the words of the columns in a row.
/// It may write them into the buffer, or tell where they stand already: in the source, or where the Read before
/// has written them, which are untouched since.
template <class Fetch, class Combine>
void DrawTiles(const SurfaceView &dest, const SurfaceView &source, const DrawArea &area, const Combine &combine) {
    const bool copies = combine.Copies(), inPlace = combine.IsInPlace();
    const auto [runs, tiles] = Fetch::PlanOf(dest, source, copies);
    const bool looksAhead = !copies && Lookahead::Pays(runs);
    Lookahead destAhead(dest, runs, tiles, looksAhead), sourceAhead(source, runs, tiles, looksAhead && Fetch::kInOrder);
    Fetch fetch(source, area.fullSize);
    const ptrdiff_t stride = dest.stride, firstRow = area.visibleOffset.y;
    BYTE buffer[kBlockColumns * kPixelBytes];
    for (ptrdiff_t top = 0; top < runs.count; top += tiles.runs) {
        const ptrdiff_t bottom = std::min(top + tiles.runs, runs.count);
        for (ptrdiff_t left = 0; left < runs.length; left += tiles.columns) {
            const ptrdiff_t columns = std::min(tiles.columns, runs.length - left);
            fetch.SetColumns(area.visibleOffset.x + left, columns);
            BYTE *out = RowOf(dest, top) + left * kPixelBytes;
            for (ptrdiff_t run = top; run < bottom; ++run, out += stride) {
                if (looksAhead) {
                    destAhead.Advance();
                    if constexpr (Fetch::kInOrder) sourceAhead.Advance();
                }
                const BYTE *const words = fetch.Read(firstRow + run, inPlace ? out : buffer, columns);
                if (!inPlace) {
                    combine.Run(out, words, columns);
                } else if (words != out) {
                    std::memmove(out, words, static_cast<size_t>(columns) * kPixelBytes);
                }
            }
        }
    }
}

}  // namespace lacquer

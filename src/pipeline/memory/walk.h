// The walk of kernels that need no source.
#pragma once

#include <algorithm>

#include "pipeline/memory/lookahead.h"
#include "pipeline/pixel/pixel.h"

namespace lacquer {

/// Calls change(words, count) for the runs of a view's four-byte pixels. Those of a large view that are read come in
/// pieces, which are brought into the cache beforehand.
template <class Change>
void WalkWords(const SurfaceView &view, const Runs &runs, bool reads, const Change &change) {
    const bool inPieces = reads && Lookahead::Pays(runs);
    const Tiles pieces = {inPieces ? Lookahead::kPiecePixels : runs.length, 1};
    Lookahead ahead(view, runs, pieces, inPieces);
    for (ptrdiff_t run = 0; run < runs.count; ++run) {
        for (ptrdiff_t column = 0; column < runs.length; column += pieces.columns) {
            ahead.Advance();
            change(RowOf(view, run) + column * kPixelBytes, std::min(pieces.columns, runs.length - column));
        }
    }
}

}  // namespace lacquer

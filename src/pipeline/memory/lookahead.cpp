// The walk ahead of a draw.

#include "pipeline/memory/lookahead.h"

#include <algorithm>

namespace lacquer {

namespace {

/// Far enough for memory to answer, near enough to be in the cache still.
constexpr ptrdiff_t kPixelsAhead = 4 * Lookahead::kPiecePixels;

}  // namespace

void PrefetchBytes(const BYTE *bytes, ptrdiff_t count) {
    for (ptrdiff_t i = 0; i < count; i += kCacheLineBytes) PrefetchLine(bytes + i);
}

void Lookahead::Begin(const SurfaceView &view, const Runs &runs, const Tiles &tiles) {
    const ptrdiff_t pixelBytes = view.bitsPerPixel / 8;
    piece_ = tile_ = RowOf(view, 0);
    stride_ = view.stride;
    lengthBytes_ = runs.length * pixelBytes;
    columnBytes_ = tiles.columns * pixelBytes;
    runsLeft_ = runs.count;
    tileRuns_ = tiles.runs;
    doneBytes_ = doneRuns_ = 0;
    for (ptrdiff_t pixels = 0; pixels < kPixelsAhead; pixels += tiles.columns) Advance();
}

void Lookahead::FetchPiece() {
    PrefetchBytes(piece_, std::min(columnBytes_, lengthBytes_ - doneBytes_));
    piece_ += stride_;
    if (++doneRuns_ < std::min(tileRuns_, runsLeft_)) return;
    // The next tile.
    doneRuns_ = 0;
    doneBytes_ += columnBytes_;
    tile_ += columnBytes_;
    if (doneBytes_ >= lengthBytes_) {
        tile_ += tileRuns_ * stride_ - doneBytes_;
        doneBytes_ = 0;
        runsLeft_ -= tileRuns_;
    }
    piece_ = runsLeft_ > 0 ? tile_ : nullptr;
}

}  // namespace lacquer

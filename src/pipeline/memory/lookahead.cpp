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
    piece_ = tile_ = line_ = RowOf(view, 0);
    stride_ = view.stride;
    lengthBytes_ = bytesLeft_ = runs.length * pixelBytes;
    columnBytes_ = tiles.columns * pixelBytes;
    runsLeft_ = runs.count;
    tileRuns_ = std::min(tiles.runs, runs.count);
    doneRuns_ = 0;
    for (ptrdiff_t pixels = 0; pixels < kPixelsAhead; pixels += tiles.columns) Advance();
}

void Lookahead::FetchPiece() {
    PrefetchBytes(piece_, std::min(columnBytes_, bytesLeft_));
    if (++doneRuns_ < tileRuns_) {
        piece_ += stride_;
        return;
    }
    doneRuns_ = 0;
    bytesLeft_ -= columnBytes_;
    piece_ = tile_ += columnBytes_;
    if (bytesLeft_ > 0) return;
    bytesLeft_ = lengthBytes_;
    runsLeft_ -= tileRuns_;
    line_ += tileRuns_ * stride_;
    tile_ = line_;
    tileRuns_ = std::min(tileRuns_, runsLeft_);
    piece_ = runsLeft_ > 0 ? line_ : nullptr;
}

}  // namespace lacquer

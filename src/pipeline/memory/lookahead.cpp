// The walk ahead of a draw.

#include "pipeline/memory/lookahead.h"

#include <algorithm>

namespace lacquer {

namespace {

/// Far enough for memory to answer, near enough to be in the cache still.
constexpr int kPiecesAhead = 4;

}  // namespace

void PrefetchBytes(const BYTE *bytes, ptrdiff_t count) {
    for (ptrdiff_t i = 0; i < count; i += kCacheLineBytes) PrefetchLine(bytes + i);
}

Lookahead::Lookahead(const SurfaceView &view, ptrdiff_t length, ptrdiff_t count)
    : run_(RowOf(view, 0)),
      stride_(view.stride),
      runBytes_(length * view.bitsPerPixel / 8),
      pieceBytes_(kPiecePixels * view.bitsPerPixel / 8),
      runsLeft_(Pays(view) ? count : 0) {
    for (int i = 0; i < kPiecesAhead; ++i) Advance();
}

void Lookahead::FetchPiece() {
    PrefetchBytes(run_ + done_, std::min(pieceBytes_, runBytes_ - done_));
    done_ += pieceBytes_;
    if (done_ < runBytes_) return;
    done_ = 0;
    run_ += stride_;
    --runsLeft_;
}

}  // namespace lacquer

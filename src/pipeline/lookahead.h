// Bringing pixels into the nearest cache before their turn comes.
#pragma once

#include <algorithm>
#include <cstddef>

#include "pipeline/view_rows.h"
#include "platform/simd.h"

namespace lacquer {

/// Asks for the cache lines of pixels that will soon be read or written. Touches nothing: any address does no harm.
inline void PrefetchBytes(const BYTE *bytes, ptrdiff_t count) {
#ifdef LACQUER_SSE2
    constexpr ptrdiff_t kLineBytes = 64;
    for (ptrdiff_t i = 0; i < count; i += kLineBytes) {
        _mm_prefetch(reinterpret_cast<const char *>(bytes + i), _MM_HINT_T0);
    }
#else
    static_cast<void>(bytes + count);
#endif
}

/// Walks over the rows of a view in pieces of kPiecePixels, as a draw does, but kPiecesAhead of it. The processor's own
/// guesses end with each page of memory and each row; a draw of large images would wait there.
class Lookahead {
public:
    static constexpr ptrdiff_t kPiecePixels = 128;

    /// Smaller images stay in the caches from one use to the next: for them a walk does nothing.
    static bool Pays(const SurfaceView &view) { return int64_t{view.width} * view.height >= 1 << 17; }

    explicit Lookahead(const SurfaceView &view)
        : row_(RowOf(view, 0)),
          stride_(view.stride),
          rowBytes_(ptrdiff_t{view.width} * view.bitsPerPixel / 8),
          pieceBytes_(kPiecePixels * view.bitsPerPixel / 8),
          rowsLeft_(Pays(view) ? view.height : 0) {
        for (int i = 0; i < kPiecesAhead; ++i) Advance();
    }

    /// To be called before each piece of the draw.
    void Advance() {
        if (rowsLeft_ == 0) return;
        PrefetchBytes(row_ + done_, std::min(pieceBytes_, rowBytes_ - done_));
        done_ += pieceBytes_;
        if (done_ < rowBytes_) return;
        done_ = 0;
        row_ += stride_;
        --rowsLeft_;
    }

private:
    static constexpr int kPiecesAhead = 4;

    const BYTE *row_;
    ptrdiff_t stride_, rowBytes_, pieceBytes_;
    ptrdiff_t rowsLeft_;
    ptrdiff_t done_ = 0;
};

}  // namespace lacquer

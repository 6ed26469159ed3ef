// Bringing pixels into the nearest cache before their turn comes.
#pragma once

#include <cstddef>

#include "pipeline/memory/view_rows.h"
#include "platform/simd.h"

namespace lacquer {

inline constexpr int kCacheLineBytes = 64;

/// Asks for the cache line of a byte that will soon be read or written. Touches nothing: any address does no harm.
inline void PrefetchLine(const BYTE *byte) {
#ifdef LACQUER_SSE2
    _mm_prefetch(reinterpret_cast<const char *>(byte), _MM_HINT_T0);
#else
    static_cast<void>(byte);
#endif
}

/// The same for all lines of some bytes.
void PrefetchBytes(const BYTE *bytes, ptrdiff_t count);

/// Walks over the runs of pixels that a draw walks over, in pieces as well, but some pieces ahead of it. The
/// processor's own guesses end with each page of memory and each row; a draw of large images would wait there.
class Lookahead {
public:
    static constexpr ptrdiff_t kPiecePixels = 128;

    /// Smaller images stay in the caches from one use to the next: for them a walk does nothing.
    static bool Pays(const SurfaceView &view) { return int64_t{view.width} * view.height >= 1 << 17; }

    /// `count` runs of `length` pixels, of which each begins a row of the view.
    Lookahead(const SurfaceView &view, ptrdiff_t length, ptrdiff_t count);

    /// To be called before the draw of each piece.
    void Advance() {
        if (runsLeft_ > 0) FetchPiece();
    }

private:
    void FetchPiece();

    const BYTE *run_;
    ptrdiff_t stride_, runBytes_, pieceBytes_;
    ptrdiff_t runsLeft_;
    ptrdiff_t done_ = 0;  ///< bytes of the run
};

}  // namespace lacquer

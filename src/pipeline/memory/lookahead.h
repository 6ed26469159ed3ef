// Bringing pixels into the nearest cache before their turn comes.
#pragma once

#include "pipeline/memory/limits.h"
#include "pipeline/memory/runs.h"
#include "platform/prefetch.h"

namespace lacquer {

/// Asks for all cache lines of some bytes.
void PrefetchBytes(const BYTE *bytes, ptrdiff_t count);

/// Goes the same way over a view as a kernel, but some hundred pixels ahead of it. The processor's own guesses end
/// with each page of memory and each row; a draw of large images would wait there.
class Lookahead {
public:
    /// A run's portion for kernels that could as well take it as a whole.
    static constexpr ptrdiff_t kPiecePixels = 256;

    /// Smaller images stay in the caches from one use to the next.
    static bool Pays(const Runs &runs) { return runs.length * runs.count >= memoryLimits.lookaheadPixels; }
    static bool Pays(const SurfaceView &view) { return Pays(RunsOf(view, false)); }

    /// Does nothing unless `enabled`.
    Lookahead(const SurfaceView &view, const Runs &runs, const Tiles &tiles, bool enabled) {
        if (enabled) Begin(view, runs, tiles);
    }

    /// To be called before each step of the walk.
    void Advance() {
        if (piece_) FetchPiece();
    }

private:
    void Begin(const SurfaceView &view, const Runs &runs, const Tiles &tiles);
    void FetchPiece();

    const BYTE *piece_ = nullptr;                               ///< the next one; null when there is none
    const BYTE *tile_ = nullptr, *line_ = nullptr;              ///< the first piece of its tile, and of the tile's runs
    ptrdiff_t stride_ = 0, lengthBytes_ = 0, columnBytes_ = 0;  ///< of a run; of a tile
    ptrdiff_t runsLeft_ = 0, tileRuns_ = 0;                     ///< from this tile on; of a tile
    ptrdiff_t bytesLeft_ = 0, doneRuns_ = 0;                    ///< from this tile on in its runs; of this tile
};

}  // namespace lacquer

// The copy of rows of the faster tiers: large results go past the caches.
#pragma once

#include "pipeline/memory/copy_rows.h"
#include "pipeline/memory/streaming_simd.h"

namespace lacquer::LACQUER_TIER {

/// As the base tier's.
inline void CopyRows(const SurfaceView &dest, const SurfaceView &source, ptrdiff_t bytes, ptrdiff_t rows) {
    if (int64_t{bytes} * rows >= memoryLimits.streamedCopyBytes)
        return MoveRows(dest, source, bytes, rows, StreamBytes);
    lacquer::CopyRows(dest, source, bytes, rows);
}

}  // namespace lacquer::LACQUER_TIER

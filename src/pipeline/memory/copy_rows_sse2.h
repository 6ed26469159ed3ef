// The copy of rows of the faster tiers: large results go past the caches.
#pragma once

#include "pipeline/memory/copy_rows.h"
#include "pipeline/memory/streaming_sse2.h"

namespace lacquer::sse2 {

/// As the base tier's.
inline void CopyRows(const SurfaceView &dest, const SurfaceView &source, ptrdiff_t bytes, ptrdiff_t rows) {
    if (StreamingPays(int64_t{bytes} * rows)) return MoveRows(dest, source, bytes, rows, StreamBytes);
    lacquer::CopyRows(dest, source, bytes, rows);
}

}  // namespace lacquer::sse2

// The copy of rows of the faster tiers: large results go past the caches.
#pragma once

#include "pipeline/memory/view_rows.h"

namespace lacquer::sse2 {

/// As the base tier's.
void CopyRows(const SurfaceView &dest, const SurfaceView &source, ptrdiff_t bytes, ptrdiff_t rows);

}  // namespace lacquer::sse2

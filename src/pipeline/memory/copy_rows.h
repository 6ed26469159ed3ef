// Copying rows of bytes from view to view: each copy at 1:1 of pixels that stay as they are.
#pragma once

#include "pipeline/memory/view_rows.h"

namespace lacquer {

/// Copies `bytes` bytes of each of `rows` rows.
void CopyRows(const SurfaceView &dest, const SurfaceView &source, ptrdiff_t bytes, ptrdiff_t rows);

}  // namespace lacquer

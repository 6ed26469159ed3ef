// Where the rows of a view lie.
#pragma once

#include <lacquer/lacquer.h>

#include <cstddef>
#include <cstdint>

namespace lacquer {

/// The first byte of row `row` of a view.
inline BYTE *RowOf(const SurfaceView &view, int64_t row) {
    return static_cast<BYTE *>(view.bits) + static_cast<ptrdiff_t>(row) * view.stride;
}

}  // namespace lacquer

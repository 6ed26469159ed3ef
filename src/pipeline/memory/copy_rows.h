// Copying rows of bytes from view to view: each copy at 1:1 of pixels that stay as they are.
#pragma once

#include <cstring>

#include "pipeline/memory/view_rows.h"

namespace lacquer {

/// Calls move(destination, source, bytes) for each of `rows` rows. Within one surface, whose views have one stride, the
/// rows may overlap in any way: in this order the result is as if all had been read first.
template <class Move>
void MoveRows(const SurfaceView &dest, const SurfaceView &source, ptrdiff_t bytes, ptrdiff_t rows, const Move &move) {
    BYTE *out = RowOf(dest, 0);
    const BYTE *in = RowOf(source, 0);
    ptrdiff_t outStep = dest.stride, inStep = source.stride;
    // A row that is written further on in the source must have been read before: then the last row is the first.
    // A destination in front of the source is further behind it than any size, as the difference wraps around.
    const auto behind = reinterpret_cast<uintptr_t>(out) - reinterpret_cast<uintptr_t>(in);
    if (behind < static_cast<uintptr_t>((rows - 1) * inStep + bytes)) {
        out = RowOf(dest, rows - 1);
        in = RowOf(source, rows - 1);
        outStep = -outStep;
        inStep = -inStep;
    }
    for (; rows > 0; --rows, out += outStep, in += inStep) move(out, in, bytes);
}

/// Copies `bytes` bytes of each of `rows` rows, which may overlap.
inline void CopyRows(const SurfaceView &dest, const SurfaceView &source, ptrdiff_t bytes, ptrdiff_t rows) {
    MoveRows(dest, source, bytes, rows,
             [](BYTE *out, const BYTE *in, ptrdiff_t count) { std::memmove(out, in, static_cast<size_t>(count)); });
}

}  // namespace lacquer
